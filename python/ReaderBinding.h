// What the readers of the three ID3v2 versions and their frames have in common.
#pragma once

#include "python/Binding.h"

#include <string_view>

namespace corvane::python {

template <class T>
void readerMembers(Class<T>& reader) {
    fileText(reader, "FrameList", &T::FrameList,
             "Every frame ID in file order, each followed by \";\". A second frame of the same ID is listed too.");
    reader.def_property_readonly("FrameCount", py::cpp_function(&T::FrameCount, FileWork()),
                                 "Number of frames in the collection.");
    reader
        .def(
            "GetFrameByID", [](const T& object, const Key& id) { return object.GetFrameByID(id.bytes); }, "FrameID"_a,
            FileWork(), "The frame kept under that ID, or None. Each call gives a new view of the same frame.")
        .def(
            "GetFrameByIndex", [](const T& object, Position index) { return object.GetFrameByIndex(index.value); },
            "Index"_a, FileWork(), "The frame at that place of the collection, from 1 to FrameCount, or None.")
        .def(
            "GetText", [](const T& object, const Key& id) { return Text{object.GetText(id.bytes)}; }, "FrameID"_a,
            FileWork(), "The text of the first frame of that ID; \"\" without one, or when it can no longer be read.");
    lastError(reader);
}

// canSave, saveTag and removeTag.
template <class T>
void savingMembers(Class<T>& reader, const char* canSave, const char* saveTag, const char* removeTag) {
    reader.def_property_readonly("canSave", py::cpp_function([](T& object) { return object.canSave(); }, FileWork()),
                                 canSave);
    reader.def("saveTag", &T::saveTag, FileWork(), saveTag);
    reader.def("removeTag", &T::removeTag, FileWork(), removeTag);
}

template <class T>
void readOnlyMembers(Class<T>& reader) {
    constexpr const char* kDoc = "Tags of this version are read only: always False, and LastError says so.";
    savingMembers(reader, kDoc, kDoc, kDoc);
}

template <class T>
void frameMembers(Class<T>& frame, const char* idDoc, const char* textDoc) {
    fileText(frame, "ID", &T::ID, idDoc);
    frame.def_property_readonly("RawData", py::cpp_function(&T::RawData, FileWork()),
                                "The payload (bytes); b\"\" when it can no longer be read from the file.");
    fileText(frame, "TextData", &T::TextData, textDoc);
    frame.def_property_readonly("IsArtist", &T::IsArtist, "Whether this is the frame of the artist.")
        .def_property_readonly("IsAlbum", &T::IsAlbum, "Whether this is the frame of the album.")
        .def_property_readonly("IsTitle", &T::IsTitle, "Whether this is the frame of the title.")
        .def_property_readonly("IsGenre", &T::IsGenre, "Whether this is the frame of the genre.");
}

inline constexpr const char* kPictureDoc =
    "The picture that removeHeader gives (Picture); None when it is no JPEG, PNG, GIF or BMP image.";
inline constexpr const char* kRemoveHeaderDoc =
    "The payload (bytes) without its leading fields (encoding, language, description, MIME type); all of it for frames "
    "that have none. The description ends at the first single 0 byte in every encoding.";
inline constexpr const char* kFrameTextDoc =
    "The text of a T frame, COMM, USLT, SYLT or APIC, the number of PCNT in decimal; \"\" for every other frame.";

} // namespace corvane::python
