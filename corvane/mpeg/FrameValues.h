// Values computed from a frame header, a Xing header and the size of the audio.
//
// Results of computations are rounded half to even, or cut, as each function says. One that does not fit its type, or
// is no number at all, is an overflow failure.
#pragma once

#include "corvane/platform/RuntimeFailure.h"

#include <concepts>
#include <cstdint>
#include <limits>

namespace corvane {

// A whole number held as double in an integer type. Not a number, an infinity and what does not fit overflow.
template <std::signed_integral Whole>
requires(sizeof(Whole) <= 4) Whole wholeNumber(double value, const char* source) {
    constexpr double kLeast = std::numeric_limits<Whole>::min();
    constexpr double kGreatest = std::numeric_limits<Whole>::max();
    if (!(value >= kLeast && value <= kGreatest)) throw overflowFailure(source);
    return static_cast<Whole>(value);
}

// Average size in bytes of `frameCount` frames, which is not 0.
inline double averageFrameSize(std::int32_t audioSize, std::int32_t frameCount) {
    return static_cast<double>(audioSize) / frameCount;
}

// Bit rate in kbit/s of a stream by its average frame size. The same samples per frame stand for MPEG 1, 2 and 2.5, and
// Layer I frames count as 12 bytes for each kbit/s and kHz; both differ from the standard and hosts rely on them.
double averageBitRate(double averageFrameSize, std::uint32_t layerId, std::int32_t frequencyHz);

// Duration in whole seconds: rounded to milliseconds, then cut. -1 when the bit rate is not above 0.
std::int32_t durationSeconds(std::int32_t audioSize, double bitRateKbps);

// An average frame size rounded to whole bytes.
std::int16_t roundedFrameSize(double averageFrameSize);

// Size of a frame in bytes, cut: bit rate (kbit/s) / frequency (Hz) * 144 * 1000, one more with padding. A bit rate
// below 0 gives 0, or 1 with padding. 144 stands for every version and layer, unlike the standard; hosts rely on it.
std::int16_t CalcFrameSize(std::int16_t BitRate, std::int32_t Frequency, bool Padding);

// The number of whole frames in the audio; 0 when it cannot be computed.
std::int32_t frameCountOf(std::int32_t audioSize, std::int16_t frameSize);

} // namespace corvane
