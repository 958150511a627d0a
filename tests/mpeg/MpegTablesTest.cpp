#include "corvane/mpeg/MpegTables.h"

#include "tests/support/MpegBuilder.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>

namespace corvane::mpegtables_test {
namespace {

FailureNumber failureOf(const std::function<void()>& lookUp) {
    try {
        lookUp();
    } catch (const RuntimeFailure& failure) {
        return static_cast<FailureNumber>(failure.number());
    }
    return {};
}

TEST(MpegTables, BitRatesAreThoseOfTheStandards) {
    for (const unsigned version : {0U, 2U, 3U}) {
        for (const unsigned layer : {1U, 2U, 3U}) {
            for (unsigned index = 0; index < 16; ++index) {
                EXPECT_EQ(static_cast<unsigned>(mpegBitRateKbps(version, layer, index, "")),
                          test::standardBitRateKbps({.version = version, .layer = layer, .bitRateIndex = index}))
                    << version << ' ' << layer << ' ' << index;
            }
        }
    }
}

TEST(MpegTables, TheReservedVersionHasTheBitRatesOfMpeg1) { EXPECT_EQ(mpegBitRateKbps(1, 1, 9, ""), 128); }

TEST(MpegTables, FreeFormatAndForbiddenIndexHaveNoBitRate) {
    EXPECT_EQ(mpegBitRateKbps(3, 1, 0, ""), 0);
    EXPECT_EQ(mpegBitRateKbps(3, 1, 15, ""), 0);
}

TEST(MpegTables, FrequenciesOfMpeg1And2AreThoseOfTheStandards) {
    for (const unsigned version : {1U, 2U, 3U}) {
        for (const unsigned index : {0U, 1U, 2U}) {
            EXPECT_EQ(static_cast<unsigned>(mpegFrequencyHz(version, index, "")),
                      test::standardFrequencyHz({.version = version, .samplingRateIndex = index}));
        }
    }
}

TEST(MpegTables, Mpeg25FrequenciesDifferFromTheExtensionOnPurpose) {
    EXPECT_EQ(mpegFrequencyHz(0, 0, ""), 32000);
    EXPECT_EQ(mpegFrequencyHz(0, 1, ""), 16000);
    EXPECT_EQ(mpegFrequencyHz(0, 2, ""), 8000);
}

TEST(MpegTables, ALookUpOutsideItsTableFails) {
    using enum FailureNumber;
    EXPECT_EQ(failureOf([] { mpegFrequencyHz(3, 3, ""); }), SubscriptOutOfRange);
    EXPECT_EQ(failureOf([] { mpegFrequencyHz(4, 0, ""); }), SubscriptOutOfRange);
    EXPECT_EQ(failureOf([] { mpegBitRateKbps(3, 0, 1, ""); }), SubscriptOutOfRange);
    EXPECT_EQ(failureOf([] { mpegBitRateKbps(3, 4, 1, ""); }), SubscriptOutOfRange);
    EXPECT_EQ(failureOf([] { mpegBitRateKbps(3, 1, 16, ""); }), SubscriptOutOfRange);
    EXPECT_EQ(failureOf([] { entryAt(kMpegVersionNames, 4, ""); }), SubscriptOutOfRange);
    EXPECT_EQ(failureOf([] { entryAt(kMpegVersionNames, 3, ""); }), FailureNumber{});
}

TEST(MpegTables, TheFailureNamesItsSource) {
    try {
        mpegFrequencyHz(3, 3, "Frequency");
        FAIL() << "the look-up did not fail";
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.source(), "Frequency");
        EXPECT_EQ(failure.description(), "Subscript out of range");
    }
}

TEST(MpegTables, NamesStandInTheOrderOfTheirFields) {
    using Names = std::array<std::string_view, 4>;
    EXPECT_EQ(kMpegVersionNames, (Names{"MPEG 2.5", "Reserved", "MPEG 2.0", "MPEG 1.0"}));
    EXPECT_EQ(kMpegLayerNames, (Names{"Reserved", "3", "2", "1"}));
    EXPECT_EQ(kMpegModeNames, (Names{"Stereo", "Joint Stereo", "Dual Channel", "Single Channel"}));
}

TEST(EmphasisName, GivesOneAndTwoOtherNamesThanTheStandardOnPurpose) {
    EXPECT_EQ(EmphasisName(0), "None");
    EXPECT_EQ(EmphasisName(1), "Unknown");
    EXPECT_EQ(EmphasisName(2), "50/15ms");
    EXPECT_EQ(EmphasisName(3), "CCITT j.17");
}

TEST(EmphasisName, IsEmptyForAnyOtherValue) {
    for (const int value : {-32768, -1, 4, 32767}) EXPECT_EQ(EmphasisName(static_cast<std::int16_t>(value)), "");
}

} // namespace
} // namespace corvane::mpegtables_test
