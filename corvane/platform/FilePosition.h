// The two ways to say where a byte stands in a file. `filePosition` counts from 1, as the interface between the file
// handler and the readers does; `offset` counts from 0, as the system does. They meet here only.
#pragma once

#include <cstdint>

namespace corvane {

constexpr std::int64_t offsetOf(std::int64_t filePosition) { return filePosition - 1; }
constexpr std::int64_t filePositionOf(std::int64_t offset) { return offset + 1; }

} // namespace corvane
