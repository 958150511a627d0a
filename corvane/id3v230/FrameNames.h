// Names of the frames by their numbers, and the way back.
#pragma once

#include "corvane/id3v230/ID3_FrameID.h"
#include "corvane/id3v230/enumShortOrLongText.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace corvane {

// The four letters or the title of a frame number; "" for both when the number has no frame. Nothing for any other
// choice of name. -1 is a second number of the lead performer, which hosts use.
std::optional<std::string_view> FrameName(std::int32_t frame, enumShortOrLongText name);

// The number of the frame with these four letters; ID3FID_NOFRAME for all others.
ID3_FrameID frameNumberOf(std::string_view letters);

} // namespace corvane
