#include "corvane/id3v2/ID3V22Frame.h"

#include "python/Bindings.h"
#include "python/ReaderBinding.h"

namespace corvane::python {

void bindID3V22Frame(py::module_& corvane) {
    Class<ID3V22Frame> frame(corvane, "ID3V22Frame", "One frame of an ID3v2.2 tag. It lives on when the tag is gone.");
    frameMembers(frame, "The ID, 3 characters.",
                 "The text of a T frame in encoding 0 or 1; \"\" for every other frame.");
    frame.def_property_readonly("IsYear", &ID3V22Frame::IsYear, "Whether this is the frame of the year.");
}

} // namespace corvane::python
