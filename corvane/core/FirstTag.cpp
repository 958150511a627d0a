#include "corvane/core/FirstTag.h"

#include "corvane/core/ForeignFormat.h"
#include "corvane/id3v230/TagHead.h"
#include "corvane/mpeg/AudioProof.h"
#include "corvane/platform/ByteReader.h"
#include "corvane/platform/FileReader.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace corvane {

namespace {

// ID3v2 at the start: header, body and, in version 2.4, a footer where a flag announces one.
std::optional<std::uint64_t> id3v2Size(Bytes bytes) {
    const auto head = decodeTagHead(bytes);
    if (!head || !head->bodySize) return std::nullopt;
    const bool hasFooter = head->majorVersion >= 4 && (head->flags & TagHead::kFooter) != 0;
    return head->tagSize() + (hasFooter ? TagHead::kByteCount : 0);
}

// APEv2 at the start: "APETAGEX", version, then the bytes after this header of 32 bytes, little-endian.
std::optional<std::uint64_t> apeSize(Bytes bytes) {
    constexpr std::string_view kPreamble = "APETAGEX";
    constexpr std::uint64_t kHeaderSize = 32;
    ByteReader reader(bytes);
    const auto preamble = reader.take(kPreamble.size());
    if (!preamble || !std::ranges::equal(*preamble, kPreamble) || !reader.take(4)) return std::nullopt;
    const auto size = reader.take(4);
    if (!size) return std::nullopt;
    std::uint64_t number = 0;
    for (auto byte = size->rbegin(); byte != size->rend(); ++byte) number = number << 8 | *byte;
    return kHeaderSize + number;
}

// Where the tags at the start end.
std::uint64_t leadingTagsEnd(FileReader& file) {
    constexpr std::size_t kLongestHeader = 16; // as far as the sizes go
    constexpr int kMostTags = 16;
    std::uint64_t offset = 0;
    for (int tag = 0; tag < kMostTags; ++tag) {
        const Bytes bytes = file.view(offset, kLongestHeader);
        auto size = id3v2Size(bytes);
        if (!size) size = apeSize(bytes);
        if (!size) break;
        offset += *size;
    }
    return offset;
}

std::string foreignText(std::string_view format) {
    return std::string("This is ").append(format).append(", not an MPEG audio file");
}

} // namespace

std::string obstacleToFirstTag(FileReader& file) {
    if (file.size() == 0) return "The file is empty";
    const std::uint64_t begin = leadingTagsEnd(file);
    for (const std::uint64_t offset : {std::uint64_t{0}, begin}) {
        const std::string_view format = foreignFormat(file.view(offset, kForeignFormatBytes));
        if (!format.empty()) return foreignText(format);
    }
    return findProvenFrame(file, begin) ? std::string() : std::string("The file holds no MPEG audio frame");
}

std::string obstacleToFirstTag(const std::string& path) {
    FileReader file(path);
    return obstacleToFirstTag(file);
}

} // namespace corvane
