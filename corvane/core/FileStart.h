// What the first bytes of a file say about the rest of it.
#pragma once

#include "corvane/id3v2/ID3V2Header.h"

#include <cstdint>
#include <optional>

namespace corvane {

class FileReader;

// The numbers that FileHandler::FileType gives.
enum class FileKind : std::int16_t { Unknown, Mp3, Zip, Rar };

struct FileStart {
    FileKind kind = FileKind::Mp3;  // an archive, or what may be an MP3 file
    bool claimsTag = false;         // whether the file begins with "ID3"
    std::optional<ID3V2Header> tag; // the header behind "ID3", when its numbers are those of a tag
    std::int32_t audioPosition = 1; // 1-based; where the search for the first audio frame begins
};

FileStart startOf(FileReader& file);

// Fails when the file is an archive.
void requireNoArchive(const FileStart& start);

} // namespace corvane
