#include "corvane/id3v230/ID3_FieldType.h"

#include "python/Bindings.h"
#include "python/Enumeration.h"

namespace corvane::python {

void bindID3_FieldType(py::module_& corvane) {
    using enum ID3_FieldType;
    bindEnumeration<ID3_FieldType>(corvane, "ID3_FieldType",
                                   {{"ID3FTY_NONE", ID3FTY_NONE},
                                    {"ID3FTY_INTEGER", ID3FTY_INTEGER},
                                    {"ID3FTY_BINARY", ID3FTY_BINARY},
                                    {"ID3FTY_TEXTSTRING", ID3FTY_TEXTSTRING},
                                    {"ID3FTY_NUMTYPES", ID3FTY_NUMTYPES}},
                                   "Types of the fields of a frame, under the names that id3lib gives them.");
}

} // namespace corvane::python
