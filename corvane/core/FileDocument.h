// Everything about one file as one XML document:
//
//   ImportData
//     Drive        Properties of the mount that holds the file
//     Files/File   Properties of the file, then the elements MPEGHeader, ID3V1Tag, ID3V2Tag and LyricsTag
#pragma once

#include <functional>
#include <string>

namespace corvane {

class FileHandler;

// A date, or `fallback` when reading it fails or gives nothing: not every file system keeps every date.
std::string dateOr(const std::function<std::string()>& read, const std::string& fallback);

// The document's text. `loadLyricsTag` is called before the Lyrics3 tag is rendered. Fails with a RuntimeFailure when
// the file system cannot tell about the file.
std::string renderFileDocument(FileHandler& handler, const std::function<void()>& loadLyricsTag);

} // namespace corvane
