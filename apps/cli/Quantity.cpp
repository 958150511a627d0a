#include "apps/cli/Quantity.h"

#include <fmt/core.h>

#include <array>

namespace corvane::cli {

namespace {

constexpr std::uint64_t kMebibyte = 1024 * 1024;

} // namespace

std::string grouped(std::int64_t number) {
    std::string text = std::to_string(number);
    const std::size_t firstDigit = number < 0 ? 1 : 0;
    for (std::size_t place = text.size(); place > firstDigit + 3;) text.insert(place -= 3, ",");
    return text;
}

std::string byteText(std::uint64_t bytes) {
    const std::string exact = grouped(static_cast<std::int64_t>(bytes)) + (bytes == 1 ? " byte" : " bytes");
    return bytes < kMebibyte ? exact : fmt::format("{} ({})", exact, roundedByteText(bytes));
}

std::string roundedByteText(std::uint64_t bytes) {
    constexpr std::array kUnits{"KiB", "MiB", "GiB", "TiB", "PiB", "EiB"};
    if (bytes < 1024) return fmt::format("{} bytes", bytes);
    auto size = static_cast<double>(bytes) / 1024;
    std::size_t unit = 0;
    // What would be rounded to 1024.0 is 1.0 of the next unit.
    for (; size >= 1023.95 && unit + 1 < kUnits.size(); ++unit) size /= 1024;
    return fmt::format("{:.1f} {}", size, kUnits[unit]);
}

std::string durationText(std::int32_t seconds) {
    const std::int32_t hours = seconds / 3600, minutes = seconds / 60 % 60;
    return hours > 0 ? fmt::format("{}:{:02}:{:02}", hours, minutes, seconds % 60)
                     : fmt::format("{}:{:02}", minutes, seconds % 60);
}

} // namespace corvane::cli
