#include "corvane/id3v2/FrameLayout.h"

namespace corvane {

namespace {

constexpr std::size_t kIdLength = 4;
constexpr std::size_t kSizeLength = 4;
constexpr std::size_t kFormatFlags = 9; // offset

FrameHeader withFlags(FrameHeader header, Bytes bytes) {
    header.formatFlags = bytes[kFormatFlags];
    return header;
}

// Takes `count` bytes when the flag is set; false when they are not there.
bool skipIf(bool flag, std::size_t count, ByteReader& data) { return !flag || data.take(count).has_value(); }

} // namespace

FrameHeader Layout23::header(Bytes bytes) const {
    return withFlags(decodeFrameHeader(bytes, kIdLength, BytesToLong(bytes, kIdLength, kSizeLength)), bytes);
}

std::optional<FrameForm> Layout23::form(const FrameHeader& header, Bytes data) const {
    if ((header.formatFlags & (kGrouped | kEncrypted | kCompressed)) == 0) return FrameForm{};
    FrameForm form;
    form.encrypted = (header.formatFlags & kEncrypted) != 0;
    form.compressed = (header.formatFlags & kCompressed) != 0;
    ByteReader reader(data);
    if (!skipIf((header.formatFlags & kGrouped) != 0, 1, reader) || !skipIf(form.encrypted, 1, reader)) {
        return std::nullopt;
    }
    if (form.compressed) {
        const auto size = reader.take(kSizeLength);
        if (!size) return std::nullopt;
        form.inflatedSize = BytesToLong(*size, 0, kSizeLength);
    }
    form.extraCount = static_cast<std::uint32_t>(data.size() - reader.left());
    return form;
}

FrameHeader Layout24::header(Bytes bytes) const {
    return withFlags(decodeFrameHeader(bytes, kIdLength, SynchsafeToLong(bytes.subspan(kIdLength, kSizeLength))),
                     bytes);
}

std::optional<FrameForm> Layout24::form(const FrameHeader& header, Bytes data) const {
    FrameForm form;
    form.unsynchronised = tagUnsynchronised || (header.formatFlags & kUnsynchronised) != 0;
    form.encrypted = (header.formatFlags & kEncrypted) != 0;
    form.compressed = (header.formatFlags & kCompressed) != 0;
    ByteReader reader(data);
    if (!skipIf(form.encrypted, 2, reader)) return std::nullopt;
    if ((header.formatFlags & kDataLength) != 0) {
        const auto size = reader.take(kSizeLength);
        if (!size) return std::nullopt;
        form.inflatedSize = SynchsafeToLong(*size);
    }
    form.extraCount = static_cast<std::uint32_t>(data.size() - reader.left());
    return form;
}

} // namespace corvane
