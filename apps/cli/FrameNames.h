// What the frames of ID3v2 are, in a word or two.
#pragma once

#include "corvane/id3v2/FrameId.h"

#include <string_view>

namespace corvane::cli {

// The short name of a frame of ID3v2.2, 2.3 or 2.4; a word for its kind when the formats do not know its ID.
std::string_view frameName(FrameId id);

} // namespace corvane::cli
