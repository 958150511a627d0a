// The number that a text begins with.
#pragma once

#include <cstdint>
#include <string_view>

namespace corvane {

// The decimal number at the start of a text, behind blanks and one sign, up to the first character that is no digit; 0
// when there is none. Fails with a RuntimeFailure (Overflow) when it does not fit 16 bits.
std::int16_t leadingNumber(std::string_view text, const char* source);

} // namespace corvane
