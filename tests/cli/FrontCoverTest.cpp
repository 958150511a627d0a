#include "apps/cli/FrontCover.h"

#include "tests/id3v230/TagOnFile.h"
#include "tests/support/ImageBuilder.h"

#include <gtest/gtest.h>

namespace corvane::cli::frontcover_test {
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

TEST(ShownPicture, IsTheFrontCoverElseTheFirstPicture) {
    const ByteArray front = test::pictureFrame(pngImage(5, 7), "image/png", "Front");
    struct Row {
        const char* description;
        Id3v2Builder tag;
        int width; // pixels; 0 for none
    };
    const Row rows[] = {
        {"none", Id3v2Builder().text("TIT2", "T"), 0},
        {"a described front cover", Id3v2Builder().frame("APIC", front), 5},
        {"a described front cover after a plain back cover",
         Id3v2Builder().frame("APIC", backCover("")).frame("APIC", front), 5},
        {"back covers alone", Id3v2Builder().frame("APIC", backCover("One")).frame("APIC", backCover("Two")), 1},
        {"one that is encrypted", Id3v2Builder().frame("APIC", front, kEncrypted), 0},
    };
    for (const Row& row : rows) {
        const TagOnFile file(row.tag);
        const auto shown = shownPicture(file.tag);
        ASSERT_TRUE(shown.has_value()) << row.description;
        EXPECT_EQ(*shown ? (*shown)->width() : 0, row.width) << row.description;
    }
}

TEST(ShownPicture, KeepsItsTypeAndDescriptionWhenItIsReplaced) {
    TagOnFile file(Id3v2Builder().frame("APIC", backCover("One")).frame("APIC", backCover("Two")));
    ASSERT_TRUE(setShownPicture(file.tag, picture()));
    EXPECT_EQ(file.tag.Frames()->Count(), 2);
    EXPECT_TRUE(file.record(1).bChanged());
    EXPECT_FALSE(file.record(1).Deleted());
    EXPECT_EQ(file.record(1).sDescription(), "One");
    EXPECT_EQ(shownPicture(file.tag).value()->width(), 5);
    EXPECT_FALSE(file.record(2).bChanged());
}

TEST(ShownPicture, IsTakenOutAloneAndTheNextOneIsShown) {
    TagOnFile file(Id3v2Builder()
                       .frame("APIC", backCover("Back"))
                       .frame("APIC", test::pictureFrame(pngImage(5, 7), "image/png", "Front")));
    ASSERT_TRUE(setShownPicture(file.tag, nullptr));
    EXPECT_FALSE(file.record(1).Deleted());
    EXPECT_TRUE(file.record(2).Deleted());
    EXPECT_EQ(shownPicture(file.tag).value()->width(), 1);
}

TEST(ShownPicture, OfTheSameBytesOrOfNoneIsNoChange) {
    TagOnFile file(Id3v2Builder().frame("APIC", test::pictureFrame(pngImage(5, 7), "image/png", "any")));
    EXPECT_FALSE(setShownPicture(file.tag, picture()));
    EXPECT_FALSE(file.record(1).bChanged());
    TagOnFile empty(Id3v2Builder().text("TIT2", "T"));
    EXPECT_FALSE(setShownPicture(empty.tag, nullptr));
}

} // namespace
} // namespace corvane::cli::frontcover_test
