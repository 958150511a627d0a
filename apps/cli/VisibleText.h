// Text from files on its way to a terminal. Nothing that a tag holds may move the cursor, change colours or turn the
// reading direction around: characters that would are shown as characters that do not.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvane::cli {

// Whether a character does something to a terminal instead of being shown: control characters, C1 controls and DEL
// included, and the marks that turn the reading direction of what follows (Unicode Bidirectional Algorithm, section 2).
constexpr bool actsOnTerminal(char32_t character) {
    return character < 0x20 || (character >= 0x7F && character < 0xA0) ||
           (character >= 0x202A && character <= 0x202E) || (character >= 0x2066 && character <= 0x2069) ||
           character == 0x200E || character == 0x200F || character == 0x061C;
}

// One line of well-formed text: control characters as their pictures (U+2400 ff.), C1 controls, direction controls and
// malformed bytes as U+FFFD.
std::string visibleText(std::string_view text);

// The bytes as they are, but for ASCII control characters, which become their pictures.
std::string withoutControls(std::string_view text);

// As visibleText, but LF and CR LF break lines, both as LF.
std::string visibleTable(std::string_view text);

// The lines of a text that breaks lines with LF, CR LF, CR, U+2028 or U+2029; each made visible, tabs as four blanks.
// Line breaks at the end make no line.
std::vector<std::string> visibleLines(std::string_view text);

} // namespace corvane::cli
