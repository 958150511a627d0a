#include "corvane/platform/Picture.h"

#include "python/Binding.h"
#include "python/Bindings.h"

namespace corvane::python {

void bindPicture(py::module_& corvane) {
    Class<Picture> picture(corvane, "Picture",
                           "A picture out of a tag or an image file: the encoded bytes exactly as they were found, and "
                           "what their header says. Nothing is decoded.");
    picture.def_static("fromBytes", &Picture::fromBytes, "bytes"_a,
                       "A picture of the bytes of a JPEG, PNG, GIF or BMP image; None when they begin with no header "
                       "of such an image.");
    picture.def_property_readonly(
        "bytes", [](const Picture& object) { return ByteArray(object.bytes().begin(), object.bytes().end()); },
        "The encoded image, a copy at every call.");
    text(picture, "mimeType", &Picture::mimeType, "\"image/jpeg\", \"image/png\", \"image/gif\" or \"image/bmp\".");
    picture.def_property_readonly("width", &Picture::width, "Pixels, at least 1.")
        .def_property_readonly("height", &Picture::height, "Pixels, at least 1.")
        .def_property_readonly("handle", &Picture::handle, "A number that is never 0 and that no other picture has.");
}

} // namespace corvane::python
