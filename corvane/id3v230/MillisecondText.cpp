#include "corvane/id3v230/MillisecondText.h"

#include "corvane/platform/Numbers.h"

#include <limits>

namespace corvane {

namespace {

constexpr std::uint32_t kHour = 3'600'000, kMinute = 60'000, kSecond = 1'000, kTenth = 100; // milliseconds

std::string twoDigits(std::uint32_t number) { return (number < 10 ? "0" : "") + std::to_string(number); }

// Milliseconds of "mm:ss.f".
std::optional<std::uint32_t> belowAnHour(std::string_view text) {
    constexpr std::size_t kLength = 7;
    if (text.size() != kLength || text[2] != ':' || text[5] != '.') return std::nullopt;
    const auto minutes = parseNumber<std::uint32_t>(text.substr(0, 2));
    const auto seconds = parseNumber<std::uint32_t>(text.substr(3, 2));
    const auto tenths = parseNumber<std::uint32_t>(text.substr(6));
    if (!minutes || !seconds || !tenths || *minutes >= 60 || *seconds >= 60) return std::nullopt;
    return *minutes * kMinute + *seconds * kSecond + *tenths * kTenth;
}

} // namespace

std::string millisecondText(std::uint32_t milliseconds) {
    const std::uint32_t hours = milliseconds / kHour;
    return (hours > 0 ? std::to_string(hours) + ":" : "") + twoDigits(milliseconds % kHour / kMinute) + ":" +
           twoDigits(milliseconds % kMinute / kSecond) + "." + std::to_string(milliseconds % kSecond / kTenth);
}

std::optional<std::uint32_t> parseMillisecondText(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos || text.find(':', colon + 1) == std::string_view::npos)
        return belowAnHour(text);
    const auto hours = parseNumber<std::uint32_t>(text.substr(0, colon));
    const auto rest = belowAnHour(text.substr(colon + 1));
    if (!hours || !rest || *hours == 0 || text.front() == '0') return std::nullopt;
    const std::uint64_t milliseconds = std::uint64_t{*hours} * kHour + *rest;
    if (milliseconds > std::numeric_limits<std::uint32_t>::max()) return std::nullopt;
    return static_cast<std::uint32_t>(milliseconds);
}

} // namespace corvane
