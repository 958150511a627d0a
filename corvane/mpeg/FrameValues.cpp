#include "corvane/mpeg/FrameValues.h"

#include "corvane/mpeg/HeaderWord.h"

#include <cmath>
#include <utility>

namespace corvane {

double averageBitRate(double averageFrameSize, std::uint32_t layerId, std::int32_t frequencyHz) {
    const double coefficient = layerId == kLayerI ? 12 : 144;
    return averageFrameSize * frequencyHz / (coefficient * 1000);
}

std::int32_t durationSeconds(std::int32_t audioSize, double bitRateKbps) {
    if (!(bitRateKbps > 0)) return -1;
    const double milliseconds = std::nearbyint(audioSize / bitRateKbps * 8);
    return wholeNumber<std::int32_t>(std::trunc(milliseconds / 1000), "Duration");
}

std::int16_t roundedFrameSize(double averageFrameSize) {
    return wholeNumber<std::int16_t>(std::nearbyint(averageFrameSize), "FrameSize");
}

std::int16_t CalcFrameSize(std::int16_t BitRate, std::int32_t Frequency, bool Padding) {
    const double padding = Padding ? 1 : 0;
    if (BitRate < 0) return static_cast<std::int16_t>(padding);
    const double size = static_cast<double>(BitRate) / Frequency * 144 * 1000;
    return wholeNumber<std::int16_t>(std::trunc(size) + padding, "CalcFrameSize");
}

std::int32_t frameCountOf(std::int32_t audioSize, std::int16_t frameSize) {
    if (frameSize == 0) return 0;
    const std::int64_t count = std::int64_t{audioSize} / frameSize;
    return std::in_range<std::int32_t>(count) ? static_cast<std::int32_t>(count) : 0;
}

} // namespace corvane
