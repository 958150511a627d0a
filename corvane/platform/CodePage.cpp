#include "corvane/platform/CodePage.h"

#include "corvane/platform/Utf.h"

#include <algorithm>
#include <array>

namespace corvane {

namespace {

// The characters of the bytes 80 to 9F; all other bytes are their own code.
constexpr std::size_t kFirstSpecial = 0x80;
constexpr auto kSpecials =
    std::to_array<char16_t>({0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
                             0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
                             0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178});
static_assert(kSpecials.size() == 0x20);

constexpr char32_t characterOf(std::uint8_t byte) {
    const std::size_t special = byte - kFirstSpecial;
    return special < kSpecials.size() ? kSpecials[special] : byte;
}

} // namespace

std::string decodeCodePage(Bytes bytes) {
    unsigned all = 0;
    for (const std::uint8_t byte : bytes) all |= byte;
    if (all < 0x80) return {bytes.begin(), bytes.end()}; // ASCII, as most texts are
    std::string text;
    text.reserve(bytes.size());
    for (const std::uint8_t byte : bytes) {
        if (byte < 0x80) {
            text.push_back(static_cast<char>(byte));
        } else {
            appendUtf8(text, characterOf(byte));
        }
    }
    return text;
}

std::optional<std::uint8_t> codePageByte(char32_t character) {
    const auto special = std::find(kSpecials.begin(), kSpecials.end(), character);
    if (special != kSpecials.end()) {
        return static_cast<std::uint8_t>(kFirstSpecial + static_cast<std::size_t>(special - kSpecials.begin()));
    }
    const bool ownCode = character < kFirstSpecial || (character >= 0xA0 && character <= 0xFF);
    return ownCode ? std::optional(static_cast<std::uint8_t>(character)) : std::nullopt;
}

CodePageText encodeCodePage(std::string_view text) {
    CodePageText encoded;
    encoded.bytes.reserve(text.size());
    while (!text.empty()) {
        const auto byte = codePageByte(takeCodePoint(text));
        if (!byte) ++encoded.replacedCount;
        encoded.bytes.push_back(byte.value_or('?'));
    }
    return encoded;
}

} // namespace corvane
