#include "tests/support/ImageBuilder.h"

#include "tests/support/ByteBuilder.h"

#include <zlib.h>

namespace corvane::test {

namespace {

ByteBuilder& littleEndian(ByteBuilder& image, std::uint32_t value, std::size_t byteCount) {
    for (std::size_t i = 0; i < byteCount; ++i) image.byte(value >> i * 8 & 0xFF);
    return image;
}

void appendPngChunk(ByteBuilder& png, std::string_view type, const ByteArray& content) {
    ByteBuilder chunk;
    chunk.text(type).bytes(content);
    const auto check = ::crc32(0, chunk.done().data(), static_cast<unsigned>(chunk.size()));
    png.bigEndian(content.size(), 4).bytes(chunk.done()).bigEndian(check, 4);
}

ByteArray deflated(const ByteArray& plain) {
    ByteArray packed(::compressBound(plain.size()));
    auto size = static_cast<uLongf>(packed.size());
    ::compress(packed.data(), &size, plain.data(), plain.size());
    packed.resize(size);
    return packed;
}

// A Huffman table with one code of one bit, which stands for 0.
void appendHuffmanTable(ByteBuilder& jpeg, unsigned classAndNumber) {
    jpeg.bigEndian(0xFFC4, 2).bigEndian(2 + 17 + 1, 2).byte(classAndNumber).byte(1).repeat(0, 15).byte(0);
}

// The codes of a GIF image whose pixels are all 0, written without compression: a clear code before every second
// pixel keeps the code width at three bits.
ByteArray gifCodes(std::size_t pixelCount) {
    constexpr unsigned kCodeBits = 3;
    constexpr unsigned kClear = 4;
    constexpr unsigned kEnd = 5;
    ByteArray bytes;
    unsigned bits = 0;
    unsigned bitCount = 0;
    const auto put = [&](unsigned code) {
        bits |= code << bitCount;
        for (bitCount += kCodeBits; bitCount >= 8; bitCount -= 8, bits >>= 8)
            bytes.push_back(static_cast<std::uint8_t>(bits & 0xFF));
    };
    for (std::size_t i = 0; i < pixelCount; ++i) {
        if (i % 2 == 0) put(kClear);
        put(0);
    }
    put(kEnd);
    if (bitCount > 0) bytes.push_back(static_cast<std::uint8_t>(bits & 0xFF));
    return bytes;
}

} // namespace

ByteArray jpegImage(unsigned width, unsigned height) {
    ByteBuilder jpeg;
    jpeg.bigEndian(0xFFD8, 2);
    jpeg.bigEndian(0xFFE0, 2).bigEndian(16, 2).text({"JFIF\0", 5}).bigEndian(0x0101, 2).byte(0);
    jpeg.bigEndian(1, 2).bigEndian(1, 2).bigEndian(0, 2);
    jpeg.bigEndian(0xFFDB, 2).bigEndian(2 + 1 + 64, 2).byte(0).repeat(1, 64);
    appendHuffmanTable(jpeg, 0x00);
    appendHuffmanTable(jpeg, 0x10);
    jpeg.bigEndian(0xFFC0, 2).bigEndian(11, 2).byte(8).bigEndian(height, 2).bigEndian(width, 2).byte(1);
    jpeg.byte(1).byte(0x11).byte(0);
    jpeg.bigEndian(0xFFDA, 2).bigEndian(8, 2).byte(1).byte(1).byte(0x00).byte(0).byte(63).byte(0);
    // A block is two bits: no difference of the mean, end of block. The last byte is filled with ones.
    const std::size_t bits = std::size_t{2} * ((width + 7) / 8) * ((height + 7) / 8);
    jpeg.repeat(0, bits / 8);
    if (bits % 8 != 0) jpeg.byte(0xFFU >> bits % 8);
    return jpeg.bigEndian(0xFFD9, 2).done();
}

ByteArray pngImage(unsigned width, unsigned height) {
    ByteBuilder png;
    png.text("\x89PNG\r\n\x1A\n");
    appendPngChunk(png, "IHDR", ByteBuilder().bigEndian(width, 4).bigEndian(height, 4).byte(8).repeat(0, 4).done());
    appendPngChunk(png, "IDAT", deflated(ByteArray(std::size_t{height} * (width + 1))));
    appendPngChunk(png, "IEND", {});
    return png.done();
}

ByteArray gifImage(unsigned width, unsigned height) {
    ByteBuilder gif;
    gif.text("GIF89a");
    littleEndian(gif, width, 2);
    littleEndian(gif, height, 2).byte(0x80).byte(0).byte(0).repeat(0x80, 3).repeat(0xFF, 3);
    gif.text(",").repeat(0, 4);
    littleEndian(gif, width, 2);
    littleEndian(gif, height, 2).byte(0).byte(2);
    const ByteArray codes = gifCodes(std::size_t{width} * height);
    for (std::size_t at = 0; at < codes.size(); at += 255) {
        const Bytes block = Bytes(codes).subspan(at, std::min<std::size_t>(255, codes.size() - at));
        gif.byte(static_cast<unsigned>(block.size())).bytes(block);
    }
    return gif.byte(0).text(";").done();
}

ByteArray bmpImage(unsigned width, unsigned height, bool topDown) {
    constexpr std::uint32_t kHeadersSize = 14 + 40;
    const std::uint32_t rowSize = (width * 3 + 3) / 4 * 4;
    ByteBuilder bmp;
    bmp.text("BM");
    littleEndian(bmp, kHeadersSize + rowSize * height, 4).repeat(0, 4);
    littleEndian(bmp, kHeadersSize, 4);
    littleEndian(bmp, 40, 4);
    littleEndian(bmp, width, 4);
    littleEndian(bmp, topDown ? 0U - height : height, 4);
    littleEndian(bmp, 1, 2);
    littleEndian(bmp, 24, 2).repeat(0, 24).repeat(0x80, std::size_t{rowSize} * height);
    return bmp.done();
}

} // namespace corvane::test
