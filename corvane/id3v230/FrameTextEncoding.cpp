#include "corvane/id3v230/FrameTextEncoding.h"

#include "corvane/platform/Utf.h"

namespace corvane {

namespace {

constexpr bool isLatin1(char32_t character) { return character < 0x80 || (character >= 0xA0 && character <= 0xFF); }

void appendUnit(ByteArray& bytes, char16_t unit) {
    bytes.push_back(static_cast<std::uint8_t>(unit & 0xFF));
    bytes.push_back(static_cast<std::uint8_t>(unit >> 8));
}

} // namespace

TextEncoding encodingFor(std::string_view text) {
    while (!text.empty()) {
        if (!isLatin1(takeCodePoint(text))) return TextEncoding::Utf16;
    }
    return TextEncoding::CodePage;
}

std::u16string utf16Of(std::string_view text) {
    std::u16string units;
    units.reserve(text.size());
    while (!text.empty()) {
        const char32_t character = takeCodePoint(text);
        if (character < 0x10000) {
            units.push_back(static_cast<char16_t>(character));
        } else {
            units.push_back(static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10)));
            units.push_back(static_cast<char16_t>(0xDC00 + (character & 0x3FF)));
        }
    }
    return units;
}

std::string latin1Of(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    while (!text.empty()) bytes.push_back(static_cast<char>(takeCodePoint(text)));
    return bytes;
}

void appendString(ByteArray& bytes, std::string_view text, TextEncoding encoding) {
    if (encoding == TextEncoding::CodePage) {
        const std::string characters = latin1Of(text);
        bytes.insert(bytes.end(), characters.begin(), characters.end());
        return;
    }
    constexpr char16_t kByteOrderMark = 0xFEFF;
    appendUnit(bytes, kByteOrderMark);
    for (const char16_t unit : utf16Of(text)) appendUnit(bytes, unit);
}

void appendEnd(ByteArray& bytes, TextEncoding encoding) {
    bytes.insert(bytes.end(), encoding == TextEncoding::CodePage ? 1 : 2, 0);
}

void appendValues(ByteArray& bytes, std::string_view text, TextEncoding encoding) {
    for (;;) {
        const std::size_t end = text.find('\0');
        appendString(bytes, text.substr(0, end), encoding);
        if (end == std::string_view::npos) return;
        appendEnd(bytes, encoding);
        text.remove_prefix(end + 1);
    }
}

} // namespace corvane
