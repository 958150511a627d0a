#include "corvane/id3v2/ID3V23Frame.h"

#include "tests/id3v2/TagOnDisk.h"
#include "tests/support/ImageBuilder.h"

#include <gtest/gtest.h>

namespace corvane::id3v23frame_test {
namespace {

using namespace test;

std::shared_ptr<ID3V23Frame> frameOf(std::string_view id, Bytes data) {
    TagOnDisk file(Id3v2Builder(3).frame(id, data));
    return file.tag.ID3V23Tag()->GetFrameByIndex(1); // outlives the tag and the file
}

TEST(ID3V23Frame, GivesItsIdPayloadAndText) {
    const auto frame = frameOf("TIT2", textFrame("abcd"));
    EXPECT_EQ(frame->ID(), "TIT2");
    EXPECT_EQ(frame->RawData(), textFrame("abcd"));
    EXPECT_EQ(frame->TextData(), "abcd");
    EXPECT_EQ(frame->removeHeader(), textFrame("abcd"));
}

TEST(ID3V23Frame, APicturesBytesAreBehindItsHeader) {
    const auto frame = frameOf("APIC", pictureFrame(bytesOf("PICTURE")));
    EXPECT_EQ(frame->PictureRAW(), bytesOf("PICTURE"));
    EXPECT_EQ(frame->removeHeader(), bytesOf("PICTURE"));
    EXPECT_EQ(frame->RawData(), pictureFrame(bytesOf("PICTURE")));
}

TEST(ID3V23Frame, APictureIsMadeOfTheBytesBehindItsHeader) {
    const auto picture = frameOf("APIC", pictureFrame(pngImage(3, 2)))->createPicture();
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(ByteArray(picture->bytes().begin(), picture->bytes().end()), pngImage(3, 2));
    EXPECT_EQ(picture->mimeType(), "image/png");
    EXPECT_EQ(frameOf("APIC", pictureFrame(bytesOf("no image")))->createPicture(), nullptr);
}

TEST(ID3V23Frame, DescriptionAndLanguageOfAParsedFrameAreEmpty) {
    const auto frame = frameOf("COMM", commentFrame("about", "text"));
    EXPECT_EQ(frame->Description(), "");
    EXPECT_EQ(frame->Language(), "");
    EXPECT_EQ(frame->TextData(), "text");
}

struct Predicate {
    const char* name;
    const char* id;
    bool (ID3V23Frame::*holds)() const;
};
constexpr std::array<Predicate, 8> kPredicates{{{"IsPicture", "APIC", &ID3V23Frame::IsPicture},
                                                {"IsArtist", "TPE1", &ID3V23Frame::IsArtist},
                                                {"IsAlbum", "TALB", &ID3V23Frame::IsAlbum},
                                                {"IsTitle", "TIT2", &ID3V23Frame::IsTitle},
                                                {"IsGenre", "TCON", &ID3V23Frame::IsGenre},
                                                {"IsTrack", "TRCK", &ID3V23Frame::IsTrack},
                                                {"IsYear", "TYER", &ID3V23Frame::IsYear},
                                                {"IsComment", "COMM", &ID3V23Frame::IsComment}}};
class PredicateOfID3V23Frame : public testing::TestWithParam<Predicate> {};
TEST_P(PredicateOfID3V23Frame, HoldsForItsIdOnly) {
    for (const Predicate& other : kPredicates) {
        EXPECT_EQ((*frameOf(other.id, textFrame("x")).*GetParam().holds)(), other.id == GetParam().id) << other.id;
    }
    EXPECT_FALSE((*frameOf("XXXX", textFrame("x")).*GetParam().holds)());
}
INSTANTIATE_TEST_SUITE_P(All, PredicateOfID3V23Frame, testing::ValuesIn(kPredicates),
                         [](const auto& tested) { return tested.param.name; });

TEST(ID3V23Frame, WhatCanNoLongerBeReadIsEmpty) {
    TagOnDisk file(Id3v2Builder(3).frame("APIC", pictureFrame(ByteArray(100'000, 7))));
    const auto frame = file.tag.ID3V23Tag()->GetFrameByID("APIC");
    EXPECT_EQ(frame->PictureRAW(), ByteArray(100'000, 7));
    file.replaceFile();
    EXPECT_TRUE(frame->PictureRAW().empty());
    EXPECT_TRUE(frame->RawData().empty());
    EXPECT_EQ(frame->TextData(), "");
    EXPECT_EQ(frame->createPicture(), nullptr);
    EXPECT_EQ(frame->ID(), "APIC");
}

} // namespace
} // namespace corvane::id3v23frame_test
