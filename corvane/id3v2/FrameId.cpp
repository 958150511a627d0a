#include "corvane/id3v2/FrameId.h"

#include "corvane/platform/Utf.h"

namespace corvane {

std::optional<FrameId> FrameId::named(std::string_view text) {
    std::uint32_t code = 0;
    std::size_t count = 0;
    for (; !text.empty(); ++count) {
        const char32_t character = takeCodePoint(text);
        if (count == 4 || character > 0xFF || (count == 0 && character == 0)) return std::nullopt;
        code = code << 8 | static_cast<std::uint32_t>(character);
    }
    return count < 3 ? std::nullopt : std::optional(FrameId(code));
}

std::string FrameId::text() const {
    std::string text;
    for (std::size_t left = length(); left > 0; --left) appendUtf8(text, code >> 8 * (left - 1) & 0xFF);
    return text;
}

} // namespace corvane
