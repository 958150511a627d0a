#include "corvane/id3v2/ID3V24Frame.h"

#include "tests/id3v2/TagOnDisk.h"
#include "tests/support/ImageBuilder.h"

#include <gtest/gtest.h>

namespace corvane::id3v24frame_test {
namespace {

using namespace test;

std::shared_ptr<ID3V24Frame> frameOf(std::string_view id, Bytes data) {
    TagOnDisk file(Id3v2Builder(4).frame(id, data));
    return file.tag.ID3V24Tag()->GetFrameByIndex(1); // outlives the tag and the file
}

TEST(ID3V24Frame, GivesItsIdPayloadAndText) {
    const auto frame = frameOf("COMM", commentFrame("about", "text"));
    EXPECT_EQ(frame->ID(), "COMM");
    EXPECT_EQ(frame->RawData(), commentFrame("about", "text"));
    EXPECT_EQ(frame->removeHeader(), bytesOf("text"));
    EXPECT_EQ(frame->TextData(), "text");
}

TEST(ID3V24Frame, APictureIsMadeOfTheBytesBehindItsHeader) {
    const auto picture = frameOf("APIC", pictureFrame(pngImage(3, 2)))->createPicture();
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->width(), 3);
    EXPECT_EQ(frameOf("APIC", pictureFrame(bytesOf("no image")))->createPicture(), nullptr);
}

struct Predicate {
    const char* name;
    const char* id;
    bool (ID3V24Frame::*holds)() const;
};
constexpr std::array<Predicate, 6> kPredicates{{{"IsPicture", "APIC", &ID3V24Frame::IsPicture},
                                                {"IsArtist", "TPE1", &ID3V24Frame::IsArtist},
                                                {"IsAlbum", "TALB", &ID3V24Frame::IsAlbum},
                                                {"IsTitle", "TIT2", &ID3V24Frame::IsTitle},
                                                {"IsGenre", "TCON", &ID3V24Frame::IsGenre},
                                                {"IsComment", "COMM", &ID3V24Frame::IsComment}}};
class PredicateOfID3V24Frame : public testing::TestWithParam<Predicate> {};
TEST_P(PredicateOfID3V24Frame, HoldsForItsIdOnly) {
    for (const Predicate& other : kPredicates) {
        EXPECT_EQ((*frameOf(other.id, textFrame("x")).*GetParam().holds)(), other.id == GetParam().id) << other.id;
    }
    EXPECT_FALSE((*frameOf("TRCK", textFrame("x")).*GetParam().holds)());
}
INSTANTIATE_TEST_SUITE_P(All, PredicateOfID3V24Frame, testing::ValuesIn(kPredicates),
                         [](const auto& tested) { return tested.param.name; });

TEST(ID3V24Frame, WhatCanNoLongerBeReadIsEmpty) {
    TagOnDisk file(Id3v2Builder(4).frame("APIC", pictureFrame(ByteArray(100'000, 7))));
    const auto frame = file.tag.ID3V24Tag()->GetFrameByID("APIC");
    EXPECT_EQ(frame->removeHeader(), ByteArray(100'000, 7));
    file.replaceFile();
    EXPECT_TRUE(frame->removeHeader().empty());
    EXPECT_TRUE(frame->RawData().empty());
    EXPECT_EQ(frame->TextData(), "");
    EXPECT_EQ(frame->createPicture(), nullptr);
}

} // namespace
} // namespace corvane::id3v24frame_test
