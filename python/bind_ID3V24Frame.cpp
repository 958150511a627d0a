#include "corvane/id3v2/ID3V24Frame.h"

#include "python/Bindings.h"
#include "python/ReaderBinding.h"

namespace corvane::python {

void bindID3V24Frame(py::module_& corvane) {
    using Frame = ID3V24Frame;
    Class<Frame> frame(corvane, "ID3V24Frame", "One frame of an ID3v2.4 tag. It lives on when the tag is gone.");
    frameMembers(frame, "The ID, 4 characters.", kFrameTextDoc);
    frame.def("createPicture", &Frame::createPicture, FileWork(), kPictureDoc)
        .def_property_readonly("removeHeader", py::cpp_function(&Frame::removeHeader, FileWork()), kRemoveHeaderDoc)
        .def_property_readonly("IsPicture", &Frame::IsPicture, "Whether this is the frame of a picture.")
        .def_property_readonly("IsComment", &Frame::IsComment, "Whether this is the frame of a comment.");
}

} // namespace corvane::python
