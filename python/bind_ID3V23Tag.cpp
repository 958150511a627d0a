#include "corvane/id3v2/ID3V23Tag.h"

#include "python/Bindings.h"
#include "python/Id3v2Texts.h"
#include "python/ReaderBinding.h"

namespace corvane::python {

void bindID3V23Tag(py::module_& corvane) {
    Class<ID3V23Tag> tag(corvane, "ID3V23Tag",
                         "An ID3v2.3 tag; ID3V2Tag gives it. Where id3lib is installed it can be changed, and saveTag "
                         "writes it. Where it is not, property writes do nothing, and saving and removing are refused. "
                         "A text that is set to \"\" deletes its frame at the next save.");
    readerMembers(tag);
    savingMembers(tag, "Whether tags of this version can be changed; when they cannot, LastError says why.",
                  "Writes the tag into the file. False when that is not possible; the file is then exactly what it "
                  "was. LastError reads \"Unable to save the ID3v23 tag.\" in either case: go by the result.",
                  "Takes the tag out of the file, which is not touched otherwise. False, with LastError, when that is "
                  "not possible.");
    commonTexts(tag);
    fileText(tag, "GenreID", &ID3V23Tag::GenreID,
             "The text between \"(\" and \")\" at the start of TCON, else all of it.");
    pictureAndGenre(tag);
}

} // namespace corvane::python
