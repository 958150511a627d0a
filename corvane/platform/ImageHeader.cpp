#include "corvane/platform/ImageHeader.h"

#include "corvane/platform/ByteReader.h"

#include <algorithm>
#include <array>

namespace corvane {

namespace {

using namespace std::string_view_literals;

ByteArray ownedBytes(Bytes bytes) { return {bytes.begin(), bytes.end()}; }

bool startsWith(Bytes bytes, std::string_view signature) {
    return bytes.size() >= signature.size() &&
           std::equal(signature.begin(), signature.end(), bytes.begin(),
                      [](char wanted, std::uint8_t found) { return static_cast<std::uint8_t>(wanted) == found; });
}

// Number of a little-endian field, which BMP uses.
std::optional<std::uint32_t> littleEndian32(ByteReader& reader) {
    const auto bytes = reader.take(4);
    if (!bytes) return std::nullopt;
    std::uint32_t value = 0;
    for (std::size_t i = 4; i > 0; --i) value = value << 8 | (*bytes)[i - 1];
    return value;
}

// Markers of a JPEG (ITU-T T.81, table B.1).
constexpr std::uint32_t kMarkerStart = 0xFF;
constexpr bool isFrameMarker(std::uint32_t marker) { return marker >= 0xC0 && marker <= 0xC2; }
constexpr bool standsAlone(std::uint32_t marker) { return marker <= 0x01 || (marker >= 0xD0 && marker <= 0xD7); }
constexpr bool endsTheHeaders(std::uint32_t marker) { return marker == 0xD9 || marker == 0xDA; }

// The next marker's code. Any number of 0xFF may stand before it, and so may padding behind a segment.
std::optional<std::uint32_t> nextMarker(ByteReader& reader) {
    auto byte = reader.number<1>();
    while (byte && *byte != kMarkerStart) byte = reader.number<1>();
    while (byte && *byte == kMarkerStart) byte = reader.number<1>();
    return byte;
}

// A segment's content, behind its two length bytes.
std::optional<Bytes> segmentContent(ByteReader& reader) {
    const auto length = reader.number<2>();
    if (!length || *length < 2) return std::nullopt;
    return reader.take(*length - 2);
}

ByteArray jpegOf(std::uint32_t frameMarker, Bytes frameHeader) {
    const auto length = frameHeader.size() + 2;
    ByteArray jpeg{0xFF,
                   0xD8,
                   0xFF,
                   static_cast<std::uint8_t>(frameMarker),
                   static_cast<std::uint8_t>(length >> 8),
                   static_cast<std::uint8_t>(length & 0xFF)};
    jpeg.insert(jpeg.end(), frameHeader.begin(), frameHeader.end());
    return jpeg;
}

std::optional<ByteArray> jpegHeader(Bytes image) {
    constexpr std::size_t kStartMarkerSize = 2;
    ByteReader reader = readerAt(image, kStartMarkerSize);
    while (const auto marker = nextMarker(reader)) {
        if (standsAlone(*marker)) continue;
        if (endsTheHeaders(*marker)) return std::nullopt;
        const auto content = segmentContent(reader);
        if (!content) return std::nullopt;
        if (isFrameMarker(*marker)) return jpegOf(*marker, *content);
    }
    return std::nullopt;
}

std::optional<ByteArray> pngHeader(Bytes image) {
    constexpr std::size_t kSignatureAndIhdrSize = 8 + 4 + 4 + 13 + 4;
    constexpr std::array<std::uint8_t, 12> kEndChunk{0, 0, 0, 0, 'I', 'E', 'N', 'D', 0xAE, 0x42, 0x60, 0x82};
    const auto head = ByteReader(image).take(kSignatureAndIhdrSize);
    if (!head) return std::nullopt;
    ByteArray png = ownedBytes(*head);
    png.insert(png.end(), kEndChunk.begin(), kEndChunk.end());
    return png;
}

std::optional<ByteArray> gifHeader(Bytes image) {
    const auto head = ByteReader(image).take(6 + 7);
    return head ? std::optional(ownedBytes(*head)) : std::nullopt;
}

std::optional<ByteArray> bmpHeader(Bytes image) {
    constexpr std::size_t kFileHeaderSize = 14;
    constexpr std::size_t kLargestBitmapHeaderSize = 124; // BITMAPV5HEADER
    constexpr std::size_t kColourMasksSize = 12;          // may follow a header of 40 bytes
    ByteReader reader = readerAt(image, kFileHeaderSize);
    const auto bitmapHeaderSize = littleEndian32(reader);
    if (!bitmapHeaderSize || *bitmapHeaderSize > kLargestBitmapHeaderSize) return std::nullopt;
    const std::size_t needed = kFileHeaderSize + *bitmapHeaderSize;
    if (image.size() < needed) return std::nullopt;
    return ownedBytes(image.first(std::min(image.size(), needed + kColourMasksSize)));
}

struct ImageFormat {
    std::string_view signature;
    std::string_view mimeType;
    std::optional<ByteArray> (*header)(Bytes image);
};
constexpr std::array kFormats{ImageFormat{"\xFF\xD8\xFF"sv, "image/jpeg"sv, jpegHeader},
                              ImageFormat{"\x89PNG\r\n\x1A\n"sv, "image/png"sv, pngHeader},
                              ImageFormat{"GIF8"sv, "image/gif"sv, gifHeader},
                              ImageFormat{"BM"sv, "image/bmp"sv, bmpHeader}};

} // namespace

std::optional<ImageHeader> imageHeader(Bytes image) {
    for (const ImageFormat& format : kFormats) {
        if (!startsWith(image, format.signature)) continue;
        auto bytes = format.header(image);
        if (!bytes) return std::nullopt;
        return ImageHeader{format.mimeType, std::move(*bytes)};
    }
    return std::nullopt;
}

} // namespace corvane
