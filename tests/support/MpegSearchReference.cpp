#include "tests/support/MpegSearchReference.h"

namespace corvane::test {

bool referenceIsFrameHeader(std::uint32_t word) {
    const std::uint32_t sync = word >> 21;
    const std::uint32_t version = word >> 19 & 3;
    const std::uint32_t layer = word >> 17 & 3;
    const std::uint32_t bitRateIndex = word >> 12 & 15;
    const std::uint32_t samplingRateIndex = word >> 10 & 3;
    const std::uint32_t emphasis = word & 3;
    if (sync != 2047) return false;
    if (bitRateIndex == 15) return false;
    if (version == 1) return false;
    if (bitRateIndex == 0) return false;
    if (layer == 0) return false;
    if (samplingRateIndex == 3) return false;
    if (emphasis == 2) return false;
    if ((word & 0x10'0000) != 0 && bitRateIndex == 14 && version == 3) return false;
    if ((word & 0x20'0000) != 0 && bitRateIndex == 2 && (word & 0x10'0000) != 0) return false;
    return true;
}

std::optional<std::int64_t> referenceFirstFrame(Bytes file, std::int64_t startPosition) {
    const auto length = static_cast<std::int64_t>(file.size());
    for (std::int64_t position = startPosition; position <= startPosition + 15'000; ++position) {
        if (position + 4 >= length) return std::nullopt;
        std::uint32_t word = 0;
        for (std::int64_t i = 0; i < 4; ++i) word = word << 8 | file[static_cast<std::size_t>(position - 1 + i)];
        if (referenceIsFrameHeader(word)) return position;
    }
    return std::nullopt;
}

} // namespace corvane::test
