// Bytes as the library passes them: a view of somebody's bytes, and an array that owns its own.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace corvane {

// A view of bytes that somebody else keeps.
using Bytes = std::span<const std::uint8_t>;
// Bytes of one's own.
using ByteArray = std::vector<std::uint8_t>;

} // namespace corvane
