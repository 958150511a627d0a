#include "corvane/mpeg/MPEGHeader.h"
#include "corvane/platform/RuntimeFailure.h"

#include "tests/mpeg/MPEGHeaderFixture.h"
#include "tests/support/MpegBuilder.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace corvane::mpegheaderfailure_test {
namespace {

using test::MpegFrame;
using test::mpegFrame;
using test::xingFrame;
using Inside = Internals<MPEGHeader>;
using MPEGHeaderFailure = test::MpegHeaderFixture;

constexpr auto kOverflow = static_cast<std::int32_t>(FailureNumber::Overflow);

TEST_F(MPEGHeaderFailure, AFileWithoutAHeaderChangesOnlyTheFileSize) {
    ASSERT_TRUE(load(mpegFrame({.mode = 1})));
    EXPECT_FALSE(load(ByteArray(100)));
    EXPECT_EQ(header_.FileSize(), 100);
    EXPECT_EQ(header_.AudioSize(), 415);
    EXPECT_EQ(header_.BitRate(), 128);
    EXPECT_EQ(header_.Mode(), "Joint Stereo");
    EXPECT_EQ(header_.FrameSize(), 417);
    EXPECT_EQ(record().Stream(), "0, , ");
}

TEST_F(MPEGHeaderFailure, AFileWithoutAHeaderLeavesAnEarlierRecordInPlace) {
    Inside::ErrorRecord(header_)->record("Earlier", "Failure");
    EXPECT_FALSE(load(ByteArray(100)));
    EXPECT_EQ(record().Stream(), "0, Earlier, Failure");
}

TEST_F(MPEGHeaderFailure, ALoadThatWorksLeavesAnEarlierRecordInPlace) {
    Inside::ErrorRecord(header_)->record("Earlier", "Failure");
    EXPECT_TRUE(load(mpegFrame({})));
    EXPECT_EQ(record().Stream(), "0, Earlier, Failure");
}

TEST_F(MPEGHeaderFailure, AFileAbove2147483647BytesIsAnOverflow) {
    ASSERT_TRUE(load(mpegFrame({})));
    EXPECT_FALSE(loadSparse(mpegFrame({.bitRateIndex = 5}), 2'147'483'648));
    EXPECT_EQ(record().Number, kOverflow);
    EXPECT_EQ(record().Severity, cError::kError);
    EXPECT_EQ(record().Source, "LoadHeaderEx");
    EXPECT_EQ(record().Description, "Overflow");
    EXPECT_EQ(header_.FileSize(), 417);
    EXPECT_EQ(header_.BitRate(), 128);
}

TEST_F(MPEGHeaderFailure, AFileOf2147483647BytesIsRead) {
    ASSERT_TRUE(loadSparse(mpegFrame({}), 2'147'483'647));
    EXPECT_EQ(header_.FileSize(), 2'147'483'647);
    EXPECT_EQ(header_.AudioSize(), 2'147'483'645);
    EXPECT_EQ(header_.Duration(), 134'217);
}

TEST_F(MPEGHeaderFailure, AFrameSizeAbove16BitsIsRecordedAndWhatWasSetBeforeStays) {
    ASSERT_TRUE(load(mpegFrame({})));
    EXPECT_FALSE(load(xingFrame({.bitRateIndex = 5}, {.flags = 3, .frames = 1, .bytes = 1'000'000})));
    EXPECT_EQ(record().Number, kOverflow);
    EXPECT_EQ(record().Severity, cError::kError);
    EXPECT_EQ(record().Source, "FrameSize");
    EXPECT_TRUE(header_.VBR());
    EXPECT_EQ(header_.AudioSize(), 1'000'000);
    EXPECT_EQ(header_.BitRate(), 306'250);
    EXPECT_EQ(header_.Duration(), 0);
    EXPECT_EQ(header_.NumFrames(), 1);
    EXPECT_EQ(header_.FrameSize(), 417);
}

TEST_F(MPEGHeaderFailure, APropertyThatDoesNotFitFails) {
    const MpegFrame layerOne{.layer = 3, .samplingRateIndex = 1};
    EXPECT_FALSE(load(xingFrame(layerOne, {.flags = 3, .frames = 1, .bytes = 0x7FFF'FFFF})));
    try {
        header_.BitRate();
        FAIL() << "a bit rate of 8589934588 kbit/s was given";
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.number(), kOverflow);
        EXPECT_EQ(failure.source(), "BitRate");
    }
    EXPECT_THROW(header_.xml(), RuntimeFailure);
    EXPECT_EQ(header_.NumFrames(), 1);
}

TEST_F(MPEGHeaderFailure, CalculateValuesFailsWhereTheLayerHasNoTable) {
    try {
        Inside::CalculateValues(header_);
        FAIL() << "layer 0 has a bit rate";
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.number(), static_cast<std::int32_t>(FailureNumber::SubscriptOutOfRange));
    }
    EXPECT_EQ(header_.Duration(), 0);
}

TEST_F(MPEGHeaderFailure, AStartPositionBeforeTheFileIsRecorded) {
    EXPECT_FALSE(load(mpegFrame({}), 0));
    EXPECT_EQ(record().Number, EINVAL);
    EXPECT_EQ(record().Severity, cError::kError);
    EXPECT_EQ(header_.FileSize(), 417);
}

TEST_F(MPEGHeaderFailure, TheErrorRecordIsTheLiveOneOfTheObject) {
    const auto held = Inside::ErrorRecord(header_);
    ASSERT_NE(held, nullptr);
    EXPECT_FALSE(load(mpegFrame({}), 0));
    EXPECT_EQ(held->Number, EINVAL);
    EXPECT_EQ(Inside::ErrorRecord(header_), held);
}

TEST_F(MPEGHeaderFailure, LoadHeaderNeverLoadsAnExistingFileOnPurpose) {
    const std::string path = folder_.write("f", mpegFrame({}));
    Inside::ErrorRecord(header_)->record("Earlier", "Failure");
    EXPECT_FALSE(Inside::LoadHeader(header_, path, 1));
    EXPECT_EQ(record().Number, static_cast<std::int32_t>(FailureNumber::ObjectDefined));
    EXPECT_EQ(record().Source, "LoadHeader");
    EXPECT_EQ(record().Description, "0, Earlier, Failure");
    EXPECT_EQ(record().Severity, cError::kError);
    EXPECT_EQ(header_.FileSize(), 0);
    EXPECT_FALSE(Inside::LoadHeader(header_, path, 1));
    EXPECT_EQ(record().Description, "-2147221504, LoadHeader, 0, Earlier, Failure");
}

TEST_F(MPEGHeaderFailure, LoadHeaderOfAMissingFileChangesNothing) {
    Inside::ErrorRecord(header_)->record("Earlier", "Failure");
    EXPECT_FALSE(Inside::LoadHeader(header_, folder_.path("none"), 1));
    EXPECT_FALSE(Inside::LoadHeader(header_, folder_.path(), 1));
    EXPECT_EQ(record().Stream(), "0, Earlier, Failure");
}

} // namespace
} // namespace corvane::mpegheaderfailure_test
