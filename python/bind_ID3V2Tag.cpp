#include "corvane/id3v2/ID3V2Tag.h"

#include "python/Bindings.h"
#include "python/Id3v2Texts.h"

namespace corvane::python {

namespace {

py::object sizeOf(const ID3V2Tag& tag) {
    const Variant size = tag.Size();
    const auto* bytes = std::get_if<std::int32_t>(&size);
    return bytes == nullptr ? py::object(py::none()) : py::int_(*bytes);
}

void bindReaders(Class<ID3V2Tag>& tag) {
    fileProperty(
        tag, "ID3V22Tag", [](ID3V2Tag& object) { return object.ID3V22Tag(); },
        "The reader of version 2.2; None when the tag has another one or cannot be read (see LastError).");
    fileProperty(
        tag, "ID3V23Tag", [](ID3V2Tag& object) { return object.ID3V23Tag(); },
        "The reader of version 2.3; None when the tag has another one or cannot be read (see LastError).");
    fileProperty(
        tag, "ID3V24Tag", [](ID3V2Tag& object) { return object.ID3V24Tag(); },
        "The reader of version 2.4; None when the tag has another one or cannot be read (see LastError).");
}

void bindSaving(Class<ID3V2Tag>& tag) {
    fileProperty(
        tag, "canSave", [](ID3V2Tag& object) { return object.canSave(); },
        "Whether the tag can be changed; when it cannot, LastError says why.");
    tag.def("saveTag", &ID3V2Tag::saveTag, FileWork(),
            "Writes the changed tag into the file; False, with LastError, when it cannot. The file is then exactly "
            "what it was.");
    tag.def(
        "SavingOptions",
        [](ID3V2Tag& object, Number<std::int32_t> options, Number<std::int32_t> synchronization) {
            object.SavingOptions(options.value, synchronization.value);
        },
        "Options"_a, "SynchronizationOptions"_a = Number<std::int32_t>{0}, "Accepted and ignored.");
}

} // namespace

void bindID3V2Tag(py::module_& corvane) {
    Class<ID3V2Tag> tag(
        corvane, "ID3V2Tag",
        "The ID3v2 tag at the start of a file, whatever its version; FileHandler gives it. The frames "
        "are read when a property first asks for them. Reads forward to the reader of the tag's "
        "version. Writes forward to the ID3v2.3 reader and do nothing for other versions; they do not "
        "read the tag, so a write before the first read of an ID3v2.3 tag raises Error (91). Properties are "
        "told by the frames of version 2.3. Version 2.2 has the artist, album, title, genre (as it "
        "stands), track and year only, version 2.4 has no year: the others are \"\" and None there.");
    tag.def(py::init<>());
    tag.def_property_readonly("Version", &ID3V2Tag::Version, "The version (ID3V2Version), from the tag's header.");
    tag.def_property_readonly("Size", sizeOf, "Bytes of the tag with its 10 header bytes; 0 without a tag.");
    bindReaders(tag);
    commonTexts(tag);
    pictureAndGenre(tag);
    bindSaving(tag);
    lastError(tag);
    xml(tag,
        "The tag as an XML document: version, size and the frames that the reader keeps. Raises Error when a payload "
        "that stands in the file can no longer be read.");
}

} // namespace corvane::python
