#include "corvane/lyrics/LyricsFormat.h"

#include "corvane/platform/ByteRange.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace corvane {

namespace {

constexpr ByteRange kSize{0, 6}, kMarker{6, 9};
static_assert(fills(kLyricsTrailerSize, kSize, kMarker));
static_assert(std::string_view("LYRICSBEGIN").size() == kLyricsBeginSize);

constexpr std::size_t kIdSize = 3;
constexpr std::size_t kLengthSize = 5; // digits

struct MarkerRow {
    std::string_view marker;
    ELyricsVersionConstants version;
};
constexpr std::array kMarkers{MarkerRow{"LYRICSEND", ELyricsVersionConstants::lvcV100},
                              MarkerRow{"LYRICS200", ELyricsVersionConstants::lvcV200}};

// The number that at most 9 ASCII digits write; nothing for other bytes and for none.
std::optional<std::int32_t> digits(Bytes text) {
    std::int32_t number = 0;
    for (const std::uint8_t digit : text) {
        if (digit < '0' || digit > '9') return std::nullopt;
        number = number * 10 + (digit - '0');
    }
    return text.empty() ? std::nullopt : std::optional(number);
}

} // namespace

ELyricsVersionConstants lyricsVersionOf(Bytes trailer) {
    if (trailer.size() != kLyricsTrailerSize) return ELyricsVersionConstants::lvcUnknown;
    for (const auto& [marker, version] : kMarkers) {
        if (std::ranges::equal(fieldOf(trailer, kMarker), marker)) return version;
    }
    return ELyricsVersionConstants::lvcUnknown;
}

std::optional<std::int32_t> lyricsBodySize(Bytes trailer) {
    switch (lyricsVersionOf(trailer)) {
    case ELyricsVersionConstants::lvcV100:
        return kLyricsV100Size;
    case ELyricsVersionConstants::lvcV200:
        return digits(fieldOf(trailer, kSize));
    default:
        return std::nullopt;
    }
}

std::optional<LyricsFieldBytes> takeLyricsField(ByteReader& body) {
    const auto id = body.take(kIdSize);
    if (!id) return std::nullopt;
    const auto length = body.take(std::min(kLengthSize, body.left()));
    const auto size = digits(length.value_or(Bytes{}));
    if (!size) return std::nullopt;
    const auto data = body.take(std::min(static_cast<std::size_t>(*size), body.left()));
    return LyricsFieldBytes{*id, *size, data.value_or(Bytes{})};
}

} // namespace corvane
