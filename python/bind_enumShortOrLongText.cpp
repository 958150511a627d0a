#include "corvane/id3v230/enumShortOrLongText.h"

#include "python/Bindings.h"
#include "python/Enumeration.h"

namespace corvane::python {

void bindenumShortOrLongText(py::module_& corvane) {
    using enum enumShortOrLongText;
    bindEnumeration<enumShortOrLongText>(corvane, "enumShortOrLongText", {{"eslSHORT", eslSHORT}, {"eslLONG", eslLONG}},
                                         "Which name of a frame is asked for: the four letters or the title.");
}

} // namespace corvane::python
