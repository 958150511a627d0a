#include "corvane/id3v230/FrameSource.h"

#include "tests/id3v230/TagOnFile.h"

#include <gtest/gtest.h>

namespace corvane::framesource_test {
namespace {

using test::Id3v2Builder;
using test::TagOnFile;

constexpr unsigned kCompressed = 0x80, kEncrypted = 0x40, kGrouped = 0x20;

FrameSource onlyFrameOf(const TagOnFile& file) { return {Internals<ID3V230>::image(file.tag), 0}; }

TEST(FrameSource, WhatFlagsAnnounceStandsInFrontOfThePayload) {
    struct Case {
        unsigned flags;
        ByteArray extra;
    };
    for (const auto& [flags, extra] :
         {Case{0, {}}, Case{kGrouped, {1}}, Case{kEncrypted, {2}}, Case{kEncrypted | kGrouped, {2, 1}},
          Case{kCompressed | kEncrypted | kGrouped, {0, 0, 0, 9, 2, 1}}}) {
        const ByteArray payload = test::textFrame("text");
        const TagOnFile file(Id3v2Builder().frame("TIT2", test::joined({extra, payload}), flags));
        EXPECT_EQ(onlyFrameOf(file).payload(), payload) << flags;
    }
}

TEST(FrameSource, ACompressedPayloadIsInflated) {
    const TagOnFile file(Id3v2Builder().compressedFrame("TIT2", test::textFrame("a title")));
    EXPECT_EQ(onlyFrameOf(file).payload(), test::textFrame("a title"));
    EXPECT_EQ(onlyFrameOf(file).content()->value, FrameVariant("a title"));
}

TEST(FrameSource, WhatNobodyCanReadHasNoContent) {
    const ByteArray text = test::textFrame("text");
    for (const unsigned flags : {kEncrypted, kCompressed, kCompressed | kGrouped}) {
        const TagOnFile file(Id3v2Builder().frame("TIT2", text, flags));
        EXPECT_FALSE(onlyFrameOf(file).content()) << flags;
    }
}

TEST(FrameSource, DataTooShortForTheirFlagsAreNoPayload) {
    for (const unsigned flags : {kEncrypted, kCompressed, kGrouped}) {
        const TagOnFile file(Id3v2Builder().frame("TIT2", ByteArray{}, flags));
        EXPECT_TRUE(onlyFrameOf(file).payload().empty()) << flags;
        EXPECT_FALSE(onlyFrameOf(file).content()) << flags;
    }
}

TEST(FrameSource, OfALargePictureOnlyTheHeadIsNeededToKnowWhatItIs) {
    ByteArray image(500'000, 7);
    const TagOnFile file(Id3v2Builder().frame("APIC", test::pictureFrame(image, "image/png", "a cover")));
    std::filesystem::remove(file.path());
    const auto content = onlyFrameOf(file).content();
    ASSERT_TRUE(content);
    EXPECT_EQ(content->description, "a cover");
    EXPECT_EQ(content->picture.mimeType, "image/png");
    EXPECT_EQ(content->picture.type, 3);
    EXPECT_THROW(onlyFrameOf(file).payload(), RuntimeFailure);
}

TEST(FrameSource, ADescriptionLongerThanWhatIsAtHandIsReadFromTheFile) {
    const std::string description(20'000, 'd');
    const TagOnFile file(
        Id3v2Builder().frame("APIC", test::pictureFrame(ByteArray(500'000, 7), "image/png", description)));
    const auto content = onlyFrameOf(file).content();
    ASSERT_TRUE(content);
    EXPECT_EQ(content->description, description);
}

} // namespace
} // namespace corvane::framesource_test
