// Bytes written to an open file, or copied from one open file to another, whole or not at all as far as the caller is
// told: what is not complete is a failure with errno's number and text. A call that was interrupted goes on.
#pragma once

#include "corvane/platform/Bytes.h"

#include <cstdint>

namespace corvane {

// The most that is read into memory at a time, in bytes.
inline constexpr std::size_t kCopyBlockSize = 102'400;

// Writes all bytes at `offset`.
void writeAt(int target, std::uint64_t offset, Bytes bytes);

// Copies the range [sourceOffset, sourceOffset + count) to `targetOffset`. The system does it where it can
// (copy_file_range), otherwise it goes through one block of kCopyBlockSize bytes. A source that ends before the range
// does is a failure. The ranges must not overlap when both are of the same file.
void copyRange(int source, std::uint64_t sourceOffset, int target, std::uint64_t targetOffset, std::uint64_t count);

// The same to the end of a target that has `targetSize` bytes. Of a source of kLargeSparseFile bytes or more of which
// the medium holds less than half, holes become holes: nothing is read or written for them. Smaller files are copied
// byte for byte, because there have been file systems that told of holes where there were data.
inline constexpr std::uint64_t kLargeSparseFile = std::uint64_t{256} * 1024 * 1024;
void appendRange(int source, std::uint64_t sourceOffset, int target, std::uint64_t targetSize, std::uint64_t count);

} // namespace corvane
