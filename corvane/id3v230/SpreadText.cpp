#include "corvane/id3v230/SpreadText.h"

#include "corvane/platform/CodePage.h"
#include "corvane/platform/Utf.h"

#include <optional>

namespace corvane {

namespace {

constexpr char kBlank = ' ';

// The characters that have a blank behind them, if all have; `take` takes the next one off a text that is not empty.
template <class Take>
std::optional<std::string> withoutBlanks(std::string_view text, Take&& take) {
    std::string characters;
    while (!text.empty()) {
        characters.append(take(text));
        if (!text.starts_with(kBlank)) return std::nullopt;
        text.remove_prefix(1);
    }
    return characters;
}

std::string_view takeByte(std::string_view& text) {
    const std::string_view byte = text.substr(0, 1);
    text.remove_prefix(1);
    return byte;
}

std::string_view takeCharacter(std::string_view& text) {
    const std::string_view before = text;
    takeCodePoint(text);
    return before.substr(0, before.size() - text.size());
}

Bytes bytesOf(std::string_view text) { return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}; }

} // namespace

ByteArray spreadText(std::string_view text) {
    const auto spread = [](std::string_view characters, auto take) {
        ByteArray bytes;
        while (!characters.empty()) {
            const std::string_view character = take(characters);
            bytes.insert(bytes.end(), character.begin(), character.end());
            bytes.push_back(kBlank);
        }
        return bytes;
    };
    const CodePageText codePage = encodeCodePage(text);
    if (codePage.replacedCount > 0) return spread(text, takeCharacter);
    const std::string characters(codePage.bytes.begin(), codePage.bytes.end());
    return spread(characters, takeByte);
}

std::string unspreadText(Bytes data) {
    const std::string text(data.begin(), data.end());
    if (const auto bytes = withoutBlanks(text, takeByte)) return decodeCodePage(bytesOf(*bytes));
    const auto characters = isUtf8(text) ? withoutBlanks(text, takeCharacter) : std::nullopt;
    return characters ? *characters : decodeCodePage(data);
}

} // namespace corvane
