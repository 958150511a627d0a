#include "corvane/mpeg/XingHeader.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/MpegBuilder.h"

#include <gtest/gtest.h>

namespace corvane::xingheader_test {
namespace {

using test::MpegFrame;
using test::XingFields;

std::optional<XingHeader> xingOf(const MpegFrame& frame, const XingFields& fields) {
    return readXingHeader(test::xingFrame(frame, fields), HeaderWord(test::headerWord(frame)));
}

// A frame with the Xing header's 16 bytes behind the side information of an MPEG 1 stereo frame.
ByteArray frameWith(std::string_view marker, std::uint32_t flags) {
    return test::ByteBuilder()
        .bytes(test::mpegHeaderBytes({}))
        .repeat(0, 32)
        .text(marker)
        .bigEndian(flags, 4)
        .bigEndian(0x0102'0304, 4)
        .bigEndian(0xA1A2'A3A4, 4)
        .done();
}

std::optional<XingHeader> read(Bytes frame) { return readXingHeader(frame, HeaderWord(test::headerWord({}))); }

struct Case {
    const char* name;
    unsigned version;
    unsigned mode;
    std::size_t offset;
};

class XingOffsetTest : public testing::TestWithParam<Case> {};

TEST_P(XingOffsetTest, StandsBehindTheSideInformation) {
    const MpegFrame frame{.version = GetParam().version, .mode = GetParam().mode};
    EXPECT_EQ(xingOffset(HeaderWord(test::headerWord(frame))), GetParam().offset);
    EXPECT_EQ(xingOf(frame, {.flags = 1, .frames = 77}), (XingHeader{77, std::nullopt}));
}

TEST_P(XingOffsetTest, IsNotMovedByACrc) {
    const MpegFrame frame{.version = GetParam().version, .mode = GetParam().mode, .crc = true};
    EXPECT_EQ(xingOffset(HeaderWord(test::headerWord(frame))), GetParam().offset);
}

INSTANTIATE_TEST_SUITE_P(Frames, XingOffsetTest,
                         testing::Values(Case{"Mpeg1Stereo", 3, 0, 36}, Case{"Mpeg1JointStereo", 3, 1, 36},
                                         Case{"Mpeg1DualChannel", 3, 2, 36}, Case{"Mpeg1SingleChannel", 3, 3, 21},
                                         Case{"Mpeg2Stereo", 2, 0, 21}, Case{"Mpeg2SingleChannel", 2, 3, 13},
                                         Case{"Mpeg25Stereo", 0, 2, 21}, Case{"Mpeg25SingleChannel", 0, 3, 13}),
                         [](const auto& tested) { return tested.param.name; });

TEST(XingHeader, ReadsFrameCountAndAudioSizeByTheirFlags) {
    EXPECT_EQ(read(frameWith("Xing", 3)), (XingHeader{0x0102'0304, static_cast<std::int32_t>(0xA1A2'A3A4)}));
    EXPECT_EQ(read(frameWith("Xing", 1)), (XingHeader{0x0102'0304, std::nullopt}));
    EXPECT_EQ(read(frameWith("Xing", 0)), (XingHeader{}));
}

TEST(XingHeader, OtherFlagsDoNotMatter) {
    EXPECT_EQ(read(frameWith("Xing", 0xFFFF'FFFC)), (XingHeader{}));
    EXPECT_EQ(read(frameWith("Xing", 0xFFFF'FFFD)), (XingHeader{0x0102'0304, std::nullopt}));
}

TEST(XingHeader, TheAudioSizeIsReadOnlyBesideAFrameCountOnPurpose) {
    EXPECT_EQ(read(frameWith("Xing", 2)), (XingHeader{}));
}

TEST(XingHeader, TheMarkerIsCaseSensitiveAndTheOnlyOne) {
    for (const char* marker : {"xing", "XING", "Xinf", "Info", "VBRI", "LAME", "\0\0\0\0"}) {
        EXPECT_FALSE(read(frameWith(std::string_view(marker, 4), 3))) << marker;
    }
}

TEST(XingHeader, NumbersWrapIntoTheSignBit) {
    const auto xing = xingOf({}, {.flags = 3, .frames = 0x8000'0000, .bytes = 0xFFFF'FFFF});
    EXPECT_EQ(xing, (XingHeader{INT32_MIN, -1}));
    EXPECT_EQ(xingOf({}, {.flags = 3, .frames = 0x7FFF'FFFF, .bytes = 0}), (XingHeader{INT32_MAX, 0}));
}

TEST(XingHeader, FewerThanFourteenOfItsBytesAreNone) {
    const ByteArray frame = frameWith("Xing", 3);
    for (std::size_t size = 0; size < 36 + 14; ++size) EXPECT_FALSE(read(Bytes(frame).first(size))) << size;
}

TEST(XingHeader, BytesOfTheAudioSizePastTheEndCountAsZero) {
    const ByteArray frame = frameWith("Xing", 3);
    EXPECT_EQ(read(Bytes(frame).first(36 + 14))->audioSize, static_cast<std::int32_t>(0xA1A2'0000));
    EXPECT_EQ(read(Bytes(frame).first(36 + 15))->audioSize, static_cast<std::int32_t>(0xA1A2'A300));
    EXPECT_EQ(read(Bytes(frame).first(36 + 16))->audioSize, static_cast<std::int32_t>(0xA1A2'A3A4));
}

TEST(XingHeader, NothingBehindItsReachMatters) {
    ByteArray frame = frameWith("Xing", 3);
    ASSERT_EQ(frame.size(), kXingReach);
    const auto xing = read(frame);
    frame.insert(frame.end(), 1000, 0xFF);
    EXPECT_EQ(read(frame), xing);
}

} // namespace
} // namespace corvane::xingheader_test
