// The search for the first MPEG frame as its rule is stated: position by position, field by field, slow. The library's
// search is compared with it.
#pragma once

#include "corvane/platform/Bytes.h"

#include <cstdint>
#include <optional>

namespace corvane::test {

// Whether the word is accepted as a frame header.
bool referenceIsFrameHeader(std::uint32_t word);

// The 1-based position of the first frame header of a file from a 1-based position above 0.
std::optional<std::int64_t> referenceFirstFrame(Bytes file, std::int64_t startPosition);

} // namespace corvane::test
