#include "corvane/corvane.h"

#include "python/Binding.h"
#include "python/Bindings.h"
#include "python/Enumeration.h"

namespace corvane::python {

namespace {

using Handler = FileHandler;

void bindOpening(Class<Handler>& handler) {
    handler
        .def(
            "Create", [](Handler& object, const FileName& name) { return object.Create(name.bytes); }, "FileName"_a,
            FileWork(),
            "Opens and analyses a file (str, bytes or os.PathLike). False, with LastError, when it cannot be read or "
            "is a ZIP archive. A file without an MPEG frame header is no failure: LastError tells of it, unless the "
            "file has no ID3v1 record either, of which it tells then. Meant to be called once per object.")
        .def_property_readonly(
            "FileName", [](const Handler& object) { return corvane::python::FileName{object.FileName()}; },
            "The name that was given to Create.")
        .def_property_readonly("FileType", &Handler::FileType, "0 unknown, 1 MP3, 2 ZIP, 3 RAR.")
        .def_property_readonly(
            "Size", &Handler::Size,
            "Size of the file in bytes; 0 for one of 2 GB (2**31 bytes) or more, whose size File() tells.");
    text(handler, "FileTypeName", &Handler::FileTypeName, "\"MP3\", \"ZIP\", \"RAR\" or \"Unknown\".");
    lastError(handler);
}

void bindPlace(Class<Handler>& handler) {
    handler
        .def(
            "Path", [](const Handler& object) { return corvane::python::FileName{object.Path()}; }, FileWork(),
            "The folder of the file without the first separator: \"music/rock/\" for \"/music/rock/a.mp3\".")
        .def("Drive", &Handler::Drive, FileWork(),
             "The mount that holds the file (Drive), or None when it cannot be found out.")
        .def("File", &Handler::File, FileWork(),
             "The file's entry in the file system (File), or None when there is none.");
}

void bindId3v1(Class<Handler>& handler) {
    handler
        .def("readTag", &Handler::readTag, FileWork(),
             "Always ID3Unknown: the record is read by Create. Only a file that does not exist is recorded.")
        .def("writeID3v1xTag", &Handler::writeID3v1xTag, FileWork(),
             "Writes ID3v1xTag as the last 128 bytes of the file: over the record that is there, else behind the last "
             "byte. False, with LastError, on a failure, which leaves the file as it was; a Track outside 0 to 255 is "
             "one.")
        .def("removeID3V1xTag", &Handler::removeID3V1xTag, FileWork(),
             "Cuts the last 128 bytes, an ID3v1 record, off the file. False, with LastError, on a failure, which "
             "leaves the file as it was.")
        .def("HasTag", &Handler::HasTag, FileWork(),
             "Whether the file, as it is now, is longer than 128 bytes and its last 128 begin with \"TAG\".")
        .def_property_readonly("HasID3V1Tag", &Handler::HasID3V1Tag,
                               "Whether the ID3v1 tag object has a known tag type.")
        .def_property(
            "ID3v1xTag", [](const Handler& object) { return object.ID3v1xTag(); },
            [](Handler& object, std::shared_ptr<ID3V1Tag> tag) { object.ID3v1xTag(std::move(tag)); },
            "The ID3v1 tag object (ID3V1Tag). Writing replaces the object, by reference.");
}

void bindOtherTags(Class<Handler>& handler) {
    handler.def_property_readonly("ID3V2Tag", &Handler::ID3V2Tag, "The ID3v2 tag object (ID3V2Tag).")
        .def_property_readonly("HasID3V2Tag", &Handler::HasID3V2Tag, "Whether Create has found a valid ID3v2 header.")
        .def_property_readonly("LyricsTag", &Handler::LyricsTag,
                               "The Lyrics3 tag object as it stands (LyricsTag): HasLyricsTag and xml() load it.")
        .def_property_readonly("HasLyricsTag", py::cpp_function(&Handler::HasLyricsTag, FileWork()),
                               "Whether the file has a Lyrics3 tag; loads it when that has not been done.")
        .def_property_readonly("MPEGHeader", &Handler::MPEGHeader, "The technical data (MPEGHeader).")
        .def("createID3V2Tag", &Handler::createID3V2Tag, "theTag"_a, FileWork(),
             "Gives a file without an ID3v2 tag a new ID3v2.3 tag with the named values of an ID3V230. False when the "
             "file has a tag already, or, with LastError, when it cannot be written; it is then exactly what it was. "
             "This object goes on without the tag until the file is opened again. The year is written as it reads, 0 "
             "without one.");
}

} // namespace

void bindFileHandler(py::module_& corvane) {
    Class<Handler> handler(
        corvane, "FileHandler",
        "One MP3 file: the entry point. No operation leaves the file open, and none but xml() raises "
        "Error: an operation returns its failure value, and LastError tells why. Different threads "
        "may use different objects, and work in parallel; one object and the objects that it hands "
        "out belong to one thread at a time.");
    handler.def(py::init<>());
    bindOpening(handler);
    bindPlace(handler);
    bindId3v1(handler);
    bindOtherTags(handler);
    xml(handler, "Everything about the drive, the file and its tags as one XML document. Failures of the file system "
                 "raise Error and are not recorded, and so does ID3v1xTag where it is None (91).");
}

} // namespace corvane::python
