// The frames of a tag as rows of a list.
#pragma once

#include "corvane/id3v2/ID3V2Tag.h"

#include <cstddef>
#include <string>
#include <vector>

namespace corvane::controls {

struct FrameRow {
    std::string frame; // ID
    std::string value; // text, or how many bytes there are
    std::string description;
    std::string language;
};

// What stands for a frame without text: "Binary (1,234,567 Bytes)", the same in every language of the user.
std::string binaryValue(std::size_t byteCount);

// One row for each frame of the reader of the tag's version, in its order; none when the tag cannot be read.
std::vector<FrameRow> rowsOf(ID3V2Tag& tag);

} // namespace corvane::controls
