#include "corvane/id3v230/RawFrame.h"

#include "corvane/platform/ByteReader.h"

#include <algorithm>

namespace corvane {

namespace {

constexpr bool isUpperOrDigit(char letter) {
    return (letter >= 'A' && letter <= 'Z') || (letter >= '0' && letter <= '9');
}

} // namespace

bool RawFrame::hasFrameId() const {
    const bool isOfVersion22 = id[3] == ' ' || id[3] == '\0';
    return std::all_of(id.begin(), id.end() - 1, isUpperOrDigit) && (isUpperOrDigit(id[3]) || isOfVersion22);
}

std::optional<RawFrame> decodeFrameHeader(Bytes bytes, std::uint64_t offset) {
    ByteReader reader(bytes);
    RawFrame frame;
    const auto id = reader.take(frame.id.size());
    const auto size = reader.number<4>();
    const auto status = reader.number<1>();
    const auto format = reader.number<1>();
    if (!id || !size || !status || !format) return std::nullopt;
    std::copy_n(id->begin(), frame.id.size(), frame.id.begin());
    frame.dataSize = *size;
    frame.statusFlags = static_cast<std::uint8_t>(*status);
    frame.formatFlags = static_cast<std::uint8_t>(*format);
    frame.offset = offset;
    return frame;
}

std::array<std::uint8_t, RawFrame::kHeaderSize> encodedFrameHeader(const RawFrame& frame) {
    std::array<std::uint8_t, RawFrame::kHeaderSize> bytes{};
    std::copy(frame.id.begin(), frame.id.end(), bytes.begin());
    for (unsigned i = 0; i < 4; ++i) bytes[4 + i] = static_cast<std::uint8_t>(frame.dataSize >> (24 - 8 * i));
    bytes[8] = frame.statusFlags;
    bytes[9] = frame.formatFlags;
    return bytes;
}

} // namespace corvane
