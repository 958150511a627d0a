// Reading the frames of an ID3v2 tag out of a file, one rule per version.
//
// Every load gives nothing when the tag cannot be understood: when it does not fit the file, its header has reserved
// flags, a frame runs past its end, a compressed frame cannot be inflated, and what else the version asks for.
#pragma once

#include "corvane/id3v2/ID3V2Header.h"
#include "corvane/id3v2/TagFrames.h"

#include <cstdint>
#include <memory>
#include <string>

namespace corvane {

class FileReader;

// A tag in an open file.
struct TagInFile {
    FileReader& file;
    const std::string& path;    // of the same file, to read large payloads later
    std::int64_t fileLength;    // bytes
    std::int64_t startPosition; // of the tag's first byte, 1-based
    const ID3V2Header& header;
};

// By the rule of the header's version; nothing for a version that has none.
std::shared_ptr<const TagFrames> loadFrames(const TagInFile& tag);

std::shared_ptr<const TagFrames> loadVersion22(const TagInFile& tag);
// Header flag 20 is taken for that of an extended header. Odd on purpose: the published format has it in 40.
std::shared_ptr<const TagFrames> loadVersion23(const TagInFile& tag);
// The same flag 20 for an extended header, whose size bytes alone tell where the frames begin; and a footer, where the
// header announces one, must be there and agree with it.
std::shared_ptr<const TagFrames> loadVersion24(const TagInFile& tag);

} // namespace corvane
