// Frames that id3lib makes. It writes them into a new file of its own, in a folder that only this user can look into
// and that is gone when they have been read back.
#pragma once

#include "corvane/id3v230/WantedFrame.h"
#include "corvane/platform/Bytes.h"

#include <span>
#include <vector>

namespace corvane {

// The frames, each with its header, in the order given. id3lib reports no failures, so what it has written is compared
// with what was wanted; fails with an EncodingFailure when it is anything else, or when id3lib is not there.
std::vector<ByteArray> libraryFrames(std::span<const WantedFrame> frames);

} // namespace corvane
