// Recognises an image by its first bytes and cuts out the part that states its size.
#pragma once

#include "corvane/platform/Bytes.h"

#include <optional>
#include <string_view>

namespace corvane {

struct ImageHeader {
    std::string_view mimeType; // "image/jpeg", "image/png", "image/gif" or "image/bmp"
    // The image without everything that does not state its size: a JPEG is its start and its frame header (ITU-T T.81,
    // B.2.2), a PNG its signature, its IHDR and an IEND chunk (PNG specification, 11.2), a GIF its logical screen
    // descriptor (GIF89a, 17 and 18), a BMP its file and bitmap headers.
    ByteArray bytes;
};

// Nothing when the bytes are no such image or end before its header does. Memory: at most 64 KiB (the longest frame
// header of a JPEG), commonly a few dozen bytes.
std::optional<ImageHeader> imageHeader(Bytes image);

} // namespace corvane
