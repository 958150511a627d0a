#include "apps/cli/DisplayWidth.h"

#include "corvane/platform/Utf.h"

#include <algorithm>
#include <array>

namespace corvane::cli {

namespace {

struct CharacterRange {
    char32_t first, last; // both included
};

// The blocks of the Unicode standard's East Asian Width property "W" and "F" that occur in titles.
constexpr std::array kWide{
    CharacterRange{0x1100, 0x115F},   CharacterRange{0x231A, 0x231B},   CharacterRange{0x23E9, 0x23EC},
    CharacterRange{0x2614, 0x2615},   CharacterRange{0x2648, 0x2653},   CharacterRange{0x26BD, 0x26BE},
    CharacterRange{0x2753, 0x2755},   CharacterRange{0x2795, 0x2797},   CharacterRange{0x2B1B, 0x2B1C},
    CharacterRange{0x2E80, 0x3029},   CharacterRange{0x302E, 0x303E},   CharacterRange{0x3041, 0x3098},
    CharacterRange{0x309B, 0x3247},   CharacterRange{0x3250, 0x4DBF},   CharacterRange{0x4E00, 0xA4CF},
    CharacterRange{0xA960, 0xA97F},   CharacterRange{0xAC00, 0xD7A3},   CharacterRange{0xF900, 0xFAFF},
    CharacterRange{0xFE10, 0xFE19},   CharacterRange{0xFE30, 0xFE6F},   CharacterRange{0xFF01, 0xFF60},
    CharacterRange{0xFFE0, 0xFFE6},   CharacterRange{0x17000, 0x18CFF}, CharacterRange{0x1B000, 0x1B2FF},
    CharacterRange{0x1F300, 0x1F320}, CharacterRange{0x1F32D, 0x1F335}, CharacterRange{0x1F337, 0x1F37C},
    CharacterRange{0x1F37E, 0x1F393}, CharacterRange{0x1F3A0, 0x1F3CA}, CharacterRange{0x1F3E0, 0x1F3F0},
    CharacterRange{0x1F3F8, 0x1F43E}, CharacterRange{0x1F442, 0x1F4FC}, CharacterRange{0x1F4FF, 0x1F53D},
    CharacterRange{0x1F5FB, 0x1F64F}, CharacterRange{0x1F680, 0x1F6C5}, CharacterRange{0x1F90C, 0x1F9FF},
    CharacterRange{0x1FA70, 0x1FAFF}, CharacterRange{0x20000, 0x3FFFD}};

// Marks that stand over, under or around the character before them, and characters without a look of their own.
constexpr std::array kZero{
    CharacterRange{0x0300, 0x036F},  CharacterRange{0x0483, 0x0489}, CharacterRange{0x0591, 0x05BD},
    CharacterRange{0x05C1, 0x05C2},  CharacterRange{0x0610, 0x061A}, CharacterRange{0x064B, 0x065F},
    CharacterRange{0x06D6, 0x06DC},  CharacterRange{0x093C, 0x093C}, CharacterRange{0x0941, 0x0948},
    CharacterRange{0x094D, 0x094D},  CharacterRange{0x0E31, 0x0E31}, CharacterRange{0x0E34, 0x0E3A},
    CharacterRange{0x0E47, 0x0E4E},  CharacterRange{0x1160, 0x11FF}, CharacterRange{0x1AB0, 0x1AFF},
    CharacterRange{0x1DC0, 0x1DFF},  CharacterRange{0x200B, 0x200D}, CharacterRange{0x2060, 0x2064},
    CharacterRange{0x20D0, 0x20FF},  CharacterRange{0x302A, 0x302D}, CharacterRange{0x3099, 0x309A},
    CharacterRange{0xFE00, 0xFE0F},  CharacterRange{0xFE20, 0xFE2F}, CharacterRange{0xFEFF, 0xFEFF},
    CharacterRange{0xE0100, 0xE01EF}};

constexpr bool isSorted(const auto& ranges) {
    char32_t next = 0;
    for (const CharacterRange& range : ranges) {
        if (range.first < next || range.last < range.first) return false;
        next = range.last + 1;
    }
    return true;
}
static_assert(isSorted(kWide) && isSorted(kZero));

constexpr bool contains(const auto& ranges, char32_t character) {
    const auto behind =
        std::upper_bound(ranges.begin(), ranges.end(), character,
                         [](char32_t sought, const CharacterRange& range) { return sought < range.first; });
    return behind != ranges.begin() && character <= (behind - 1)->last;
}

constexpr std::size_t columnsOf(char32_t character) {
    if (character < 0x0300 || contains(kZero, character)) return character < 0x0300 ? 1 : 0;
    return contains(kWide, character) ? 2 : 1;
}

// Bytes of the longest beginning of `text` that fits: at least one character, so that every call gets on.
std::size_t fittingBytes(std::string_view text, std::size_t width) {
    std::string_view rest = text;
    std::size_t columns = 0;
    while (!rest.empty()) {
        const std::size_t taken = text.size() - rest.size();
        columns += columnsOf(takeCodePoint(rest));
        if (columns > width && taken > 0) return taken;
    }
    return text.size();
}

} // namespace

std::size_t displayWidth(std::string_view text) {
    std::size_t columns = 0;
    while (!text.empty()) columns += columnsOf(takeCodePoint(text));
    return columns;
}

std::vector<std::string> wrapped(std::string_view text, std::size_t width) {
    std::vector<std::string> pieces;
    do {
        std::size_t taken = fittingBytes(text, width);
        std::size_t next = taken;
        if (taken < text.size()) {
            const std::size_t blank = text.rfind(' ', taken);
            if (blank != std::string_view::npos && blank > 0) {
                taken = blank;
                next = blank + 1;
            }
        }
        pieces.emplace_back(text.substr(0, taken));
        text.remove_prefix(next);
    } while (!text.empty());
    return pieces;
}

} // namespace corvane::cli
