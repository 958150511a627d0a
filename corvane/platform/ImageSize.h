// Width and height of an image, read by stb_image from the part of the image that states them. This is the only place
// that knows stb_image; nothing is decoded.
#pragma once

#include "corvane/platform/Bytes.h"

#include <cstdint>
#include <optional>

namespace corvane {

struct ImageSize {
    std::int32_t width = 0;  // pixels, at least 1
    std::int32_t height = 0; // pixels, at least 1
};

// header: a JPEG, PNG, GIF or BMP image cut down to its header as `imageHeader` gives it. stb_image's walk over whole
// images must not see hostile bytes: up to version 2.27 an oversized Huffman table of a JPEG makes it write past its
// own tables.
std::optional<ImageSize> imageSizeOf(Bytes header);

} // namespace corvane
