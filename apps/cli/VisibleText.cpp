#include "apps/cli/VisibleText.h"

#include "corvane/platform/Utf.h"

#include <algorithm>

namespace corvane::cli {

namespace {

constexpr char32_t kPicturesOfControls = 0x2400;
constexpr char32_t kPictureOfDelete = 0x2421;
constexpr char32_t kLineSeparator = 0x2028;
constexpr char32_t kParagraphSeparator = 0x2029;

constexpr bool isAsciiControl(char32_t character) { return character < 0x20 || character == 0x7F; }

constexpr char32_t visible(char32_t character) {
    if (character < 0x20) return kPicturesOfControls + character;
    if (character == 0x7F) return kPictureOfDelete;
    const bool breaksLine = character == kLineSeparator || character == kParagraphSeparator;
    return breaksLine || actsOnTerminal(character) ? kReplacementCharacter : character;
}

constexpr bool isPlain(char character) { return character >= 0x20 && character < 0x7F; }

// Takes one line and its break off the text.
std::u32string takeLine(std::string_view& text) {
    std::u32string line;
    while (!text.empty()) {
        const char32_t character = takeCodePoint(text);
        if (character == '\r' && text.starts_with('\n')) continue;
        if (character == '\r' || character == '\n') return line;
        if (character == kLineSeparator || character == kParagraphSeparator) return line;
        line.push_back(character);
    }
    return line;
}

} // namespace

std::string visibleText(std::string_view text) {
    if (std::all_of(text.begin(), text.end(), isPlain)) return std::string(text);
    std::string shown;
    shown.reserve(text.size());
    while (!text.empty()) appendUtf8(shown, visible(takeCodePoint(text)));
    return shown;
}

std::string withoutControls(std::string_view text) {
    std::string shown;
    shown.reserve(text.size());
    for (const char byte : text) {
        const auto character = static_cast<unsigned char>(byte);
        if (isAsciiControl(character))
            appendUtf8(shown, visible(character));
        else
            shown.push_back(byte);
    }
    return shown;
}

std::string visibleTable(std::string_view text) {
    std::string shown;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        const bool isEnded = end != std::string_view::npos;
        if (isEnded && line.ends_with('\r')) line.remove_suffix(1);
        shown.append(visibleText(line)).append(isEnded ? "\n" : "");
    }
    return shown;
}

std::vector<std::string> visibleLines(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        std::string line;
        for (const char32_t character : takeLine(text)) {
            if (character == '\t')
                line.append("    ");
            else
                appendUtf8(line, visible(character));
        }
        lines.push_back(std::move(line));
    }
    while (!lines.empty() && lines.back().empty()) lines.pop_back();
    return lines;
}

} // namespace corvane::cli
