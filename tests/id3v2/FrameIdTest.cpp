#include "corvane/id3v2/FrameId.h"

#include <gtest/gtest.h>

namespace corvane::frameid_test {
namespace {

TEST(FrameId, NamesTheFrameThatItsTextSays) {
    EXPECT_EQ(FrameId::named("TIT2"), FrameId("TIT2"));
    EXPECT_EQ(FrameId::named("TT2"), FrameId("TT2"));
    EXPECT_EQ(FrameId("TIT2").text(), "TIT2");
    EXPECT_EQ(FrameId("TT2").text(), "TT2");
}

TEST(FrameId, ACharacterIsOneByteOfIso88591) {
    const auto id = FrameId::named("T\u00E9\u0080x");
    ASSERT_TRUE(id);
    EXPECT_EQ(id->code, 0x54E98078U);
    EXPECT_EQ(id->text(), "T\u00E9\u0080x");
}

TEST(FrameId, WhatCannotBeAnIdNamesNothing) {
    for (const std::string_view text : {"", "T", "TT", "TIT2X", "TIT2;TPE1", "T\u20ACT2"}) {
        EXPECT_FALSE(FrameId::named(text)) << text;
    }
    EXPECT_FALSE(FrameId::named(std::string_view("\0TT2", 4)));
}

TEST(FrameId, ThreeCharactersAreNeverEqualToFour) { EXPECT_NE(FrameId("TT2"), FrameId("TT2 ")); }

TEST(FrameId, TheFirstCharacterIsThatOfTheText) {
    EXPECT_EQ(FrameId("TIT2").first(), 'T');
    EXPECT_EQ(FrameId("COM").first(), 'C');
}

TEST(FrameId, OnlyBlanksAreBlank) {
    EXPECT_TRUE(FrameId("    ").isBlank());
    EXPECT_TRUE(FrameId("   ").isBlank());
    EXPECT_FALSE(FrameId("   A").isBlank());
    EXPECT_FALSE(FrameId("TT2").isBlank());
}

} // namespace
} // namespace corvane::frameid_test
