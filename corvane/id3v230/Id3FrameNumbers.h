// The numbers that id3lib gives to frames. It knows frames of other versions of ID3v2 too, so its numbers are others
// than those of the published interface, and the two must never be taken for one another.
#pragma once

#include "corvane/id3v230/ID3_FrameID.h"

#include <cstdint>
#include <optional>

namespace corvane {

// id3lib's number of a frame. Nothing for what is no frame number: id3lib would bring the process down.
std::optional<std::int32_t> id3libNumberOf(ID3_FrameID frame);

} // namespace corvane
