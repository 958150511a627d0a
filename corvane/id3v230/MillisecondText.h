// A point in time as text: "mm:ss.f", with "h:" in front from the first hour on; f are tenths of a second. 83,456 ms is
// "01:23.4", 3,723,456 ms is "1:02:03.4".
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

// What is less than a tenth of a second is cut.
std::string millisecondText(std::uint32_t milliseconds);

// The time that a text of exactly this form tells; nothing for any other text.
std::optional<std::uint32_t> parseMillisecondText(std::string_view text);

} // namespace corvane
