#include "apps/cli/BinaryText.h"
#include "apps/cli/FrameNames.h"
#include "apps/cli/PictureText.h"
#include "tests/support/ByteBuilder.h"

#include <gtest/gtest.h>

namespace corvane::cli::framecontent_test {
namespace {

using test::ByteBuilder;

// A GIF image that ends with its header (GIF89a, section 18).
ByteArray gif(unsigned width, unsigned height) {
    return ByteBuilder().text("GIF89a").byte(width).byte(0).byte(height).byte(0).byte(0).byte(0).byte(0).done();
}

ByteArray picture(unsigned encoding, std::string_view description, unsigned kind = 3) {
    return ByteBuilder().byte(encoding).text("image/gif").byte(0).byte(kind).text(description).bytes(gif(5, 7)).done();
}

TEST(PictureText, TellsTypeSizeKindAndDescription) {
    EXPECT_EQ(pictureText("APIC", picture(0, std::string_view("front\0", 6))),
              "image/gif, 5 x 7, 13 bytes, front cover, \"front\"");
    EXPECT_EQ(pictureText("APIC", picture(0, std::string_view("\0", 1), 20)),
              "image/gif, 5 x 7, 13 bytes, publisher logotype");
    EXPECT_EQ(pictureText("APIC", picture(0, std::string_view("\0", 1), 21)), "image/gif, 5 x 7, 13 bytes, kind 21");
}

TEST(PictureText, DescriptionIsReadInItsEncoding) {
    EXPECT_EQ(pictureText("APIC", picture(1, std::string_view("\xff\xfe\xe9\0\0\0", 6))),
              "image/gif, 5 x 7, 13 bytes, front cover, \"\u00e9\"");
    EXPECT_EQ(pictureText("APIC", picture(3, std::string_view("\xc3\xa9\0", 3))),
              "image/gif, 5 x 7, 13 bytes, front cover, \"\u00e9\"");
}

TEST(PictureText, TypeIsThatOfTheImageAndNotThatOfTheFrame) {
    const ByteArray payload = ByteBuilder().byte(0).text("image/png").byte(0).byte(0).byte(0).bytes(gif(1, 2)).done();
    EXPECT_EQ(pictureText("APIC", payload), "image/gif, 1 x 2, 13 bytes, other");
}

TEST(PictureText, FormatOfVersion22HasThreeLetters) {
    const ByteArray payload = ByteBuilder().byte(0).text("GIF").byte(4).byte(0).bytes(gif(1, 2)).done();
    EXPECT_EQ(pictureText("PIC", payload), "image/gif, 1 x 2, 13 bytes, back cover");
}

TEST(PictureText, EveryShorterPayloadIsReadWithoutPicture) {
    for (const FrameId id : {FrameId("APIC"), FrameId("PIC")}) {
        const ByteArray payload = picture(1, std::string_view("\xff\xfe\xe9\0\0\0", 6));
        for (std::size_t size = 0; size < payload.size() - 3; ++size) {
            const std::string text = pictureText(id, Bytes(payload).first(size));
            EXPECT_EQ(text.find(" x "), std::string::npos) << size << text;
            EXPECT_NE(text.find("byte"), std::string::npos);
        }
    }
}

TEST(BinaryDescription, NamesOwnersAndFiles) {
    EXPECT_EQ(binaryDescription("PRIV", test::bytesOf(std::string_view("owner\0data", 10))), "owner");
    EXPECT_EQ(binaryDescription("GEOB", test::bytesOf(std::string_view("\0a/b\0name\0why\0data", 18))), "name");
    EXPECT_EQ(binaryDescription("GEO", test::bytesOf(std::string_view("\0a/b\0\0why\0data", 14))), "why");
    EXPECT_EQ(binaryDescription("MCDI", test::bytesOf("anything")), "");
}

TEST(BinaryDescription, EveryShorterPayloadIsRead) {
    const ByteArray payload = test::bytesOf(std::string_view("\1a/b\0\xff\xfex\0\0\0w\0\0\0data", 20));
    for (const FrameId id : {FrameId("PRIV"), FrameId("GEOB")}) {
        for (std::size_t size = 0; size <= payload.size(); ++size) {
            EXPECT_LE(binaryDescription(id, Bytes(payload).first(size)).size(), 4u);
        }
    }
}

TEST(FrameName, KnowsTheFramesOfAllVersions) {
    EXPECT_EQ(frameName("TIT2"), "Title");
    EXPECT_EQ(frameName("TT2"), "Title");
    EXPECT_EQ(frameName("TDRC"), "Recording time");
    EXPECT_EQ(frameName("WXXX"), "Web address");
}

TEST(FrameName, NamesTheKindOfAnUnknownFrame) {
    EXPECT_EQ(frameName("TZZZ"), "Text");
    EXPECT_EQ(frameName("WZZ"), "Web address");
    EXPECT_EQ(frameName("ZZZZ"), "Frame");
}

} // namespace
} // namespace corvane::cli::framecontent_test
