#include "corvane/mpeg/MPEGHeader.h"

#include "tests/mpeg/MPEGHeaderFixture.h"
#include "tests/support/ByteBuilder.h"
#include "tests/support/MpegBuilder.h"

#include <gtest/gtest.h>

namespace corvane::mpegheader_test {
namespace {

using test::ByteBuilder;
using test::MpegFrame;
using test::mpegFrame;
using test::xingFrame;
using Inside = Internals<MPEGHeader>;

static_assert(sizeof(MPEGHeader) <= 64, "a library of many files keeps many of these");

using MPEGHeaderTest = test::MpegHeaderFixture;

TEST_F(MPEGHeaderTest, AnObjectThatWasNeverLoadedAnswersAsTheZeroHeader) {
    EXPECT_EQ(header_.Version(), "MPEG 2.5");
    EXPECT_EQ(header_.VersionID(), 0);
    EXPECT_EQ(header_.Layer(), "Reserved");
    EXPECT_EQ(header_.LayerID(), 0);
    EXPECT_EQ(header_.Mode(), "Stereo");
    EXPECT_EQ(header_.ModeID(), 0);
    EXPECT_EQ(header_.BitRate(), 0);
    EXPECT_EQ(header_.Frequency(), 32000);
    EXPECT_EQ(header_.Duration(), 0);
    EXPECT_TRUE(header_.CRC());
    EXPECT_FALSE(header_.Copyright());
    EXPECT_FALSE(header_.Original());
    EXPECT_FALSE(header_.VBR());
    EXPECT_EQ(header_.AudioSize(), 0);
    EXPECT_EQ(header_.FrameSize(), 0);
    EXPECT_EQ(header_.Emphasis(), "");
    EXPECT_EQ(header_.EmphasisID(), 0);
    EXPECT_EQ(header_.FileSize(), 0);
    EXPECT_FALSE(header_.PaddingBit());
    EXPECT_FALSE(header_.PrivateBit());
    EXPECT_FALSE(header_.ProtectionBit());
    EXPECT_EQ(header_.NumFrames(), 0);
    EXPECT_EQ(record().Stream(), "0, , ");
}

TEST_F(MPEGHeaderTest, EveryPropertyTellsOfTheFirstFrame) {
    const MpegFrame frame{.version = 2,
                          .layer = 2,
                          .bitRateIndex = 8,
                          .samplingRateIndex = 1,
                          .mode = 2,
                          .emphasis = 3,
                          .padding = true,
                          .privateBit = true,
                          .copyright = true,
                          .original = true,
                          .crc = true};
    ASSERT_TRUE(load(test::joined({ByteArray(10), test::mpegStream(frame, 100)})));
    EXPECT_EQ(Inside::headerPosition(header_), 11);
    EXPECT_EQ(header_.Version(), "MPEG 2.0");
    EXPECT_EQ(header_.VersionID(), 2);
    EXPECT_EQ(header_.Layer(), "2");
    EXPECT_EQ(header_.LayerID(), 2);
    EXPECT_EQ(header_.Mode(), "Dual Channel");
    EXPECT_EQ(header_.ModeID(), 2);
    EXPECT_EQ(header_.BitRate(), 64);
    EXPECT_EQ(header_.Frequency(), 24000);
    EXPECT_EQ(header_.FileSize(), 10 + 100 * 385);
    EXPECT_EQ(header_.AudioSize(), 100 * 385 - 2);
    EXPECT_EQ(header_.Duration(), 4); // 4812.25 ms
    EXPECT_EQ(header_.FrameSize(), 385);
    EXPECT_EQ(header_.NumFrames(), 99);
    EXPECT_TRUE(header_.CRC());
    EXPECT_FALSE(header_.ProtectionBit());
    EXPECT_TRUE(header_.Copyright());
    EXPECT_TRUE(header_.Original());
    EXPECT_FALSE(header_.VBR());
    EXPECT_EQ(header_.Emphasis(), "CCITT j.17");
    EXPECT_EQ(header_.EmphasisID(), 3);
    EXPECT_TRUE(header_.PaddingBit());
    EXPECT_TRUE(header_.PrivateBit());
}

TEST_F(MPEGHeaderTest, EveryFlagFollowsItsOwnBit) {
    ASSERT_TRUE(load(mpegFrame({.padding = true})));
    EXPECT_TRUE(header_.PaddingBit());
    EXPECT_FALSE(header_.PrivateBit() || header_.Copyright() || header_.Original() || header_.CRC());
    ASSERT_TRUE(load(mpegFrame({.privateBit = true})));
    EXPECT_TRUE(header_.PrivateBit());
    EXPECT_FALSE(header_.PaddingBit() || header_.Copyright() || header_.Original() || header_.CRC());
    ASSERT_TRUE(load(mpegFrame({.copyright = true})));
    EXPECT_TRUE(header_.Copyright());
    EXPECT_FALSE(header_.PaddingBit() || header_.PrivateBit() || header_.Original() || header_.CRC());
    ASSERT_TRUE(load(mpegFrame({.original = true})));
    EXPECT_TRUE(header_.Original());
    EXPECT_FALSE(header_.PaddingBit() || header_.PrivateBit() || header_.Copyright() || header_.CRC());
    ASSERT_TRUE(load(mpegFrame({.crc = true})));
    EXPECT_TRUE(header_.CRC());
    EXPECT_FALSE(header_.PaddingBit() || header_.PrivateBit() || header_.Copyright() || header_.ProtectionBit());
}

TEST_F(MPEGHeaderTest, VersionsLayersAndModesHaveTheirNames) {
    ASSERT_TRUE(load(mpegFrame({.version = 0, .layer = 1, .mode = 1})));
    EXPECT_EQ(header_.Version() + header_.Layer() + header_.Mode(), "MPEG 2.53Joint Stereo");
    ASSERT_TRUE(load(mpegFrame({.version = 3, .layer = 3, .mode = 3})));
    EXPECT_EQ(header_.Version() + header_.Layer() + header_.Mode(), "MPEG 1.01Single Channel");
}

TEST_F(MPEGHeaderTest, A320KbpsFrameIsNotFoundUnlessALaterPatternPasses) {
    const MpegFrame refused{.bitRateIndex = 14};
    const ByteArray stream = test::mpegStream(refused, 10);
    EXPECT_FALSE(load(stream));
    EXPECT_EQ(Inside::headerPosition(header_), 0);
    EXPECT_TRUE(load(test::joined({stream, mpegFrame({})})));
    EXPECT_EQ(Inside::headerPosition(header_), static_cast<std::int32_t>(stream.size()) + 1);
    EXPECT_EQ(header_.BitRate(), 128);
}

TEST_F(MPEGHeaderTest, A128KbpsFrameHas417BytesAnd418WithPadding) {
    ASSERT_TRUE(load(mpegFrame({})));
    EXPECT_EQ(header_.FrameSize(), 417);
    ASSERT_TRUE(load(mpegFrame({.padding = true})));
    EXPECT_EQ(header_.FrameSize(), 418);
}

TEST_F(MPEGHeaderTest, AudioSizeIsTwoLessThanTheBytesFromTheFrameOnPurpose) {
    ASSERT_TRUE(loadSparse(mpegFrame({}), 4'000'000));
    EXPECT_EQ(header_.FileSize(), 4'000'000);
    EXPECT_EQ(header_.AudioSize(), 3'999'998);
    EXPECT_EQ(header_.Duration(), 250);
    EXPECT_EQ(header_.NumFrames(), 3'999'998 / 417);
}

TEST_F(MPEGHeaderTest, TagsAtTheEndCountAsAudio) {
    const ByteArray tag = ByteBuilder().text("TAG").padTo(128).done();
    ASSERT_TRUE(load(test::joined({test::mpegStream({}, 2), tag})));
    EXPECT_EQ(header_.AudioSize(), 2 * 417 + 128 - 2);
}

TEST_F(MPEGHeaderTest, AXingHeaderGivesFrameCountAudioSizeAndAverages) {
    ASSERT_TRUE(load(xingFrame({}, {.flags = 3, .frames = 1000, .bytes = 417'500})));
    EXPECT_TRUE(header_.VBR());
    EXPECT_EQ(header_.NumFrames(), 1000);
    EXPECT_EQ(header_.AudioSize(), 417'500);
    EXPECT_EQ(header_.BitRate(), 127);   // 127.859375, rounded down
    EXPECT_EQ(header_.Duration(), 26);   // 26122.4 ms, from the bit rate that is not rounded
    EXPECT_EQ(header_.FrameSize(), 418); // 417.5, to even
    EXPECT_EQ(header_.FileSize(), 417);
}

TEST_F(MPEGHeaderTest, AXingFrameCountAloneDividesTheSizeOfTheFile) {
    ASSERT_TRUE(loadSparse(xingFrame({}, {.flags = 1, .frames = 100}), 40'052));
    EXPECT_EQ(header_.AudioSize(), 40'050);
    EXPECT_EQ(header_.NumFrames(), 100);
    EXPECT_EQ(header_.FrameSize(), 400); // 400.5, to even
    EXPECT_EQ(header_.BitRate(), 122);
}

TEST_F(MPEGHeaderTest, AXingHeaderWithBytesOnlyKnowsNoBitRate) {
    ASSERT_TRUE(load(xingFrame({}, {.flags = 2, .bytes = 1'000'000})));
    EXPECT_TRUE(header_.VBR());
    EXPECT_EQ(header_.AudioSize(), 417 - 2); // the bytes are not read without a frame count
    EXPECT_EQ(header_.BitRate(), -1);
    EXPECT_EQ(header_.Duration(), -1);
    EXPECT_EQ(header_.FrameSize(), 0);
    EXPECT_EQ(header_.NumFrames(), 0);
}

TEST_F(MPEGHeaderTest, AXingHeaderWithBytesOnlyAndPaddingCountsFramesOfOneByte) {
    ASSERT_TRUE(load(xingFrame({.padding = true}, {.flags = 2, .bytes = 1'000'000})));
    EXPECT_EQ(header_.FrameSize(), 1);
    EXPECT_EQ(header_.NumFrames(), 418 - 2);
}

TEST_F(MPEGHeaderTest, AXingFrameCountBelowOneKnowsNoBitRate) {
    for (const std::uint32_t frames : {0U, 0x8000'0000U, 0xFFFF'FFFFU}) {
        MPEGHeader fresh;
        FileReader file(folder_.write("f", xingFrame({}, {.flags = 3, .frames = frames, .bytes = 5000})));
        ASSERT_TRUE(Inside::LoadHeaderEx(fresh, file, 1)) << frames;
        EXPECT_TRUE(fresh.VBR());
        EXPECT_EQ(fresh.AudioSize(), 5000);
        EXPECT_EQ(fresh.BitRate(), -1);
        EXPECT_EQ(fresh.Duration(), -1);
        EXPECT_EQ(fresh.FrameSize(), 0);
        EXPECT_EQ(fresh.NumFrames(), 0);
    }
}

TEST_F(MPEGHeaderTest, AXingAudioSizeAbove31BitsComesOutNegative) {
    ASSERT_TRUE(load(xingFrame({}, {.flags = 3, .frames = 1000, .bytes = 0xFFFF'FF38})));
    EXPECT_EQ(header_.AudioSize(), -200);
    EXPECT_EQ(header_.BitRate(), -1); // -0.06, rounded down
    EXPECT_EQ(header_.Duration(), -1);
    EXPECT_EQ(header_.FrameSize(), 0);
    EXPECT_EQ(header_.NumFrames(), 1000);
}

TEST_F(MPEGHeaderTest, AFrameBehindJunkCanHaveAXingHeader) {
    for (const std::size_t junk : {1U, 4000U, 4044U, 4045U, 4060U, 4093U, 5000U, 15'000U}) {
        const ByteArray file =
            test::joined({ByteArray(junk), xingFrame({}, {.flags = 3, .frames = 7, .bytes = 2919}), ByteArray(2500)});
        MPEGHeader fresh;
        FileReader reader(folder_.write("f", file));
        ASSERT_TRUE(Inside::LoadHeaderEx(fresh, reader, 1)) << junk;
        EXPECT_EQ(Inside::headerPosition(fresh), static_cast<std::int32_t>(junk) + 1);
        EXPECT_EQ(fresh.NumFrames(), 7) << junk;
        EXPECT_EQ(fresh.FrameSize(), 417) << junk;
    }
}

TEST_F(MPEGHeaderTest, EveryShorterPrefixOfAXingFileIsReadAsRuled) {
    const ByteArray file = xingFrame({}, {.flags = 3, .frames = 2, .bytes = 0x0000'0340});
    for (std::size_t size = 0; size <= 100; ++size) {
        MPEGHeader fresh;
        FileReader reader(folder_.write("f", Bytes(file).first(size)));
        EXPECT_EQ(Inside::LoadHeaderEx(fresh, reader, 1), size >= 6) << size;
        EXPECT_EQ(fresh.VBR(), size >= 50) << size;
        EXPECT_EQ(Inside::ErrorRecord(fresh)->Severity, cError::kNone) << size;
        if (size >= 52) {
            EXPECT_EQ(fresh.AudioSize(), 0x340) << size;
        }
    }
}

TEST_F(MPEGHeaderTest, Mpeg25FrequenciesDifferFromTheExtensionOnPurpose) {
    ASSERT_TRUE(load(mpegFrame({.version = 0})));
    EXPECT_EQ(header_.Version(), "MPEG 2.5");
    EXPECT_EQ(header_.Frequency(), 32000);
    EXPECT_EQ(header_.BitRate(), 80);
}

TEST_F(MPEGHeaderTest, EmphasisOneIsUnknownAndEmphasisTwoIsNeverFound) {
    ASSERT_TRUE(load(mpegFrame({.emphasis = 1})));
    EXPECT_EQ(header_.Emphasis(), "Unknown");
    EXPECT_EQ(header_.EmphasisID(), 1);
    EXPECT_FALSE(load(mpegFrame({.emphasis = 2})));
    ASSERT_TRUE(load(mpegFrame({.emphasis = 0})));
    EXPECT_EQ(header_.Emphasis(), "None");
}

TEST_F(MPEGHeaderTest, AFileOfAtMostStartPlusFourBytesHasNoHeader) {
    const ByteArray frame = mpegFrame({});
    EXPECT_FALSE(load(Bytes(frame).first(5)));
    EXPECT_TRUE(load(Bytes(frame).first(6)));
    const ByteArray behindTag = test::joined({ByteArray(20), frame});
    EXPECT_FALSE(load(Bytes(behindTag).first(25), 21));
    EXPECT_TRUE(load(Bytes(behindTag).first(26), 21));
    EXPECT_FALSE(load({}));
}

TEST_F(MPEGHeaderTest, TheSearchStartsAtTheGivenPosition) {
    const ByteArray stream = test::joined({mpegFrame({}), mpegFrame({.bitRateIndex = 5}), ByteArray(2)});
    ASSERT_TRUE(load(stream, 1));
    EXPECT_EQ(header_.BitRate(), 128);
    ASSERT_TRUE(load(stream, 2));
    EXPECT_EQ(header_.BitRate(), 64);
    EXPECT_EQ(Inside::headerPosition(header_), 418);
    EXPECT_EQ(header_.AudioSize(), static_cast<std::int32_t>(stream.size()) - 418 - 1);
}

TEST_F(MPEGHeaderTest, TheXingHeaderOfAnEarlierFileIsKeptOnPurpose) {
    ASSERT_TRUE(load(xingFrame({}, {.flags = 3, .frames = 10, .bytes = 4170})));
    ASSERT_TRUE(load(test::mpegStream({}, 20)));
    EXPECT_TRUE(header_.VBR());
    EXPECT_EQ(header_.NumFrames(), 10);
    EXPECT_EQ(header_.AudioSize(), 20 * 417 - 2);
    EXPECT_EQ(header_.FrameSize(), 834);
    EXPECT_EQ(header_.BitRate(), 255);
}

TEST_F(MPEGHeaderTest, AXingHeaderWithoutAFrameCountKeepsTheEarlierCountOnPurpose) {
    ASSERT_TRUE(load(xingFrame({}, {.flags = 1, .frames = 10})));
    ASSERT_TRUE(load(xingFrame({}, {.flags = 0})));
    EXPECT_EQ(header_.NumFrames(), 10);
}

} // namespace
} // namespace corvane::mpegheader_test
