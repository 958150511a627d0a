#include "corvane/lyrics/LyricsV200Field.h"

#include "python/Binding.h"
#include "python/Bindings.h"

namespace corvane::python {

void bindLyricsV200Field(py::module_& corvane) {
    using Field = LyricsV200Field;
    Class<Field> field(corvane, "LyricsV200Field", "One field of a Lyrics3 v2.00 tag. Read only.");
    field.def_property_readonly("IsLyrics", &Field::IsLyrics, "Whether the ID is \"LYR\".")
        .def_property_readonly("IsArtist", &Field::IsArtist, "Whether the ID is \"EAR\".")
        .def_property_readonly("IsAlbum", &Field::IsAlbum, "Whether the ID is \"EAL\".")
        .def_property_readonly("IsTitle", &Field::IsTitle, "Whether the ID is \"ETT\".")
        .def_property_readonly("IsAuthor", &Field::IsAuthor, "Whether the ID is \"AUT\".")
        .def_property_readonly(
            "ID", [](const Field& object) { return Text{object.ID()}; }, "The ID, always 3 characters.")
        .def_property_readonly(
            "Size", [](const Field& object) { return object.Size(); },
            "The length in bytes that the tag tells, 0 to 99999; 0 for a field that was imported.")
        .def_property_readonly(
            "TextData", [](const Field& object) { return Text{object.TextData()}; }, "The text.");
}

} // namespace corvane::python
