// How much the compressed frames of one tag may make. Deflate makes up to 1032 bytes of one, so that a small file could
// ask for gigabytes.
#pragma once

#include "corvane/platform/Export.h"

#include <cstdint>

namespace corvane {

inline constexpr std::uint64_t kDefaultInflationLimit = std::uint64_t{64} * 1024 * 1024; // bytes

// Sets how many bytes all compressed frames of a tag may make together beyond the size of their file, for tags that are
// read from now on in the whole process. Until then it is kDefaultInflationLimit. Frames that come after the limit are
// kept and saved as they are in the file, but what they say cannot be read. May be called from any thread.
CORVANE_EXPORT void setInflationLimit(std::uint64_t bytesBeyondFile);

// What is set at this time.
CORVANE_EXPORT std::uint64_t inflationLimit();

} // namespace corvane
