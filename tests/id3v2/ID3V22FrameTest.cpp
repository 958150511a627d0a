#include "corvane/id3v2/ID3V22Frame.h"

#include "tests/id3v2/TagOnDisk.h"

#include <gtest/gtest.h>

namespace corvane::id3v22frame_test {
namespace {

using namespace test;

std::shared_ptr<ID3V22Frame> frameOf(std::string_view id, Bytes data) {
    TagOnDisk file(Id3v2Builder(2).frame(id, data));
    return file.tag.ID3V22Tag()->GetFrameByIndex(1); // outlives the tag and the file
}

TEST(ID3V22Frame, GivesItsIdPayloadAndText) {
    const auto frame = frameOf("TT2", textFrame("abcd"));
    EXPECT_EQ(frame->ID(), "TT2");
    EXPECT_EQ(frame->RawData(), textFrame("abcd"));
    EXPECT_EQ(frame->TextData(), "abcd");
    EXPECT_EQ(frameOf("COM", commentFrame("", "text"))->TextData(), "");
}

struct Predicate {
    const char* name;
    const char* id;
    bool (ID3V22Frame::*holds)() const;
};
constexpr std::array<Predicate, 5> kPredicates{{{"IsArtist", "TP1", &ID3V22Frame::IsArtist},
                                                {"IsAlbum", "TAL", &ID3V22Frame::IsAlbum},
                                                {"IsTitle", "TT2", &ID3V22Frame::IsTitle},
                                                {"IsGenre", "TCO", &ID3V22Frame::IsGenre},
                                                {"IsYear", "TYE", &ID3V22Frame::IsYear}}};
class PredicateOfID3V22Frame : public testing::TestWithParam<Predicate> {};
TEST_P(PredicateOfID3V22Frame, HoldsForItsIdOnly) {
    for (const Predicate& other : kPredicates) {
        EXPECT_EQ((*frameOf(other.id, textFrame("x")).*GetParam().holds)(), other.id == GetParam().id) << other.id;
    }
    EXPECT_FALSE((*frameOf("TRK", textFrame("x")).*GetParam().holds)());
}
INSTANTIATE_TEST_SUITE_P(All, PredicateOfID3V22Frame, testing::ValuesIn(kPredicates),
                         [](const auto& tested) { return tested.param.name; });

TEST(ID3V22Frame, WhatCanNoLongerBeReadIsEmpty) {
    TagOnDisk file(Id3v2Builder(2).frame("PIC", ByteArray(100'000, 7)));
    const auto frame = file.tag.ID3V22Tag()->GetFrameByID("PIC");
    EXPECT_EQ(frame->RawData(), ByteArray(100'000, 7));
    file.replaceFile();
    EXPECT_TRUE(frame->RawData().empty());
}

} // namespace
} // namespace corvane::id3v22frame_test
