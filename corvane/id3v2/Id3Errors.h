// What the error numbers of id3lib say.
#pragma once

#include <cstdint>
#include <string_view>

namespace corvane {

// The text of a number of id3lib's error enumeration, 0 to 13; "Unknown error" for any other.
std::string_view id3ErrorText(std::int32_t number);

} // namespace corvane
