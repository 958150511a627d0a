#include "corvane/id3v230/TrailingTags.h"

#include "corvane/id3v1/Id3v1Record.h"
#include "corvane/lyrics/LyricsFormat.h"
#include "corvane/platform/ByteReader.h"
#include "corvane/platform/FileReader.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace corvane {

namespace {

using enum ID3_TagType;

constexpr std::string_view kLyricsBegin = "LYRICSBEGIN";
constexpr std::string_view kLyricsEnd = "LYRICSEND";

constexpr std::uint64_t kFooterSize = 48, kOffsetsSize = 20, kSectionSize = 256;
constexpr std::string_view kFooterStart = "Brava Software Inc.             ";
constexpr std::string_view kSectionStart = "18273645";
constexpr std::array<std::uint64_t, 4> kMetadataSizes{7868, 7936, 8004, 8132};
constexpr std::uint64_t kSmallestFront = 4 + 4 + 4; // image extension, size of the image, unused

// A tag that ends at some offset; of kind ID3TT_NONE when none does.
struct TagAtEnd {
    ID3_TagType kind = ID3TT_NONE;
    FoundTrailingTag found;
};

bool standsAt(FileReader& file, std::uint64_t offset, std::string_view text) {
    const Bytes bytes = file.view(offset, text.size());
    return std::ranges::equal(bytes, text);
}

// The same in front of `end`.
bool standsBefore(FileReader& file, std::uint64_t end, std::uint64_t distance, std::string_view text) {
    return end >= distance && standsAt(file, end - distance, text);
}

FoundTrailingTag found(std::uint64_t begin, std::uint64_t end) { return {TrailingTag{begin, end - begin}, false}; }

// The lyrics are at most 5100 bytes, and their size is told nowhere.
FoundTrailingTag lyricsV100EndingAt(FileReader& file, std::uint64_t end) {
    const std::uint64_t most = kLyricsBegin.size() + kLyricsV100Size + kLyricsEnd.size();
    const std::uint64_t begin = end - std::min(end, most);
    const Bytes bytes = file.view(begin, static_cast<std::size_t>(end - begin - kLyricsEnd.size()));
    const auto last = std::find_end(bytes.begin(), bytes.end(), kLyricsBegin.begin(), kLyricsBegin.end());
    if (last == bytes.end()) return {std::nullopt, true};
    return found(begin + static_cast<std::uint64_t>(last - bytes.begin()), end);
}

FoundTrailingTag lyricsV200EndingAt(FileReader& file, std::uint64_t end, Bytes trailer) {
    const auto bodySize = lyricsBodySize(trailer);
    if (!bodySize) return {std::nullopt, true};
    const std::uint64_t size = kLyricsTrailerSize + static_cast<std::uint64_t>(*bodySize);
    const bool isWhole = standsBefore(file, end, size, kLyricsBegin);
    return isWhole ? found(end - size, end) : FoundTrailingTag{std::nullopt, true};
}

TagAtEnd lyricsEndingAt(FileReader& file, std::uint64_t end) {
    if (end < kLyricsTrailerSize) return {};
    const Bytes trailer = file.view(end - kLyricsTrailerSize, kLyricsTrailerSize);
    switch (lyricsVersionOf(trailer)) {
    case ELyricsVersionConstants::lvcV100:
        return {ID3TT_LYRICS3, lyricsV100EndingAt(file, end)};
    case ELyricsVersionConstants::lvcV200:
        return {ID3TT_LYRICS3V2, lyricsV200EndingAt(file, end, trailer)};
    default:
        return {};
    }
}

std::uint32_t littleEndian(Bytes bytes) {
    std::uint32_t number = 0;
    for (std::size_t i = bytes.size(); i-- > 0;) number = number << 8 | bytes[i];
    return number;
}

// Bytes from the image extension to the version info; nothing when the numbers make no sense.
std::optional<std::uint64_t> musicMatchFront(FileReader& file, std::uint64_t offsets) {
    ByteReader numbers(file.view(offsets, kOffsetsSize));
    const auto extension = numbers.take(4);
    const auto others = numbers.take(8); // image, unused
    const auto version = numbers.take(4);
    if (!extension || !others || !version) return std::nullopt;
    const std::uint32_t begin = littleEndian(*extension);
    const std::uint32_t end = littleEndian(*version);
    return end > begin && end - begin >= kSmallestFront ? std::optional(std::uint64_t{end - begin}) : std::nullopt;
}

FoundTrailingTag musicMatchEndingAt(FileReader& file, std::uint64_t end) {
    constexpr FoundTrailingTag kDamaged{std::nullopt, true};
    if (end < kFooterSize + kOffsetsSize) return kDamaged;
    const std::uint64_t offsets = end - kFooterSize - kOffsetsSize;
    const auto isBehindVersion = [&](std::uint64_t metadataSize) {
        return standsBefore(file, offsets, metadataSize + kSectionSize, kSectionStart);
    };
    const auto metadataSize = std::ranges::find_if(kMetadataSizes, isBehindVersion);
    const auto front = musicMatchFront(file, offsets);
    if (metadataSize == kMetadataSizes.end() || !front) return kDamaged;
    const std::uint64_t version = offsets - *metadataSize - kSectionSize;
    if (*front > version) return kDamaged;
    const std::uint64_t begin = version - *front;
    const bool hasHeader = standsBefore(file, begin, kSectionSize, kSectionStart);
    return found(hasHeader ? begin - kSectionSize : begin, end);
}

TagAtEnd tagEndingAt(FileReader& file, std::uint64_t end) {
    const bool isLast = end == file.size();
    if (isLast && standsBefore(file, end, kId3v1RecordSize, "TAG"))
        return {ID3TT_ID3V1, found(end - kId3v1RecordSize, end)};
    if (standsBefore(file, end, kFooterSize, kFooterStart)) return {ID3TT_MUSICMATCH, musicMatchEndingAt(file, end)};
    return lyricsEndingAt(file, end);
}

} // namespace

FoundTrailingTag findTrailingTag(FileReader& file, ID3_TagType kind) {
    std::uint64_t end = file.size();
    for (;;) {
        const TagAtEnd last = tagEndingAt(file, end);
        if (last.kind == kind) return last.found;
        if (!last.found.tag) return {};
        end = last.found.tag->offset;
    }
}

} // namespace corvane
