#include "corvane/mpeg/HeaderWord.h"

#include "tests/support/MpegBuilder.h"
#include "tests/support/MpegSearchReference.h"

#include <gtest/gtest.h>

namespace corvane::headerword_test {
namespace {

using test::headerWord;
using test::MpegFrame;

TEST(HeaderWord, EveryFieldIsReadFromItsBits) {
    for (unsigned value = 0; value < 16; ++value) {
        const bool bit = value % 2 != 0;
        const MpegFrame frame{.version = value % 4,
                              .layer = value / 4,
                              .bitRateIndex = value,
                              .samplingRateIndex = 3 - value % 4,
                              .mode = value % 3,
                              .modeExtension = value / 3 % 4,
                              .emphasis = value / 2 % 4,
                              .padding = bit,
                              .privateBit = value > 7,
                              .copyright = !bit,
                              .original = value < 5,
                              .crc = value < 9};
        const HeaderWord header(headerWord(frame));
        EXPECT_EQ(header.frameSync(), 2047U);
        EXPECT_EQ(header.versionId(), frame.version);
        EXPECT_EQ(header.layerId(), frame.layer);
        EXPECT_EQ(header.protectionBit(), !frame.crc);
        EXPECT_EQ(header.bitRateIndex(), frame.bitRateIndex);
        EXPECT_EQ(header.samplingRateIndex(), frame.samplingRateIndex);
        EXPECT_EQ(header.paddingBit(), frame.padding);
        EXPECT_EQ(header.privateBit(), frame.privateBit);
        EXPECT_EQ(header.channelMode(), frame.mode);
        EXPECT_EQ(header.modeExtension(), frame.modeExtension);
        EXPECT_EQ(header.copyrightBit(), frame.copyright);
        EXPECT_EQ(header.originalBit(), frame.original);
        EXPECT_EQ(header.emphasis(), frame.emphasis);
        EXPECT_EQ(header.word(), headerWord(frame));
    }
}

TEST(HeaderWord, EveryBitBelongsToOneField) {
    for (unsigned bit = 0; bit < 32; ++bit) {
        const HeaderWord header(1U << bit);
        const bool flags[] = {header.protectionBit(), header.paddingBit(), header.privateBit(), header.copyrightBit(),
                              header.originalBit()};
        const std::uint32_t numbers[] = {header.frameSync(),         header.versionId(),   header.layerId(),
                                         header.bitRateIndex(),      header.channelMode(), header.modeExtension(),
                                         header.samplingRateIndex(), header.emphasis()};
        const auto set = std::count(std::begin(flags), std::end(flags), true) +
                         std::count_if(std::begin(numbers), std::end(numbers), [](auto field) { return field != 0; });
        EXPECT_EQ(set, 1) << "bit " << bit;
    }
}

TEST(HeaderWord, TheWordZeroHasOnlyZeroFields) {
    const HeaderWord header;
    EXPECT_EQ(header.word(), 0U);
    EXPECT_EQ(header.frameSync(), 0U);
    EXPECT_FALSE(header.protectionBit());
}

struct Case {
    const char* name;
    std::uint32_t word;
    bool accepted;
};

class IsFrameHeaderTest : public testing::TestWithParam<Case> {};

TEST_P(IsFrameHeaderTest, AcceptsExactlyTheListedWords) {
    EXPECT_EQ(IsFrameHeader(GetParam().word), GetParam().accepted);
}

INSTANTIATE_TEST_SUITE_P(
    Words, IsFrameHeaderTest,
    testing::Values(Case{"Mpeg1Layer3At128", 0xFFFB'9064, true}, Case{"Mpeg1Layer2", headerWord({.layer = 2}), true},
                    Case{"Mpeg1Layer1", headerWord({.layer = 3}), true},
                    Case{"Mpeg2Layer3", headerWord({.version = 2}), true},
                    Case{"Mpeg25Layer3", headerWord({.version = 0}), true},
                    Case{"WithCrc", headerWord({.crc = true}), true},
                    Case{"EmphasisOne", headerWord({.emphasis = 1}), true},
                    Case{"EmphasisThree", headerWord({.emphasis = 3}), true}, Case{"Zero", 0, false},
                    Case{"AllOnes", 0xFFFF'FFFF, false}, Case{"SyncWithoutItsTopBit", 0x7FFB'9064, false},
                    Case{"SyncWithoutItsLowBit", 0xFFDB'9064, false}, Case{"ForbiddenBitRateIndex", 0xFFFB'F064, false},
                    Case{"ReservedVersion", headerWord({.version = 1}), false},
                    Case{"FreeFormat", headerWord({.bitRateIndex = 0}), false},
                    Case{"ReservedLayer", headerWord({.layer = 0}), false},
                    Case{"ReservedSamplingRateIndex", headerWord({.samplingRateIndex = 3}), false},
                    Case{"ReservedEmphasis", headerWord({.emphasis = 2}), false}),
    [](const auto& tested) { return tested.param.name; });

TEST(IsFrameHeader, RefusesBitRateIndex14OfMpeg1OnPurpose) {
    for (const unsigned layer : {1U, 2U, 3U}) {
        EXPECT_FALSE(IsFrameHeader(headerWord({.layer = layer, .bitRateIndex = 14})));
        EXPECT_TRUE(IsFrameHeader(headerWord({.version = 2, .layer = layer, .bitRateIndex = 14})));
        EXPECT_TRUE(IsFrameHeader(headerWord({.version = 0, .layer = layer, .bitRateIndex = 14})));
    }
}

TEST(IsFrameHeader, RefusesBitRateIndex2OfMpeg1And2OnPurpose) {
    for (const unsigned layer : {1U, 2U, 3U}) {
        EXPECT_FALSE(IsFrameHeader(headerWord({.layer = layer, .bitRateIndex = 2})));
        EXPECT_FALSE(IsFrameHeader(headerWord({.version = 2, .layer = layer, .bitRateIndex = 2})));
        EXPECT_TRUE(IsFrameHeader(headerWord({.version = 0, .layer = layer, .bitRateIndex = 2})));
    }
}

TEST(IsFrameHeader, FollowsTheRuleForEveryWordBehindASync) {
    std::uint32_t differences = 0;
    for (std::uint32_t low = 0; low < 1U << 21; ++low) {
        const std::uint32_t word = 0xFFE0'0000 | low;
        differences += IsFrameHeader(word) != test::referenceIsFrameHeader(word) ? 1 : 0;
    }
    EXPECT_EQ(differences, 0U);
}

TEST(IsFrameHeader, RefusesEveryOtherSync) {
    for (std::uint32_t sync = 0; sync < 2047; ++sync) EXPECT_FALSE(IsFrameHeader(sync << 21 | 0x1B'9064)) << sync;
}

} // namespace
} // namespace corvane::headerword_test
