#include "corvane/id3v230/UrlText.h"

#include "corvane/id3v230/FrameTextEncoding.h"
#include "corvane/platform/Utf.h"

#include <cstdint>

namespace corvane {

namespace {

void appendEscaped(std::string& url, char byte) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    const auto value = static_cast<std::uint8_t>(byte);
    url.push_back('%');
    url.push_back(kDigits[value >> 4]);
    url.push_back(kDigits[value & 0xF]);
}

} // namespace

std::string escapedUrl(std::string_view url) {
    std::string escaped;
    while (!url.empty()) {
        std::string character;
        appendUtf8(character, takeCodePoint(url));
        if (encodingFor(character) == TextEncoding::CodePage) {
            escaped.append(character);
        } else {
            for (const char byte : character) appendEscaped(escaped, byte);
        }
    }
    return escaped;
}

} // namespace corvane
