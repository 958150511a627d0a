#include "tests/support/Id3v2Builder.h"

#include "corvane/platform/Utf.h"

#include <zlib.h>

#include <stdexcept>

namespace corvane::test {

namespace {

constexpr unsigned kUnsynchronised = 0x80, kFooter = 0x10;

std::size_t endLength(Encoding encoding) {
    return encoding == Encoding::Utf16 || encoding == Encoding::Utf16BigEndian ? 2 : 1;
}

ByteBuilder begun(Encoding encoding) { return ByteBuilder().byte(static_cast<unsigned>(encoding)); }

void appendUnit(ByteBuilder& bytes, std::uint32_t unit, bool bigEndian) {
    bytes.byte(bigEndian ? unit >> 8 : unit & 0xFF).byte(bigEndian ? unit & 0xFF : unit >> 8);
}

void appendUtf16(ByteBuilder& bytes, std::string_view text, bool bigEndian) {
    while (!text.empty()) {
        const char32_t character = takeCodePoint(text);
        if (character < 0x10000) {
            appendUnit(bytes, character, bigEndian);
        } else {
            appendUnit(bytes, 0xD800 + ((character - 0x10000) >> 10), bigEndian);
            appendUnit(bytes, 0xDC00 + (character & 0x3FF), bigEndian);
        }
    }
}

} // namespace

ByteArray encoded(Encoding encoding, std::string_view text) {
    ByteBuilder bytes;
    switch (encoding) {
    case Encoding::Utf8:
        return bytes.text(text).done();
    case Encoding::CodePage:
        while (!text.empty()) bytes.byte(static_cast<unsigned>(takeCodePoint(text)));
        return bytes.done();
    case Encoding::Utf16:
        bytes.byte(0xFF).byte(0xFE);
        appendUtf16(bytes, text, false);
        return bytes.done();
    case Encoding::Utf16BigEndian:
        appendUtf16(bytes, text, true);
        return bytes.done();
    }
    throw std::logic_error("no such encoding");
}

ByteArray terminated(Encoding encoding, std::string_view text) {
    return ByteBuilder().bytes(encoded(encoding, text)).repeat(0, endLength(encoding)).done();
}

ByteArray textFrame(std::string_view text, Encoding encoding) {
    return begun(encoding).bytes(encoded(encoding, text)).done();
}

ByteArray valuesFrame(const std::vector<std::string>& values, Encoding encoding) {
    ByteBuilder bytes = begun(encoding);
    for (std::size_t i = 0; i < values.size(); ++i) {
        bytes.bytes(encoded(encoding, values[i]));
        if (i + 1 < values.size()) bytes.repeat(0, endLength(encoding));
    }
    return bytes.done();
}

ByteArray userTextFrame(std::string_view description, std::string_view text, Encoding encoding) {
    return begun(encoding).bytes(terminated(encoding, description)).bytes(encoded(encoding, text)).done();
}

ByteArray userUrlFrame(std::string_view description, std::string_view url, Encoding encoding) {
    return begun(encoding).bytes(terminated(encoding, description)).text(url).done();
}

ByteArray commentFrame(std::string_view description, std::string_view text, Encoding encoding,
                       std::string_view language) {
    return begun(encoding)
        .text(language)
        .bytes(terminated(encoding, description))
        .bytes(encoded(encoding, text))
        .done();
}

ByteArray syncedLyricsFrame(std::string_view description, const std::vector<std::string>& lines, Encoding encoding,
                            std::string_view language) {
    constexpr unsigned kMilliseconds = 2;
    constexpr unsigned kLyrics = 1;
    ByteBuilder bytes = begun(encoding);
    bytes.text(language).byte(kMilliseconds).byte(kLyrics).bytes(terminated(encoding, description));
    for (std::size_t i = 0; i < lines.size(); ++i) {
        bytes.bytes(terminated(encoding, lines[i])).bigEndian(1000 * i, 4);
    }
    return bytes.done();
}

ByteArray pictureFrame(Bytes picture, std::string_view mimeType, std::string_view description, Encoding encoding) {
    constexpr unsigned kFrontCover = 3;
    return begun(encoding)
        .text(mimeType)
        .byte(0)
        .byte(kFrontCover)
        .bytes(terminated(encoding, description))
        .bytes(picture)
        .done();
}

ByteArray pictureFrameOfVersion22(Bytes picture, std::string_view format) {
    constexpr unsigned kFrontCover = 3;
    return begun(Encoding::CodePage).text(format).byte(kFrontCover).byte(0).bytes(picture).done();
}

ByteArray deflated(Bytes bytes) {
    uLongf size = compressBound(static_cast<uLong>(bytes.size()));
    ByteArray stream(size);
    if (compress(stream.data(), &size, bytes.data(), static_cast<uLong>(bytes.size())) != Z_OK) {
        throw std::runtime_error("cannot compress");
    }
    stream.resize(size);
    return stream;
}

ByteArray unsynchronised(Bytes bytes) {
    ByteBuilder stuffed;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        stuffed.byte(bytes[i]);
        const bool atEnd = i + 1 == bytes.size();
        if (bytes[i] == 0xFF && (atEnd || bytes[i + 1] == 0 || bytes[i + 1] >= 0xE0)) stuffed.byte(0);
    }
    return stuffed.done();
}

Id3v2Builder::Id3v2Builder(unsigned majorVersion, unsigned revision)
    : majorVersion_(majorVersion), revision_(revision) {}

Id3v2Builder& Id3v2Builder::flags(unsigned headerFlags) {
    flags_ |= headerFlags;
    return *this;
}

Id3v2Builder& Id3v2Builder::frame(std::string_view id, Bytes data, unsigned formatFlags, unsigned statusFlags) {
    ByteArray stuffed;
    if (unsynchronise_ && majorVersion_ == 4) data = stuffed = unsynchronised(data);
    const auto size = static_cast<std::uint32_t>(data.size());
    body_.text(id);
    switch (majorVersion_) {
    case 2:
        body_.bigEndian(size, 3);
        break;
    case 4:
        body_.synchsafe(size).byte(statusFlags).byte(formatFlags);
        break;
    default:
        body_.bigEndian(size, 4).byte(statusFlags).byte(formatFlags);
    }
    body_.bytes(data);
    return *this;
}

Id3v2Builder& Id3v2Builder::text(std::string_view id, std::string_view text, Encoding encoding) {
    return frame(id, textFrame(text, encoding));
}

Id3v2Builder& Id3v2Builder::compressedFrame(std::string_view id, Bytes data) {
    const auto size = static_cast<std::uint32_t>(data.size());
    ByteBuilder stored;
    if (majorVersion_ == 4) return frame(id, stored.synchsafe(size).bytes(deflated(data)).done(), 0x80 | 0x10);
    return frame(id, stored.bigEndian(size, 4).bytes(deflated(data)).done(), 0x80);
}

Id3v2Builder& Id3v2Builder::raw(Bytes bytes) {
    body_.bytes(bytes);
    return *this;
}

Id3v2Builder& Id3v2Builder::padding(std::size_t size) {
    body_.repeat(0, size);
    return *this;
}

Id3v2Builder& Id3v2Builder::unsynchronise() {
    unsynchronise_ = true;
    return flags(kUnsynchronised);
}

Id3v2Builder& Id3v2Builder::footer() {
    footer_ = true;
    return flags(kFooter);
}

Id3v2Builder& Id3v2Builder::claimedSize(std::uint32_t size) {
    claimedSize_ = size;
    return *this;
}

ByteBuilder Id3v2Builder::headerWith(std::string_view identifier) const {
    const auto size =
        claimedSize_ < 0 ? static_cast<std::uint32_t>(body().size()) : static_cast<std::uint32_t>(claimedSize_);
    return ByteBuilder().text(identifier).byte(majorVersion_).byte(revision_).byte(flags_).synchsafe(size);
}

ByteArray Id3v2Builder::header() const { return headerWith("ID3").done(); }

ByteArray Id3v2Builder::body() const {
    return unsynchronise_ && majorVersion_ != 4 ? unsynchronised(body_.done()) : body_.done();
}

ByteArray Id3v2Builder::done() const {
    ByteBuilder tag = headerWith("ID3").bytes(body());
    if (footer_) tag.bytes(headerWith("3DI").done());
    return tag.done();
}

} // namespace corvane::test
