#include "corvane/mpeg/XingHeader.h"

#include "corvane/platform/ByteReader.h"

#include <algorithm>
#include <string_view>

namespace corvane {

namespace {

constexpr std::string_view kMarker = "Xing";
constexpr std::size_t kRequiredBytes = 14;

bool isMarker(Bytes bytes) {
    return std::equal(bytes.begin(), bytes.end(), kMarker.begin(), kMarker.end(),
                      [](std::uint8_t byte, char character) { return byte == static_cast<std::uint8_t>(character); });
}

// The next 4 bytes as a big-endian number, those past the end counted as 0.
std::uint32_t numberPastEnd(ByteReader& reader) {
    std::uint32_t value = 0;
    for (int i = 0; i < 4; ++i) value = value << 8 | reader.number<1>().value_or(0);
    return value;
}

} // namespace

std::size_t xingOffset(HeaderWord header) {
    const bool mono = header.channelMode() == kSingleChannel;
    if (header.versionId() == kVersionMpeg1) return mono ? 4 + 17 : 4 + 32;
    return mono ? 4 + 9 : 4 + 17;
}

std::optional<XingHeader> readXingHeader(Bytes frame, HeaderWord header) {
    ByteReader reader = readerAt(frame, xingOffset(header));
    if (reader.left() < kRequiredBytes) return std::nullopt;
    const auto marker = reader.take(kMarker.size());
    if (!marker || !isMarker(*marker)) return std::nullopt;

    XingHeader xing;
    const std::uint32_t flags = numberPastEnd(reader);
    if (bits<0, 0>(flags) != 0) {
        xing.frameCount = static_cast<std::int32_t>(numberPastEnd(reader));
        if (bits<1, 1>(flags) != 0) xing.audioSize = static_cast<std::int32_t>(numberPastEnd(reader));
    }
    return xing;
}

} // namespace corvane
