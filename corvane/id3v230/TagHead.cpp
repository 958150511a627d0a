#include "corvane/id3v230/TagHead.h"

#include "corvane/platform/ByteReader.h"

#include <algorithm>
#include <string_view>

namespace corvane {

namespace {

constexpr std::string_view kIdentifier = "ID3";
constexpr std::uint8_t kWrittenVersion = 3;

std::optional<std::uint32_t> synchsafeNumber(Bytes bytes) {
    std::uint32_t number = 0;
    for (const std::uint8_t byte : bytes) {
        if (byte >= 0x80) return std::nullopt;
        number = number << 7 | byte;
    }
    return number;
}

} // namespace

std::optional<TagHead> decodeTagHead(Bytes bytes) {
    ByteReader reader(bytes);
    const auto identifier = reader.take(kIdentifier.size());
    const auto majorVersion = reader.number<1>();
    const auto revision = reader.number<1>();
    const auto flags = reader.number<1>();
    const auto size = reader.take(4);
    if (!size || !std::ranges::equal(*identifier, kIdentifier)) return std::nullopt;
    return TagHead{*majorVersion, *revision, static_cast<std::uint8_t>(*flags), synchsafeNumber(*size)};
}

std::array<std::uint8_t, TagHead::kByteCount> encodedTagHead(std::uint8_t flags, std::uint32_t bodySize) {
    std::array<std::uint8_t, TagHead::kByteCount> bytes{'I', 'D', '3', kWrittenVersion, 0, flags};
    for (unsigned i = 0; i < 4; ++i) bytes[6 + i] = bodySize >> (21 - 7 * i) & 0x7F;
    return bytes;
}

} // namespace corvane
