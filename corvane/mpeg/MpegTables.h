// What the fields of a frame header stand for: names, bit rates and sampling frequencies.
//
// A look-up outside its table fails with FailureNumber::SubscriptOutOfRange, with `source` as the label.
#pragma once

#include "corvane/platform/RuntimeFailure.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

namespace corvane {

inline constexpr std::array<std::string_view, 4> kMpegVersionNames{"MPEG 2.5", "Reserved", "MPEG 2.0", "MPEG 1.0"};
inline constexpr std::array<std::string_view, 4> kMpegLayerNames{"Reserved", "3", "2", "1"};
inline constexpr std::array<std::string_view, 4> kMpegModeNames{"Stereo", "Joint Stereo", "Dual Channel",
                                                                "Single Channel"};

// The standard has 1 as 50/15 microseconds and 2 as reserved. Hosts know the names as they stand here.
inline constexpr std::array<std::string_view, 4> kEmphasisNames{"None", "Unknown", "50/15ms", "CCITT j.17"};

// kbit/s by bit-rate index. Index 0 (free format) and 15 (forbidden) have no rate.
using MpegBitRates = std::array<std::int16_t, 16>;

constexpr bool isBitRateRow(const MpegBitRates& row) {
    const auto forbidden = row.end() - 1;
    return row.front() == 0 && *forbidden == 0 &&
           std::adjacent_find(row.begin(), forbidden, std::greater_equal{}) == forbidden;
}

// By low bit of the version ID (0: MPEG 2 of ISO/IEC 13818-3 section 2.4.2.3, which MPEG 2.5 shares; 1: MPEG 1 of
// ISO/IEC 11172-3 section 2.4.2.3) and layer ID less 1 (Layer III, II, I).
inline constexpr std::array<std::array<MpegBitRates, 3>, 2> kMpegBitRates{{
    {{
        {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160, 0},
        {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160, 0},
        {0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256, 0},
    }},
    {{
        {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 0},
        {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384, 0},
        {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448, 0},
    }},
}};
static_assert(std::all_of(kMpegBitRates.begin(), kMpegBitRates.end(),
                          [](const auto& layers) { return std::all_of(layers.begin(), layers.end(), isBitRateRow); }));

// Hz by version ID and sampling-rate index. The MPEG 2.5 row differs from the published extension (11025, 12000,
// 8000); hosts rely on it.
inline constexpr std::array<std::array<std::int32_t, 3>, 4> kMpegFrequencies{{
    {32000, 16000, 8000},
    {0, 0, 0},
    {22050, 24000, 16000},
    {44100, 48000, 32000},
}};

template <class Entry, std::size_t Size>
constexpr const Entry& entryAt(const std::array<Entry, Size>& table, std::size_t index, const char* source) {
    if (index >= Size) throw RuntimeFailure(FailureNumber::SubscriptOutOfRange, source, "Subscript out of range");
    return table[index];
}

// kbit/s; 0 for index 0 and 15. A layer ID of 0 lies outside the table.
constexpr std::int16_t mpegBitRateKbps(std::size_t versionId, std::size_t layerId, std::size_t index,
                                       const char* source) {
    return entryAt(entryAt(kMpegBitRates[versionId & 1], layerId - 1, source), index, source);
}

// Hz. The sampling-rate index 3 lies outside the table.
constexpr std::int32_t mpegFrequencyHz(std::size_t versionId, std::size_t index, const char* source) {
    return entryAt(entryAt(kMpegFrequencies, versionId, source), index, source);
}

// The name of an emphasis value; "" for any but 0 to 3.
constexpr std::string_view EmphasisName(std::int16_t Emphasis) {
    const auto index = static_cast<std::size_t>(Emphasis);
    return index < kEmphasisNames.size() ? kEmphasisNames[index] : std::string_view{};
}
static_assert(EmphasisName(-1).empty() && EmphasisName(4).empty() && EmphasisName(3) == "CCITT j.17");

} // namespace corvane
