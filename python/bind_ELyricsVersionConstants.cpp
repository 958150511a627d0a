#include "corvane/lyrics/ELyricsVersionConstants.h"

#include "python/Bindings.h"
#include "python/Enumeration.h"

namespace corvane::python {

void bindELyricsVersionConstants(py::module_& corvane) {
    using enum ELyricsVersionConstants;
    bindEnumeration<ELyricsVersionConstants>(corvane, "ELyricsVersionConstants",
                                             {{"lvcUnknown", lvcUnknown}, {"lvcV100", lvcV100}, {"lvcV200", lvcV200}},
                                             "Versions of a Lyrics3 tag: none, 1.00 (lyrics only), 2.00 (fields).");
}

} // namespace corvane::python
