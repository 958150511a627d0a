#include "corvane/id3v2/ByteHelpers.h"

#include "corvane/platform/Picture.h"
#include "corvane/platform/RuntimeFailure.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/ImageBuilder.h"

#include <gtest/gtest.h>

#include <limits>

namespace corvane::bytehelpers_test {
namespace {

using test::bytesOf;

constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();

struct ShiftCase {
    const char* name;
    std::int32_t value;
    std::int16_t bits;
    std::int32_t expected;
};
class ShiftLeftRule : public testing::TestWithParam<ShiftCase> {};
TEST_P(ShiftLeftRule, MultipliesByAPowerOfTwo) {
    EXPECT_EQ(ShiftLeft(GetParam().value, GetParam().bits), GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(
    Values, ShiftLeftRule,
    testing::Values(ShiftCase{"ByNothing", 5, 0, 5}, ShiftCase{"ByEight", 0x123456, 8, 0x12345600},
                    ShiftCase{"OfANegative", -3, 4, -48}, ShiftCase{"LargestThatFits", 0x3FFFFFFF, 1, 0x7FFFFFFE},
                    ShiftCase{"OverflowIsZero", 0x40000000, 1, 0}, ShiftCase{"SmallestThatFits", -1, 31, kLeast},
                    ShiftCase{"NegativeOverflowIsZero", kLeast, 1, 0}, ShiftCase{"FarOverflowIsZero", 1, 32, 0},
                    ShiftCase{"FartherOverflowIsZero", kMost, 32767, 0}, ShiftCase{"ZeroStaysZero", 0, 32767, 0},
                    ShiftCase{"RightRoundsDown", 5, -2, 1}, ShiftCase{"RightRoundsUp", 7, -2, 2},
                    ShiftCase{"HalfGoesToEven", 2, -2, 0}, ShiftCase{"HalfGoesUpToEven", 6, -2, 2},
                    ShiftCase{"NegativeHalfGoesToEven", -6, -2, -2}, ShiftCase{"RightOfLeast", kLeast, -31, -1},
                    ShiftCase{"FarRightIsZero", kMost, -32768, 0}),
    [](const auto& tested) { return tested.param.name; });

TEST(SynchsafeToLong, TakesGroupsOfSevenBits) {
    EXPECT_EQ(SynchsafeToLong(bytesOf(std::string_view("\0\0\2\1", 4))), 257);
    EXPECT_EQ(SynchsafeToLong(bytesOf("\x7F\x7F\x7F\x7F")), 0xFFFFFFF);
}

TEST(SynchsafeToLong, NothingIsZero) { EXPECT_EQ(SynchsafeToLong({}), 0); }

TEST(SynchsafeToLong, BitSevenIsNotMaskedOff) {
    EXPECT_EQ(SynchsafeToLong(bytesOf(std::string_view("\0\0\0\x80", 4))), 128);
    EXPECT_EQ(SynchsafeToLong(bytesOf("\x01\xFF")), 128 + 255);
    EXPECT_EQ(SynchsafeToLong(bytesOf("\xFF\xFF\xFF\xFF")), 538'984'575);
}

TEST(SynchsafeToLong, AShiftThatOverflowsGivesZero) { EXPECT_EQ(SynchsafeToLong(bytesOf("\x7F\x7F\x7F\x7F\x05")), 5); }

TEST(SynchsafeToLong, ASumThatOverflowsIsAFailure) {
    EXPECT_THROW(SynchsafeToLong(bytesOf("\x07\x7F\x7F\x7F\xFF")), RuntimeFailure);
}

TEST(BytesToLong, IsBigEndian) {
    const ByteArray bytes = bytesOf("\x01\x02\x03\x04\x05");
    EXPECT_EQ(BytesToLong(bytes, 0, 4), 0x01020304);
    EXPECT_EQ(BytesToLong(bytes, 1, 4), 0x02030405);
    EXPECT_EQ(BytesToLong(bytes, 2, 3), 0x030405);
    EXPECT_EQ(BytesToLong(bytes, 4, 1), 5);
}

TEST(BytesToLong, IsZeroWhenAByteLiesOutside) {
    const ByteArray bytes = bytesOf("\x01\x02\x03\x04\x05");
    EXPECT_EQ(BytesToLong(bytes, 2, 4), 0);
    EXPECT_EQ(BytesToLong(bytes, 5, 1), 0);
    EXPECT_EQ(BytesToLong(bytes, kMost, kMost), 0);
    EXPECT_EQ(BytesToLong(bytes, -1, 2), 0);
    EXPECT_EQ(BytesToLong({}, 0, 1), 0);
}

TEST(BytesToLong, IsZeroForACountBelowOne) {
    EXPECT_EQ(BytesToLong(bytesOf("\x01"), 0, 0), 0);
    EXPECT_EQ(BytesToLong(bytesOf("\x01"), 0, -1), 0);
}

TEST(BytesToLong, AShiftThatOverflowsLeavesTheLastByteOnly) {
    EXPECT_EQ(BytesToLong(bytesOf(std::string_view("\x80\0\0\x05", 4)), 0, 4), 5);
    EXPECT_EQ(BytesToLong(bytesOf("\xFF\xFF\xFF\xFF"), 0, 4), 255);
    EXPECT_EQ(BytesToLong(bytesOf("\x7F\xFF\xFF\xFF"), 0, 4), kMost);
}

TEST(BytesToString, IsOneCharacterPerByte) {
    EXPECT_EQ(BytesToString(bytesOf("A\x80\xE9"), 0, 3), "A\u0080\u00E9");
    EXPECT_EQ(BytesToString(bytesOf("abcdef"), 2, 3), "cde");
}

TEST(BytesToString, GoesToTheEndWithoutACount) {
    EXPECT_EQ(BytesToString(bytesOf("abcdef"), 2, 0), "cdef");
    EXPECT_EQ(BytesToString(bytesOf("abcdef"), 2, -5), "cdef");
}

TEST(BytesToString, WhatLiesOutsideGivesNothing) {
    EXPECT_EQ(BytesToString(bytesOf("abc"), 1, 100), "bc");
    EXPECT_EQ(BytesToString(bytesOf("abc"), 3, 1), "");
    EXPECT_EQ(BytesToString(bytesOf("abc"), kMost, kMost), "");
}

TEST(AnsiBytesToString, TakesEveryByteFromTheCodePage) {
    EXPECT_EQ(AnsiBytesToString(bytesOf("\x80\xE9")), "\u20AC\u00E9");
    EXPECT_EQ(AnsiBytesToString(bytesOf(std::string_view("a\0b", 3))), std::string("a\0b", 3));
    EXPECT_EQ(AnsiBytesToString({}), "");
}

TEST(LfToCrLf, ReplacesEveryLineFeed) {
    EXPECT_EQ(LfToCrLf("a\nb\n"), "a\r\nb\r\n");
    EXPECT_EQ(LfToCrLf(""), "");
}

TEST(LfToCrLf, ReplacesALineFeedThatHasItsCarriageReturn) { EXPECT_EQ(LfToCrLf("a\r\nb"), "a\r\r\nb"); }

TEST(PictureFromBytes, TakesTheFourKindsOfImages) {
    for (const ByteArray& image :
         {test::jpegImage(2, 3), test::pngImage(2, 3), test::gifImage(2, 3), test::bmpImage(2, 3)}) {
        const auto picture = PictureFromBytes(image);
        ASSERT_NE(picture, nullptr);
        EXPECT_EQ(picture->height(), 3);
        EXPECT_NE(picture->handle(), 0);
    }
}

TEST(PictureFromBytes, IsNothingForAnythingElse) {
    EXPECT_EQ(PictureFromBytes({}), nullptr);
    EXPECT_EQ(PictureFromBytes(bytesOf("no image")), nullptr);
}

struct UtfCase {
    const char* name;
    ByteArray bytes;
    std::string expected;
};
class Utf16Rule : public testing::TestWithParam<UtfCase> {};
TEST_P(Utf16Rule, DecodesPairs) { EXPECT_EQ(Utf16BytesToString(GetParam().bytes), GetParam().expected); }
INSTANTIATE_TEST_SUITE_P(
    Values, Utf16Rule,
    testing::Values(UtfCase{"Nothing", {}, ""}, UtfCase{"LittleEndianMark", {0xFF, 0xFE, 0x41, 0, 0x42, 0}, "AB"},
                    UtfCase{"BigEndianMark", {0xFE, 0xFF, 0, 0x41}, "A"},
                    UtfCase{"LittleEndianWithoutAMark", {0x41, 0}, "A"},
                    UtfCase{"ATrailingOddByteIsIgnored", {0x41, 0, 0x42}, "A"}, UtfCase{"OneByteIsNothing", {0x41}, ""},
                    UtfCase{"AMarkInTheMiddleSwitches", {0x41, 0, 0xFE, 0xFF, 0, 0x42, 0xFF, 0xFE, 0x43, 0}, "ABC"},
                    UtfCase{"ZerosAreCharacters", {0, 0, 0x41, 0}, std::string("\0A", 2)},
                    UtfCase{"APairOfUnits", {0x3D, 0xD8, 0x00, 0xDE}, "\U0001F600"},
                    UtfCase{"AMarkBetweenTheHalvesOfAPair", {0x3D, 0xD8, 0xFF, 0xFE, 0x00, 0xDE}, "\U0001F600"},
                    UtfCase{"HalfOfNoPair", {0x3D, 0xD8, 0x41, 0, 0x00, 0xDE}, "\uFFFDA\uFFFD"}),
    [](const auto& tested) { return tested.param.name; });

} // namespace
} // namespace corvane::bytehelpers_test
