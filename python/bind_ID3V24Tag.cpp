#include "corvane/id3v2/ID3V24Tag.h"

#include "python/Bindings.h"
#include "python/ReaderBinding.h"

namespace corvane::python {

void bindID3V24Tag(py::module_& corvane) {
    using Tag = ID3V24Tag;
    Class<Tag> tag(corvane, "ID3V24Tag", "An ID3v2.4 tag. Read only; ID3V2Tag gives it.");
    readerMembers(tag);
    readOnlyMembers(tag);
    fileText(tag, "Artist", &Tag::Artist, "Text of TPE1.");
    fileText(tag, "Album", &Tag::Album, "Text of TALB.");
    fileText(tag, "Title", &Tag::Title, "Text of TIT2.");
    fileText(tag, "GenreID", &Tag::GenreID, "The text between \"(\" and \")\" at the start of TCON, else all of it.");
    fileText(tag, "Genre", &Tag::Genre, "The text of TCON behind such a part, else all of it.");
    fileText(tag, "Track", &Tag::Track, "Text of TRCK.");
}

} // namespace corvane::python
