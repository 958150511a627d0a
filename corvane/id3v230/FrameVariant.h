// The value of a frame, of whatever type the frame has.
#pragma once

#include "corvane/platform/Picture.h"
#include "corvane/platform/Variant.h"

#include <cstdint>
#include <memory>
#include <string>
#include <variant>

namespace corvane {

// Nothing; the year (16 bits); the play counter (32 bits); text; a picture.
using FrameVariant = std::variant<NoValue, std::int16_t, std::int32_t, std::string, std::shared_ptr<Picture>>;

} // namespace corvane
