// Bits by position, as the descriptions of formats name them.
#pragma once

#include <cstdint>

namespace corvane {

// Bits High to Low of a word, both included.
template <unsigned High, unsigned Low>
requires(High >= Low && High < 32) constexpr std::uint32_t bits(std::uint32_t word) {
    return word >> Low & (0xFFFF'FFFFU >> (31 - (High - Low)));
}
static_assert(bits<31, 0>(0x8000'0001) == 0x8000'0001);
static_assert(bits<31, 21>(0xFFFB'9064) == 2047);
static_assert(bits<0, 0>(0xFFFF'FFFE) == 0);

} // namespace corvane
