// The header of an MPEG audio frame: 4 bytes, read as one big-endian word (ISO/IEC 11172-3 section 2.4.1.3).
//
//   31-21  sync, all ones        20-19  version ID       18-17  layer ID        16  protection (0: a CRC follows)
//   15-12  bit-rate index        11-10  sampling-rate index         9  padding           8  private
//     7-6  channel mode            5-4  mode extension   3  copyright   2  original    1-0  emphasis
//
// The standard has 12 sync bits and one version bit. Bit 20 became the high version bit with the unofficial MPEG 2.5.
#pragma once

#include "corvane/platform/Bits.h"

#include <cstdint>

namespace corvane {

// A header word by its fields. The word 0 stands for a header that was never read: all its fields are 0.
class HeaderWord {
public:
    constexpr explicit HeaderWord(std::uint32_t word = 0) : word_(word) {}

    constexpr std::uint32_t word() const { return word_; }
    constexpr std::uint32_t frameSync() const { return bits<31, 21>(word_); }
    constexpr std::uint32_t versionId() const { return bits<20, 19>(word_); } // 0 MPEG 2.5, 2 MPEG 2, 3 MPEG 1
    constexpr std::uint32_t layerId() const { return bits<18, 17>(word_); }   // 1 Layer III, 2 Layer II, 3 Layer I
    constexpr bool protectionBit() const { return bits<16, 16>(word_) != 0; }
    constexpr std::uint32_t bitRateIndex() const { return bits<15, 12>(word_); }
    constexpr std::uint32_t samplingRateIndex() const { return bits<11, 10>(word_); }
    constexpr bool paddingBit() const { return bits<9, 9>(word_) != 0; }
    constexpr bool privateBit() const { return bits<8, 8>(word_) != 0; }
    constexpr std::uint32_t channelMode() const { return bits<7, 6>(word_); } // 3 is the only one with one channel
    constexpr std::uint32_t modeExtension() const { return bits<5, 4>(word_); }
    constexpr bool copyrightBit() const { return bits<3, 3>(word_) != 0; }
    constexpr bool originalBit() const { return bits<2, 2>(word_) != 0; }
    constexpr std::uint32_t emphasis() const { return bits<1, 0>(word_); }

    friend constexpr bool operator==(const HeaderWord&, const HeaderWord&) = default;

private:
    std::uint32_t word_;
};

inline constexpr std::uint32_t kVersionMpeg1 = 3;
inline constexpr std::uint32_t kLayerI = 3;
inline constexpr std::uint32_t kSingleChannel = 3;

// Whether the search for the first frame accepts a word as a frame header.
//
// Two refusals go further than the standard, and hosts rely on the frames that are found because of them: MPEG 1 with
// bit-rate index 14 (320 kbit/s in Layer III), and MPEG 1 and MPEG 2 with bit-rate index 2.
constexpr bool IsFrameHeader(std::uint32_t Word) {
    const HeaderWord header(Word);
    if (header.frameSync() != 2047) return false;
    if (header.bitRateIndex() == 15 || header.versionId() == 1 || header.bitRateIndex() == 0 || header.layerId() == 0 ||
        header.samplingRateIndex() == 3 || header.emphasis() == 2) {
        return false;
    }
    const bool highVersionBit = bits<20, 20>(Word) != 0;
    if (highVersionBit && header.bitRateIndex() == 14 && header.versionId() == kVersionMpeg1) return false;
    return !(highVersionBit && header.bitRateIndex() == 2);
}
static_assert(IsFrameHeader(0xFFFB'9064));
static_assert(!IsFrameHeader(0xFFFF'FFFF) && !IsFrameHeader(0));

} // namespace corvane
