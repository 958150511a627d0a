#include "corvane/platform/Utf16Text.h"

#include "corvane/platform/ByteReader.h"
#include "corvane/platform/Utf.h"

namespace corvane {

// Plain loops over whole units, which compilers make short work of.
std::optional<std::string> asciiOfUtf16(Bytes units, bool bigEndian) {
    const std::size_t count = units.size() / 2;
    const std::size_t lowOffset = bigEndian ? 1 : 0;
    unsigned low = 0, high = 0;
    for (std::size_t i = 0; i < count; ++i) {
        low |= units[2 * i + lowOffset];
        high |= units[2 * i + 1 - lowOffset];
    }
    if (high != 0 || low >= 0x80) return std::nullopt;
    std::string text(count, ' ');
    for (std::size_t i = 0; i < count; ++i) text[i] = static_cast<char>(units[2 * i + lowOffset]);
    return text;
}

std::string decodeUtf16(Bytes units, bool bigEndian) {
    if (auto ascii = asciiOfUtf16(units, bigEndian)) return std::move(*ascii);
    std::u16string text;
    text.reserve(units.size() / 2);
    ByteReader reader(units);
    while (const auto unit = reader.number<2>()) {
        text.push_back(static_cast<char16_t>(bigEndian ? *unit : *unit << 8 | *unit >> 8));
    }
    return utf8FromUtf16(text);
}

} // namespace corvane
