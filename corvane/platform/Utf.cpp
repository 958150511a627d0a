#include "corvane/platform/Utf.h"

#include <cstdint>

namespace corvane {

namespace {

constexpr bool isSurrogate(char32_t codePoint) { return codePoint >= 0xD800 && codePoint <= 0xDFFF; }
constexpr bool isHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
constexpr bool isLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

// What a lead byte announces: how many bytes follow it and which values the first of them may have.
struct Lead {
    std::size_t continuationCount;
    std::uint8_t firstLow, firstHigh;
    char32_t bits;
};

constexpr Lead leadOf(std::uint8_t byte) {
    if (byte >= 0xC2 && byte <= 0xDF) return {1, 0x80, 0xBF, byte & 0x1Fu};
    if (byte == 0xE0) return {2, 0xA0, 0xBF, 0};
    if (byte == 0xED) return {2, 0x80, 0x9F, 0xD};
    if (byte >= 0xE1 && byte <= 0xEF) return {2, 0x80, 0xBF, byte & 0xFu};
    if (byte == 0xF0) return {3, 0x90, 0xBF, 0};
    if (byte >= 0xF1 && byte <= 0xF3) return {3, 0x80, 0xBF, byte & 0x7u};
    if (byte == 0xF4) return {3, 0x80, 0x8F, 4};
    return {0, 0, 0, kReplacementCharacter};
}

} // namespace

void appendUtf8(std::string& text, char32_t codePoint) {
    const auto put = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    if (isSurrogate(codePoint) || codePoint > 0x10FFFF) codePoint = kReplacementCharacter;
    if (codePoint < 0x80) {
        put(codePoint);
    } else if (codePoint < 0x800) {
        put(0xC0 | codePoint >> 6);
        put(0x80 | (codePoint & 0x3F));
    } else if (codePoint < 0x10000) {
        put(0xE0 | codePoint >> 12);
        put(0x80 | (codePoint >> 6 & 0x3F));
        put(0x80 | (codePoint & 0x3F));
    } else {
        put(0xF0 | codePoint >> 18);
        put(0x80 | (codePoint >> 12 & 0x3F));
        put(0x80 | (codePoint >> 6 & 0x3F));
        put(0x80 | (codePoint & 0x3F));
    }
}

char32_t takeCodePoint(std::string_view& rest) {
    const auto first = static_cast<std::uint8_t>(rest.front());
    rest.remove_prefix(1);
    if (first < 0x80) return first;
    const Lead lead = leadOf(first);
    char32_t value = lead.bits;
    std::uint8_t low = lead.firstLow;
    std::uint8_t high = lead.firstHigh;
    for (std::size_t i = 0; i < lead.continuationCount; ++i) {
        if (rest.empty()) return kReplacementCharacter;
        const auto next = static_cast<std::uint8_t>(rest.front());
        if (next < low || next > high) return kReplacementCharacter;
        rest.remove_prefix(1);
        value = value << 6 | (next & 0x3Fu);
        low = 0x80;
        high = 0xBF;
    }
    return value;
}

bool isUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::string_view before = text;
        const bool wellFormed = takeCodePoint(text) != kReplacementCharacter || before.starts_with("\xEF\xBF\xBD");
        if (!wellFormed) return false;
    }
    return true;
}

std::string repairedUtf8(std::string_view text) {
    std::string repaired;
    repaired.reserve(text.size());
    while (!text.empty()) appendUtf8(repaired, takeCodePoint(text));
    return repaired;
}

std::size_t characterCount(std::string_view text) {
    std::size_t count = 0;
    while (!text.empty()) {
        takeCodePoint(text);
        ++count;
    }
    return count;
}

std::string utf8FromUtf16(std::u16string_view units) {
    std::string text;
    text.reserve(units.size());
    while (!units.empty()) {
        const char16_t unit = units.front();
        units.remove_prefix(1);
        if (isHighSurrogate(unit) && !units.empty() && isLowSurrogate(units.front())) {
            appendUtf8(text, 0x10000u + ((unit & 0x3FFu) << 10) + (units.front() & 0x3FFu));
            units.remove_prefix(1);
        } else {
            appendUtf8(text, unit);
        }
    }
    return text;
}

} // namespace corvane
