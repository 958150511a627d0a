// What the module consists of: one function for each class or group of functions, in the source of its name.
#pragma once

#include <pybind11/pybind11.h>

namespace corvane::python {

void bindDrive(pybind11::module_& corvane);
void bindError(pybind11::module_& corvane);
void bindEID3TagConstants(pybind11::module_& corvane);
void bindELyricsVersionConstants(pybind11::module_& corvane);
void bindFile(pybind11::module_& corvane);
void bindFileHandler(pybind11::module_& corvane);
void bindGenre(pybind11::module_& corvane);
void bindGenres(pybind11::module_& corvane);
void bindHost(pybind11::module_& corvane);
void bindID3V1Tag(pybind11::module_& corvane);
void bindID3V22Frame(pybind11::module_& corvane);
void bindID3V22Tag(pybind11::module_& corvane);
void bindID3V230(pybind11::module_& corvane);
void bindID3V230Field(pybind11::module_& corvane);
void bindID3V230Frame(pybind11::module_& corvane);
void bindID3V230Frames(pybind11::module_& corvane);
void bindID3V23Frame(pybind11::module_& corvane);
void bindID3V23Tag(pybind11::module_& corvane);
void bindID3V24Frame(pybind11::module_& corvane);
void bindID3V24Tag(pybind11::module_& corvane);
void bindID3V2Tag(pybind11::module_& corvane);
void bindID3V2Version(pybind11::module_& corvane);
void bindID3_FieldID(pybind11::module_& corvane);
void bindID3_FieldType(pybind11::module_& corvane);
void bindID3_FrameID(pybind11::module_& corvane);
void bindID3_TagType(pybind11::module_& corvane);
void bindLyricsTag(pybind11::module_& corvane);
void bindLyricsV200Field(pybind11::module_& corvane);
void bindMPEGHeader(pybind11::module_& corvane);
void bindPicture(pybind11::module_& corvane);
void bindScan(pybind11::module_& corvane);
void bindTagError(pybind11::module_& corvane);
void bindTestFixture(pybind11::module_& corvane);
void bindenumShortOrLongText(pybind11::module_& corvane);

} // namespace corvane::python
