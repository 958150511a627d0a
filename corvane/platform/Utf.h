// UTF-8 text, the only text of the library's interface, and its ways from and to Unicode code points and UTF-16.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace corvane {

inline constexpr char32_t kReplacementCharacter = 0xFFFD;

// Appends one code point (0 to 0x10FFFF) as UTF-8; a surrogate or a larger number is written as U+FFFD.
void appendUtf8(std::string& text, char32_t codePoint);

// Takes the first code point off `rest`, which must not be empty. Each maximal part of a malformed sequence gives one
// U+FFFD, as the Unicode standard recommends (section 3.9).
char32_t takeCodePoint(std::string_view& rest);

// Whether the text is well-formed UTF-8.
bool isUtf8(std::string_view text);

// The text with every malformed sequence replaced by U+FFFD.
std::string repairedUtf8(std::string_view text);

// Number of characters (code points).
std::size_t characterCount(std::string_view text);

// UTF-16 code units as UTF-8. A unit that is half of no pair becomes U+FFFD.
std::string utf8FromUtf16(std::u16string_view units);

} // namespace corvane
