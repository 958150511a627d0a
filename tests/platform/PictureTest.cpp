#include "corvane/platform/Picture.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/ImageBuilder.h"

#include <gtest/gtest.h>

#include <set>

namespace corvane::picture_test {
namespace {

using test::ByteBuilder;
using test::bytesOf;

struct Case {
    const char* name;
    ByteArray (*image)();
    const char* mimeType;
    int width;
    int height;
    std::size_t headerSize; // bytes of the image up to which its size cannot be told
};

class Pictures : public testing::TestWithParam<Case> {};

TEST_P(Pictures, GiveTheBytesBackAsFoundWithTypeAndSize) {
    const ByteArray image = GetParam().image();
    const auto picture = Picture::fromBytes(image);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(ByteArray(picture->bytes().begin(), picture->bytes().end()), image);
    EXPECT_EQ(picture->mimeType(), GetParam().mimeType);
    EXPECT_EQ(picture->width(), GetParam().width);
    EXPECT_EQ(picture->height(), GetParam().height);
    EXPECT_NE(picture->handle(), 0);
}

TEST_P(Pictures, AreTakenOverWithoutACopyOfTheirBytes) {
    ByteArray image = GetParam().image();
    const std::uint8_t* place = image.data();
    const auto picture = Picture::fromBytes(std::move(image));
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->bytes().data(), place);
}

TEST_P(Pictures, EveryPrefixShorterThanTheHeaderIsRefused) {
    const ByteArray image = GetParam().image();
    for (std::size_t size = 0; size <= image.size(); ++size) {
        const auto begin = image.begin();
        const bool loaded = Picture::fromBytes(ByteArray(begin, begin + static_cast<std::ptrdiff_t>(size))) != nullptr;
        EXPECT_EQ(loaded, size >= GetParam().headerSize) << "prefix of " << size << " bytes";
    }
}

TEST_P(Pictures, NeverCrashWhateverASingleByteIs) {
    const ByteArray image = GetParam().image();
    for (std::size_t at = 0; at < GetParam().headerSize; ++at) {
        for (unsigned value = 0; value < 256; ++value) {
            ByteArray damaged = image;
            damaged[at] = static_cast<std::uint8_t>(value);
            const auto picture = Picture::fromBytes(damaged);
            if (picture == nullptr) continue;
            EXPECT_GE(picture->width(), 1);
            EXPECT_GE(picture->height(), 1);
        }
    }
}

ByteArray progressiveJpeg() {
    ByteArray image = test::jpegImage(640, 480);
    for (std::size_t i = 0; i + 1 < image.size(); ++i) {
        if (image[i] == 0xFF && image[i + 1] == 0xC0) image[i + 1] = 0xC2;
    }
    return image;
}

INSTANTIATE_TEST_SUITE_P(
    Formats, Pictures,
    testing::Values(Case{"Jpeg", [] { return test::jpegImage(17, 9); }, "image/jpeg", 17, 9, 146},
                    Case{"LargeJpeg", [] { return test::jpegImage(65'535, 1); }, "image/jpeg", 65'535, 1, 146},
                    Case{"ProgressiveJpeg", progressiveJpeg, "image/jpeg", 640, 480, 146},
                    Case{"Png", [] { return test::pngImage(300, 2); }, "image/png", 300, 2, 33},
                    Case{"Gif", [] { return test::gifImage(5, 7); }, "image/gif", 5, 7, 13},
                    Case{"Bmp", [] { return test::bmpImage(33, 44); }, "image/bmp", 33, 44, 54},
                    Case{"BmpFromTopToBottom", [] { return test::bmpImage(3, 4, true); }, "image/bmp", 3, 4, 54}),
    [](const auto& tested) { return tested.param.name; });

struct RefusedCase {
    const char* name;
    ByteArray bytes;
};

class WhatIsNoPicture : public testing::TestWithParam<RefusedCase> {};

TEST_P(WhatIsNoPicture, GivesNothing) { EXPECT_EQ(Picture::fromBytes(GetParam().bytes), nullptr); }

ByteArray replaced(ByteArray image, std::size_t at, std::string_view bytes) {
    std::copy(bytes.begin(), bytes.end(), image.begin() + static_cast<std::ptrdiff_t>(at));
    return image;
}

INSTANTIATE_TEST_SUITE_P(
    Bytes, WhatIsNoPicture,
    testing::Values(
        RefusedCase{"Nothing", {}}, RefusedCase{"Text", bytesOf("JFIF is not enough")},
        RefusedCase{"Tiff", bytesOf(std::string_view("II*\0\x08\0\0\0", 8))},
        RefusedCase{"WebP", bytesOf(std::string_view("RIFF\x24\0\0\0WEBPVP8 ", 16))},
        RefusedCase{"JpegWithoutFrame", bytesOf("\xFF\xD8\xFF\xD9")},
        RefusedCase{"JpegOfNothingButMarkerStarts", ByteBuilder().text("\xFF\xD8").repeat(0xFF, 1000).done()},
        RefusedCase{"JpegWithASegmentLengthOfOne", bytesOf(std::string_view("\xFF\xD8\xFF\xE0\x00\x01\xFF\xC0", 8))},
        RefusedCase{"JpegWithoutHeight", test::jpegImage(8, 0)}, RefusedCase{"JpegWithoutWidth", test::jpegImage(0, 8)},
        RefusedCase{"PngWithoutWidth", test::pngImage(0, 1)},
        RefusedCase{"PngOfAnUnknownColourType", replaced(test::pngImage(1, 1), 25, "\x05")},
        RefusedCase{"PngWhoseFirstChunkIsNotIhdr", replaced(test::pngImage(1, 1), 12, "tEXt")},
        RefusedCase{"PngLargerThanAnyMemory", replaced(test::pngImage(1, 1), 16, "\x7F\xFF\xFF\xFF\x7F\xFF\xFF\xFF")},
        RefusedCase{"GifOfAnUnknownVersion", replaced(test::gifImage(1, 1), 4, "8")},
        RefusedCase{"GifWithoutHeight", test::gifImage(4, 0)},
        RefusedCase{"BmpOfAnUnknownHeader", replaced(test::bmpImage(1, 1), 14, "\x29")},
        RefusedCase{"BmpWithAHugeHeader", replaced(test::bmpImage(1, 1), 14, "\xFF\xFF\xFF\xFF")},
        RefusedCase{"BmpOfTheMostNegativeHeight",
                    replaced(test::bmpImage(1, 1), 22, std::string_view("\0\0\0\x80", 4))},
        RefusedCase{"BmpOfNegativeWidth", replaced(test::bmpImage(1, 1), 18, "\xFF\xFF\xFF\xFF")}),
    [](const auto& tested) { return tested.param.name; });

TEST(Picture, AHuffmanTableLargerThanAnyDecodersDoesNoHarm) {
    // 16 lengths of 255 codes each: 4080 values where 256 are the most that a table can hold.
    const ByteArray plain = test::jpegImage(20, 10);
    ByteBuilder jpeg;
    jpeg.bytes(Bytes(plain).first(2)).bigEndian(0xFFC4, 2).bigEndian(2 + 17 + 4080, 2).byte(0x13).repeat(255, 16);
    jpeg.repeat(0xAA, 4080).bytes(Bytes(plain).subspan(2));
    const auto picture = Picture::fromBytes(jpeg.done());
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->width(), 20);
    EXPECT_EQ(picture->height(), 10);
}

TEST(Picture, SegmentsAndFillBytesBeforeTheFrameAreSkipped) {
    const ByteArray plain = test::jpegImage(20, 10);
    ByteBuilder jpeg;
    jpeg.bytes(Bytes(plain).first(2));
    jpeg.bigEndian(0xFFE1, 2).bigEndian(0xFFFF, 2).repeat(0xC0, 0xFFFD); // an Exif block of the largest size
    jpeg.repeat(0xFF, 30).bytes(Bytes(plain).subspan(3));
    const auto picture = Picture::fromBytes(jpeg.done());
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->width(), 20);
}

TEST(Picture, EveryPictureHasAHandleOfItsOwn) {
    std::set<std::int32_t> handles;
    for (int i = 0; i < 100; ++i) {
        const auto picture = Picture::fromBytes(test::gifImage(1, 1));
        ASSERT_NE(picture, nullptr);
        EXPECT_GT(picture->handle(), 0);
        handles.insert(picture->handle());
    }
    EXPECT_EQ(handles.size(), 100U);
}

} // namespace
} // namespace corvane::picture_test
