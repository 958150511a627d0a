// Fields of a fixed record, each stated once as offset and size, so that the compiler can prove that they fill it.
#pragma once

#include "corvane/platform/ByteReader.h"
#include "corvane/platform/Bytes.h"

#include <cstddef>

namespace corvane {

struct ByteRange {
    std::size_t offset, size; // bytes from the start of the record
};

// Whether the ranges, in this order, fill `total` bytes without a gap or an overlap.
constexpr bool fills(std::size_t total, auto... ranges) {
    std::size_t next = 0;
    return ((ranges.offset == next && (next += ranges.size, true)) && ...) && next == total;
}

// The bytes of a field; none when the record is too short for it.
constexpr Bytes fieldOf(Bytes record, ByteRange range) {
    return readerAt(record, range.offset).take(range.size).value_or(Bytes{});
}

} // namespace corvane
