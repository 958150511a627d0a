#include "corvane/id3v2/ID3V23Frame.h"

#include "python/Bindings.h"
#include "python/ReaderBinding.h"

namespace corvane::python {

void bindID3V23Frame(py::module_& corvane) {
    using Frame = ID3V23Frame;
    Class<Frame> frame(corvane, "ID3V23Frame",
                       "One frame of an ID3v2.3 tag. It lives on when the tag is gone. A frame of a tag that can be "
                       "changed shows the values that its record has now.");
    frameMembers(frame, "The ID, 4 characters.", kFrameTextDoc);
    frame.def("createPicture", &Frame::createPicture, FileWork(), kPictureDoc)
        .def_property_readonly("PictureRAW", py::cpp_function(&Frame::PictureRAW, FileWork()),
                               "The picture's bytes as they stand in the frame.")
        .def("removeHeader", &Frame::removeHeader, FileWork(), kRemoveHeaderDoc)
        .def_property_readonly("IsPicture", &Frame::IsPicture, "Whether this is the frame of a picture.")
        .def_property_readonly("IsTrack", &Frame::IsTrack, "Whether this is the frame of the track.")
        .def_property_readonly("IsYear", &Frame::IsYear, "Whether this is the frame of the year.")
        .def_property_readonly("IsComment", &Frame::IsComment, "Whether this is the frame of a comment.");
    constexpr const char* kTextDoc = "\"\" for frames without one, and for all frames of a tag that cannot be changed.";
    fileText(frame, "Description", &Frame::Description, kTextDoc);
    fileText(frame, "Language", &Frame::Language, kTextDoc);
}

} // namespace corvane::python
