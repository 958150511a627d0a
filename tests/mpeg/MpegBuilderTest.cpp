#include "tests/support/MpegBuilder.h"

#include "tests/support/ByteBuilder.h"

#include <gtest/gtest.h>

namespace corvane::mpegbuilder_test {
namespace {

using test::MpegFrame;

TEST(MpegBuilder, TheFrameAsItStandsIsTheUsualOne) {
    EXPECT_EQ(test::mpegHeaderBytes({}), (ByteArray{0xFF, 0xFB, 0x90, 0x00}));
    EXPECT_EQ(test::mpegHeaderBytes({.mode = 1, .modeExtension = 2, .copyright = true, .original = true, .crc = true}),
              (ByteArray{0xFF, 0xFA, 0x90, 0x6C}));
}

struct Case {
    const char* name;
    MpegFrame frame;
    std::size_t size; // bytes
};

class MpegFrameTest : public testing::TestWithParam<Case> {};

TEST_P(MpegFrameTest, HasTheLengthOfTheStandard) {
    EXPECT_EQ(test::mpegFrame(GetParam().frame).size(), GetParam().size);
    EXPECT_EQ(test::mpegStream(GetParam().frame, 3).size(), GetParam().size * 3);
}

INSTANTIATE_TEST_SUITE_P(
    Frames, MpegFrameTest,
    testing::Values(Case{"Mpeg1Layer3", {}, 417}, Case{"Padded", {.padding = true}, 418},
                    Case{"Mpeg2Layer3", {.version = 2, .bitRateIndex = 8}, 208},
                    Case{"Mpeg25Layer3", {.version = 0, .bitRateIndex = 8, .samplingRateIndex = 2}, 576},
                    Case{"Mpeg1Layer2", {.layer = 2, .bitRateIndex = 8, .samplingRateIndex = 1}, 384},
                    Case{"Mpeg2Layer2", {.version = 2, .layer = 2, .bitRateIndex = 8, .samplingRateIndex = 1}, 384},
                    Case{"PaddedMpeg1Layer1", {.layer = 3, .bitRateIndex = 12, .padding = true}, 420},
                    Case{"FreeFormatIsOnlyAHeader", {.bitRateIndex = 0}, 4}),
    [](const auto& tested) { return tested.param.name; });

TEST(MpegBuilder, AXingFrameHasTheFlaggedNumbersInOrder) {
    const ByteArray frame = test::xingFrame({}, {.flags = 3, .frames = 0x01020304, .bytes = 0x05060708});
    EXPECT_EQ(frame.size(), 417U);
    EXPECT_EQ(ByteArray(frame.begin() + 36, frame.begin() + 53),
              test::joined({test::bytesOf("Xing"), ByteArray{0, 0, 0, 3, 1, 2, 3, 4, 5, 6, 7, 8, 0}}));
    const ByteArray bytesOnly = test::xingFrame({}, {.flags = 2, .frames = 9, .bytes = 7});
    EXPECT_EQ(ByteArray(bytesOnly.begin() + 40, bytesOnly.begin() + 52),
              (ByteArray{0, 0, 0, 2, 0, 0, 0, 7, 0, 0, 0, 0}));
}

} // namespace
} // namespace corvane::mpegbuilder_test
