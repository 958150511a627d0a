#include "corvane/id3v2/ID3V22Tag.h"

#include "python/Bindings.h"
#include "python/ReaderBinding.h"

namespace corvane::python {

void bindID3V22Tag(py::module_& corvane) {
    using Tag = ID3V22Tag;
    Class<Tag> tag(corvane, "ID3V22Tag", "An ID3v2.2 tag. Read only; ID3V2Tag gives it.");
    readerMembers(tag);
    readOnlyMembers(tag);
    fileText(tag, "Artist", &Tag::Artist, "Text of TP1.");
    fileText(tag, "Album", &Tag::Album, "Text of TAL.");
    fileText(tag, "Title", &Tag::Title, "Text of TT2.");
    fileText(tag, "Genre", &Tag::Genre, "Text of TCO, as it stands.");
    fileText(tag, "Track", &Tag::Track, "Text of TRK.");
    fileText(tag, "Year", &Tag::Year, "Text of TYE.");
}

} // namespace corvane::python
