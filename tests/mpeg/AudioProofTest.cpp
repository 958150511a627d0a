// Whether a file holds MPEG audio, by the published standards.
#include "corvane/mpeg/AudioProof.h"

#include "corvane/platform/FileReader.h"

#include "tests/support/MpegBuilder.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

namespace corvane::audioproof_test {
namespace {

using test::MpegFrame;
using test::mpegStream;

ByteArray joined(std::initializer_list<Bytes> parts) {
    ByteArray all;
    for (const Bytes part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
}

Bytes textBytes(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}; // NOLINT: characters are bytes
}

// Free format: frames of one size that no header states.
ByteArray freeFormat(MpegFrame frame, std::size_t size, std::size_t count) {
    frame.bitRateIndex = 0;
    ByteArray one = test::mpegHeaderBytes(frame);
    one.resize(size);
    ByteArray all;
    for (std::size_t i = 0; i < count; ++i) all.insert(all.end(), one.begin(), one.end());
    return all;
}

TEST(AudioProof, everyVersionLayerAndBitRateOfTheStandardsIsProven) {
    int streams = 0;
    for (const unsigned version : {0U, 2U, 3U}) {
        for (unsigned layer = 1; layer <= 3; ++layer) {
            for (unsigned bitRate = 1; bitRate <= 14; ++bitRate) {
                for (unsigned rate = 0; rate <= 2; ++rate) {
                    const MpegFrame frame{
                        .version = version, .layer = layer, .bitRateIndex = bitRate, .samplingRateIndex = rate};
                    const HeaderWord header(headerWord(frame));
                    ASSERT_TRUE(isStandardFrameHeader(header));
                    ASSERT_EQ(standardFrameSize(header), test::standardFrameSize(frame)) << std::hex << header.word();
                    EXPECT_EQ(findProvenFrame(mpegStream(frame, 2)), 0U) << std::hex << header.word();
                    ++streams;
                }
            }
        }
    }
    EXPECT_EQ(streams, 3 * 3 * 14 * 3);
}

TEST(AudioProof, streamOf320KbitIsProven) { EXPECT_EQ(findProvenFrame(mpegStream({.bitRateIndex = 14}, 3)), 0U); }

TEST(AudioProof, freeFormatIsProvenByThreeFramesOfOneSize) {
    for (unsigned layer = 1; layer <= 3; ++layer) {
        for (const bool padding : {false, true}) {
            const MpegFrame frame{.layer = layer, .padding = padding};
            EXPECT_EQ(findProvenFrame(freeFormat(frame, 1044, 3)), 0U) << layer;
            EXPECT_EQ(findProvenFrame(freeFormat(frame, 1044, 20)), 0U) << layer;
            EXPECT_EQ(findProvenFrame(freeFormat(frame, 1044, 2)), std::nullopt) << layer;
        }
    }
}

TEST(AudioProof, framesOfFreeFormatDifferByTheirPadding) {
    ByteArray stream;
    for (const bool padding : {false, true, true, false}) {
        stream = joined({stream, freeFormat({.padding = padding}, padding ? 501 : 500, 1)});
    }
    EXPECT_EQ(findProvenFrame(stream), 0U);
}

TEST(AudioProof, frameWithoutASecondIsProvenByTheEndOfTheAudio) {
    const ByteArray one = mpegStream({}, 1);
    ByteArray record(128);
    std::ranges::copy(std::string_view("TAG"), record.begin());
    EXPECT_EQ(findProvenFrame(one), 0U);
    EXPECT_EQ(findProvenFrame(joined({one, record})), 0U);
    EXPECT_EQ(findProvenFrame(joined({one, textBytes("APETAGEX and more")})), 0U);
    EXPECT_EQ(findProvenFrame(joined({one, textBytes("LYRICSBEGIN and more")})), 0U);
    EXPECT_EQ(findProvenFrame(joined({one, textBytes("something else")})), std::nullopt);
    EXPECT_EQ(findProvenFrame(Bytes(one).first(one.size() - 1)), std::nullopt) << "a frame that is cut";
}

TEST(AudioProof, frameOfAnotherKindProvesNothing) {
    const ByteArray one = mpegStream({}, 1);
    for (const MpegFrame& other : {MpegFrame{.version = 2}, MpegFrame{.layer = 2}, MpegFrame{.samplingRateIndex = 1},
                                   MpegFrame{.bitRateIndex = 0}, MpegFrame{.emphasis = 2}}) {
        const ByteArray second = test::mpegHeaderBytes(other);
        EXPECT_EQ(findProvenFrame(joined({one, second, textBytes("x")})), std::nullopt);
    }
    EXPECT_EQ(findProvenFrame(joined({one, test::mpegHeaderBytes({.bitRateIndex = 3, .mode = 1, .crc = true})})), 0U)
        << "bit rate, mode and CRC differ within a stream";
}

TEST(AudioProof, junkBeforeTheFirstFrameIsSkippedUpToABound) {
    const ByteArray audio = mpegStream({}, 3);
    for (const std::size_t count : {std::size_t{1}, std::size_t{15002}, kSearchedPositions - 1}) {
        EXPECT_EQ(findProvenFrame(joined({ByteArray(count, 0xFF), audio})), count);
    }
    EXPECT_EQ(findProvenFrame(joined({ByteArray(kSearchedPositions, 'x'), audio})), std::nullopt);
}

// Tables of numbers hold words that pass for a few headers at the right distance.
TEST(AudioProof, framesAfterJunkProveAudioWhenTheyAreManyOrReachTheEnd) {
    const ByteArray junk(100, 'x');
    for (const MpegFrame& frame : {MpegFrame{}, MpegFrame{.layer = 3, .bitRateIndex = 1}}) {
        const auto found = [&](std::size_t frames, std::string_view end) {
            return findProvenFrame(joined({junk, mpegStream(frame, frames), textBytes(end)})).has_value();
        };
        EXPECT_TRUE(found(10, "something else"));
        EXPECT_FALSE(found(9, "something else"));
        EXPECT_TRUE(found(3, ""));
        EXPECT_FALSE(found(2, ""));
        const ByteArray stream = joined({junk, mpegStream(frame, 4)});
        EXPECT_EQ(findProvenFrame(Bytes(stream).first(stream.size() - 1)), junk.size()) << "the last frame is cut";
    }
}

TEST(AudioProof, zerosBeforeTheFirstFrameAreSkippedInAFile) {
    const test::ScratchFolder folder;
    const ByteArray audio = mpegStream({}, 3);
    for (const std::size_t count : {std::size_t{0}, std::size_t{4096}, std::size_t{700'001}}) {
        FileReader file(folder.write("zeros.mp3", joined({ByteArray(count), audio})));
        EXPECT_EQ(findProvenFrame(file, 0), count);
    }
    FileReader nothing(folder.write("nothing.mp3", ByteArray(5000)));
    EXPECT_EQ(findProvenFrame(nothing, 0), std::nullopt);
    EXPECT_EQ(findProvenFrame(nothing, 1'000'000), std::nullopt) << "behind the end";
}

// Headers of free format are common in other data, at even distances too.
TEST(AudioProof, freeFormatCountsOnlyWhereTheAudioBegins) {
    const ByteArray stream = freeFormat({.layer = 3}, 64, 100);
    EXPECT_EQ(findProvenFrame(stream), 0U);
    EXPECT_EQ(findProvenFrame(joined({textBytes("x"), stream})), std::nullopt);
    const test::ScratchFolder folder;
    FileReader afterZeros(folder.write("zeros.mp3", joined({ByteArray(999), stream})));
    EXPECT_EQ(findProvenFrame(afterZeros, 0), 999U);
}

} // namespace
} // namespace corvane::audioproof_test
