// The text properties that ID3V2Tag and ID3V23Tag have in common, and what splittedGenre is to Python.
#pragma once

#include "corvane/platform/Picture.h"

#include "python/Binding.h"

#include <cstdint>
#include <memory>
#include <string>

namespace corvane::python {

template <class T>
void commonTexts(Class<T>& tag) {
    fileText(tag, "Artist", &T::Artist, &T::Artist, "TPE1.");
    fileText(tag, "Album", &T::Album, &T::Album, "TALB.");
    fileText(tag, "Title", &T::Title, &T::Title, "TIT2.");
    fileText(tag, "Genre", &T::Genre, &T::Genre,
             "TCON; of a tag that cannot be changed the text behind a part \"(...)\", if there is one.");
    fileText(tag, "Track", &T::Track, &T::Track, "TRCK, such as \"3/12\".");
    fileText(tag, "Year", &T::Year, &T::Year,
             "TYER. Writing raises Error: 13 when the text is no number, 6 when it does not fit 16 bits.");
    fileText(tag, "LyricsUnsynced", &T::LyricsUnsynced, &T::LyricsUnsynced, "USLT.");
    fileText(
        tag, "LyricsSynced", &T::LyricsSynced, &T::LyricsSynced,
        "SYLT, in lines \"[mm:ss.f] text\"; of a tag that cannot be changed all that stands behind the description, "
        "the bytes of the times too.");
    fileText(tag, "UserURL", &T::UserURL, &T::UserURL, "WXXX; \"\" of a tag that cannot be changed.");
    fileText(tag, "Comment", &T::Comment, &T::Comment, "COMM.");
    fileText(tag, "Composer", &T::Composer, &T::Composer, "TCOM.");
    fileText(tag, "OriginalArtist", &T::OriginalArtist, &T::OriginalArtist, "TOPE.");
    fileText(tag, "Copyright", &T::Copyright, &T::Copyright, "TCOP.");
    fileText(tag, "EncodedBy", &T::EncodedBy, &T::EncodedBy, "TENC.");
}

template <class T>
void pictureAndGenre(Class<T>& tag) {
    tag.def_property(
        "Picture", py::cpp_function([](T& object) { return object.Picture(); }, FileWork()),
        py::cpp_function([](T& object, const std::shared_ptr<Picture>& value) { object.Picture(value); }, FileWork()),
        "APIC (Picture), None without one or when it is no JPEG, PNG, GIF or BMP image or can no longer "
        "be read. Writing None takes it out at the next save.");
    tag.def(
        "splittedGenre",
        [](T& object) {
            std::int16_t id = 0;
            std::string description;
            bool ok = false;
            {
                const py::gil_scoped_release unlocked;
                ok = object.splittedGenre(id, description);
            }
            return py::make_tuple(ok, id, Text{description});
        },
        "TCON \"(17)Rock\" as (True, 17, \"Rock\"); what the text does not have is 0 and \"\". (False, 0, \"\") for "
        "tags other than ID3v2.3. Of a tag that cannot be changed the number is always 0.");
}

} // namespace corvane::python
