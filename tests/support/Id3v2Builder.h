// ID3v2 tags and frames written down byte by byte, right ones and wrong ones.
#pragma once

#include "corvane/platform/Bytes.h"

#include "tests/support/ByteBuilder.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::test {

// The encodings of text in frames (ID3v2.4.0 section 4).
enum class Encoding : std::uint8_t { CodePage = 0, Utf16 = 1, Utf16BigEndian = 2, Utf8 = 3 };

// UTF-8 text (code page: one byte per character of ISO-8859-1) in an encoding, without its end. UTF-16 is little-endian
// with a byte-order mark.
ByteArray encoded(Encoding encoding, std::string_view text);
// The same with its end: one byte 0, or two.
ByteArray terminated(Encoding encoding, std::string_view text);

// Frame data: what stands behind a frame's header.
ByteArray textFrame(std::string_view text, Encoding encoding = Encoding::CodePage);
// Several values, each but the last one with its end.
ByteArray valuesFrame(const std::vector<std::string>& values, Encoding encoding);
// TXXX and, with the address always in the code page, WXXX.
ByteArray userTextFrame(std::string_view description, std::string_view text, Encoding encoding = Encoding::CodePage);
ByteArray userUrlFrame(std::string_view description, std::string_view url, Encoding encoding = Encoding::CodePage);
// COMM and USLT.
ByteArray commentFrame(std::string_view description, std::string_view text, Encoding encoding = Encoding::CodePage,
                       std::string_view language = "eng");
// SYLT: each line with its end and a time of 1000 milliseconds more.
ByteArray syncedLyricsFrame(std::string_view description, const std::vector<std::string>& lines,
                            Encoding encoding = Encoding::CodePage, std::string_view language = "eng");
// APIC, front cover.
ByteArray pictureFrame(Bytes picture, std::string_view mimeType = "image/png", std::string_view description = {},
                       Encoding encoding = Encoding::CodePage);
// PIC of ID3v2.2, front cover.
ByteArray pictureFrameOfVersion22(Bytes picture, std::string_view format = "PNG");

// zlib's compression.
ByteArray deflated(Bytes bytes);
// Puts a 00 behind every FF that ID3v2 wants it behind.
ByteArray unsynchronised(Bytes bytes);

class Id3v2Builder {
public:
    explicit Id3v2Builder(unsigned majorVersion = 3, unsigned revision = 0);

    Id3v2Builder& flags(unsigned headerFlags);
    // A frame with its header; flags are the status byte and the format byte (none in ID3v2.2).
    Id3v2Builder& frame(std::string_view id, Bytes data, unsigned formatFlags = 0, unsigned statusFlags = 0);
    // A text frame in the code page.
    Id3v2Builder& text(std::string_view id, std::string_view text, Encoding encoding = Encoding::CodePage);
    // A compressed frame, with the size as the version wants it: 2.3 in front of the data, 2.4 as data length.
    Id3v2Builder& compressedFrame(std::string_view id, Bytes data);
    // Body bytes as they stand.
    Id3v2Builder& raw(Bytes bytes);
    Id3v2Builder& padding(std::size_t size);
    // Sets the flag 80 and unsynchronises the whole body at the end; in 2.4 the data of every frame that follows.
    Id3v2Builder& unsynchronise();
    // Sets the flag 10 and appends the footer (2.4).
    Id3v2Builder& footer();
    // The size that the header claims, instead of the body's.
    Id3v2Builder& claimedSize(std::uint32_t size);

    std::size_t size() const { return body_.size(); } // bytes of the body so far
    ByteArray header() const;                         // 10 bytes
    ByteArray body() const;                           // what stands between header and footer
    ByteArray done() const;                           // the whole tag

private:
    ByteBuilder headerWith(std::string_view identifier) const;

    unsigned majorVersion_;
    unsigned revision_;
    unsigned flags_ = 0;
    bool unsynchronise_ = false;
    bool footer_ = false;
    std::int64_t claimedSize_ = -1; // none
    ByteBuilder body_;
};

} // namespace corvane::test
