#include "corvane/id3v1/EID3TagConstants.h"

#include "python/Bindings.h"
#include "python/Enumeration.h"

namespace corvane::python {

void bindEID3TagConstants(py::module_& corvane) {
    using enum EID3TagConstants;
    bindEnumeration<EID3TagConstants>(corvane, "EID3TagConstants",
                                      {{"ID3Unknown", ID3Unknown}, {"ID3v1", ID3v1}, {"ID3V11", ID3V11}},
                                      "Kinds of ID3v1 record: none, ID3v1, and ID3v1.1, which has a track number.");
}

} // namespace corvane::python
