// Bytes as the library passes them: a view of somebody's bytes, and an array that owns its own.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace corvane {

using Bytes = std::span<const std::uint8_t>;
using ByteArray = std::vector<std::uint8_t>;

} // namespace corvane
