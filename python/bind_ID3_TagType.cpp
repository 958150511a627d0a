#include "corvane/id3v230/ID3_TagType.h"

#include "python/Bindings.h"
#include "python/Enumeration.h"

namespace corvane::python {

void bindID3_TagType(py::module_& corvane) {
    using enum ID3_TagType;
    bindEnumeration<ID3_TagType>(corvane, "ID3_TagType",
                                 {{"ID3TT_NONE", ID3TT_NONE},
                                  {"ID3TT_ID3V1", ID3TT_ID3V1},
                                  {"ID3TT_ID3V2", ID3TT_ID3V2},
                                  {"ID3TT_LYRICS3", ID3TT_LYRICS3},
                                  {"ID3TT_LYRICS3V2", ID3TT_LYRICS3V2},
                                  {"ID3TT_MUSICMATCH", ID3TT_MUSICMATCH},
                                  {"ID3TT_LYRICS", ID3TT_LYRICS},
                                  {"ID3TT_ID3", ID3TT_ID3},
                                  {"ID3TT_ALL", ID3TT_ALL},
                                  {"ID3TT_PREPENDED", ID3TT_PREPENDED},
                                  {"ID3TT_APPENDED", ID3TT_APPENDED}},
                                 "Kinds of tags as bits, under the names that id3lib gives them.");
}

} // namespace corvane::python
