// A picture of an ID3v2 tag in words.
#pragma once

#include "corvane/id3v2/FrameId.h"
#include "corvane/platform/Bytes.h"

#include <string>

namespace corvane::cli {

// Whether frames of this ID hold a picture.
bool isPicture(FrameId id);

// "image/jpeg, 300 x 200, 12,345 bytes, front cover, "description"" of the payload of such a frame; where the picture
// is only linked to, its address.
std::string pictureText(FrameId id, Bytes payload);

// "image/jpeg, 300 x 200, 12,345 bytes" of the bytes of an image alone.
std::string imageText(Bytes image);

} // namespace corvane::cli
