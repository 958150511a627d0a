// The Python module `corvane`: the library's published classes, enumerations and members under their own names, and
// `scan`. This file only calls the sources of the classes, those first that others name.
#include "corvane/Version.h"

#include "python/Bindings.h"

PYBIND11_MODULE(corvane, corvane) {
    using namespace corvane::python;
    corvane.doc() = "Reads, edits and writes everything that is inside an MP3 file.";
    corvane.attr("__version__") = corvane::kVersion;
    bindError(corvane);
    bindEID3TagConstants(corvane);
    bindELyricsVersionConstants(corvane);
    bindID3_FieldID(corvane);
    bindID3_FieldType(corvane);
    bindID3_FrameID(corvane);
    bindID3_TagType(corvane);
    bindenumShortOrLongText(corvane);
    bindTagError(corvane);
    bindHost(corvane);
    bindDrive(corvane);
    bindFile(corvane);
    bindPicture(corvane);
    bindGenre(corvane);
    bindGenres(corvane);
    bindID3V1Tag(corvane);
    bindMPEGHeader(corvane);
    bindLyricsV200Field(corvane);
    bindLyricsTag(corvane);
    bindID3V230Field(corvane);
    bindID3V230Frame(corvane);
    bindID3V230Frames(corvane);
    bindID3V230(corvane);
    bindID3V22Frame(corvane);
    bindID3V22Tag(corvane);
    bindID3V23Frame(corvane);
    bindID3V23Tag(corvane);
    bindID3V24Frame(corvane);
    bindID3V24Tag(corvane);
    bindID3V2Version(corvane);
    bindID3V2Tag(corvane);
    bindFileHandler(corvane);
    bindScan(corvane);
    bindTestFixture(corvane);
}
