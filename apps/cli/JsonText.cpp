#include "apps/cli/JsonText.h"

#include "corvane/platform/Utf.h"

#include "apps/cli/VisibleText.h"

#include <array>

namespace corvane::cli {

namespace {

// ASCII that stands for itself.
constexpr auto kPlain = [] {
    std::array<bool, 256> plain{};
    for (std::size_t character = 0x20; character < 0x7F; ++character) plain[character] = true;
    plain['"'] = plain['\\'] = false;
    return plain;
}();

bool needsNoEscape(char character) { return kPlain[static_cast<unsigned char>(character)]; }

// The escapes that have a letter of their own; nothing for other characters.
constexpr const char* shortEscapeOf(char32_t character) {
    switch (character) {
    case '"':
        return "\\\"";
    case '\\':
        return "\\\\";
    case '\n':
        return "\\n";
    case '\r':
        return "\\r";
    case '\t':
        return "\\t";
    default:
        return nullptr;
    }
}

void appendEscape(std::string& line, char32_t character) {
    constexpr char kDigits[] = "0123456789abcdef";
    line.append("\\u");
    for (unsigned shift = 16; shift > 0;) line.push_back(kDigits[character >> (shift -= 4) & 0xF]);
}

void appendCharacter(std::string& line, char32_t character) {
    if (const char* escape = shortEscapeOf(character)) {
        line.append(escape);
    } else if (actsOnTerminal(character)) {
        appendEscape(line, character);
    } else {
        appendUtf8(line, character);
    }
}

} // namespace

void appendJsonString(std::string& line, std::string_view text) {
    line.push_back('"');
    while (!text.empty()) {
        std::size_t plain = 0;
        while (plain < text.size() && needsNoEscape(text[plain])) ++plain;
        line.append(text.substr(0, plain));
        text.remove_prefix(plain);
        if (!text.empty()) appendCharacter(line, takeCodePoint(text));
    }
    line.push_back('"');
}

} // namespace corvane::cli
