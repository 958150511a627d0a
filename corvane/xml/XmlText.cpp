#include "corvane/xml/XmlText.h"

#include "corvane/platform/Utf.h"

#include <algorithm>

namespace corvane {

namespace {

constexpr bool isXmlCharacter(char32_t character) {
    if (character < 0x20) return character == '\t' || character == '\n' || character == '\r';
    return character <= 0xFFFD || character >= 0x10000;
}

constexpr bool isPlain(char character) { return character >= 0x20 && character < 0x7F; }

constexpr char kBase64Digits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

} // namespace

std::string xmlCharacters(std::string_view text) {
    if (std::all_of(text.begin(), text.end(), isPlain)) return std::string(text);
    std::string allowed;
    allowed.reserve(text.size());
    while (!text.empty()) {
        const char32_t character = takeCodePoint(text);
        appendUtf8(allowed, isXmlCharacter(character) ? character : kReplacementCharacter);
    }
    return allowed;
}

std::string latin1Document(std::string_view document) {
    std::string bytes;
    bytes.reserve(document.size());
    while (!document.empty()) {
        const char32_t character = takeCodePoint(document);
        if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
            bytes.push_back(static_cast<char>(character));
        } else {
            bytes.append("&#").append(std::to_string(static_cast<std::uint32_t>(character))).push_back(';');
        }
    }
    return bytes;
}

std::string base64(Bytes bytes) {
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    while (!bytes.empty()) {
        const std::size_t taken = std::min<std::size_t>(3, bytes.size());
        std::uint32_t group = 0;
        for (std::size_t i = 0; i < 3; ++i) group = group << 8 | (i < taken ? bytes[i] : 0u);
        for (std::size_t digit = 0; digit < 4; ++digit) {
            text.push_back(digit <= taken ? kBase64Digits[group >> (18 - 6 * digit) & 0x3F] : '=');
        }
        bytes = bytes.subspan(taken);
    }
    return text;
}

} // namespace corvane
