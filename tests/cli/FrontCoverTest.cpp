#include "apps/cli/FrontCover.h"

#include "tests/id3v230/TagOnFile.h"
#include "tests/support/ImageBuilder.h"

#include <gtest/gtest.h>

namespace corvane::cli {
namespace {

using test::Id3v2Builder;
using test::pngImage;
using test::TagOnFile;

constexpr unsigned kEncrypted = 0x40;

std::shared_ptr<Picture> picture() { return Picture::fromBytes(pngImage(5, 7)); }

// A back cover.
ByteArray backCover(std::string_view description) {
    ByteArray payload = test::pictureFrame(pngImage(1, 1), "image/png", description);
    payload[std::string_view("0image/png0").size()] = 4;
    return payload;
}

TEST(FrontCover, IsAddedToATagWithoutPictures) {
    TagOnFile file(Id3v2Builder().text("TIT2", "T"));
    const auto change = setFrontCover(file.tag, picture());
    ASSERT_TRUE(change);
    EXPECT_EQ(change->name, "picture");
    EXPECT_EQ(change->before, "");
    EXPECT_TRUE(change->after.starts_with("image/png, 5 x 7, ")) << change->after;
    EXPECT_EQ(file.record(2).Position(), 2);
    EXPECT_TRUE(file.record(2).IsNew());
    EXPECT_TRUE(file.record(2).bChanged());
}

TEST(FrontCover, TakesADescriptionThatNoOtherPictureHas) {
    TagOnFile file(Id3v2Builder().frame("APIC", backCover("")).frame("APIC", backCover("Front cover")));
    ASSERT_TRUE(setFrontCover(file.tag, picture()));
    EXPECT_EQ(file.record(3).sDescription(), "Front cover 2");
    EXPECT_FALSE(file.record(1).Deleted());
    EXPECT_FALSE(file.record(1).bChanged());
}

TEST(FrontCover, IsNeverAPictureThatNobodyCanRead) {
    TagOnFile file(Id3v2Builder().frame("APIC", test::pictureFrame(pngImage(1, 1)), kEncrypted));
    ASSERT_TRUE(setFrontCover(file.tag, picture()));
    EXPECT_FALSE(file.record(1).bChanged());
    EXPECT_EQ(file.tag.Frames()->Count(), 2);
    EXPECT_TRUE(setFrontCover(file.tag, nullptr));
    EXPECT_FALSE(file.record(1).Deleted());
    EXPECT_TRUE(file.record(2).Deleted());
}

TEST(FrontCover, ThatIsNotThereIsNotTakenOut) {
    TagOnFile file(Id3v2Builder().frame("APIC", backCover("")));
    EXPECT_FALSE(setFrontCover(file.tag, nullptr));
    EXPECT_FALSE(file.record(1).Deleted());
}

TEST(FrontCover, OfTheSameBytesIsNoChange) {
    TagOnFile file(Id3v2Builder().frame("APIC", test::pictureFrame(pngImage(5, 7), "image/png", "any")));
    EXPECT_FALSE(setFrontCover(file.tag, picture()));
    EXPECT_FALSE(file.record(1).bChanged());
}

} // namespace
} // namespace corvane::cli
