// Frames of an ID3v2 tag that hold neither text nor a picture.
#pragma once

#include "corvane/id3v2/FrameId.h"
#include "corvane/platform/Bytes.h"

#include <string>

namespace corvane::cli {

// What tells such a frame from others of its ID: the owner of private data, the name of an embedded file. "" where
// there is nothing of that kind.
std::string binaryDescription(FrameId id, Bytes payload);

} // namespace corvane::cli
