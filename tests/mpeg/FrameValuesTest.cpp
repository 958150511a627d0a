#include "corvane/mpeg/FrameValues.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace corvane::framevalues_test {
namespace {

template <class Body>
std::int32_t failureOf(Body&& body) {
    try {
        body();
    } catch (const RuntimeFailure& failure) {
        return failure.number();
    }
    return 0;
}

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr auto kOverflow = static_cast<std::int32_t>(FailureNumber::Overflow);

TEST(WholeNumber, TakesEveryValueOfItsType) {
    EXPECT_EQ(wholeNumber<std::int16_t>(-32768.0, ""), INT16_MIN);
    EXPECT_EQ(wholeNumber<std::int16_t>(32767.0, ""), INT16_MAX);
    EXPECT_EQ(wholeNumber<std::int32_t>(-2147483648.0, ""), INT32_MIN);
    EXPECT_EQ(wholeNumber<std::int32_t>(2147483647.0, ""), INT32_MAX);
}

TEST(WholeNumber, OverflowsWhereTheValueDoesNotFitOrIsNoNumber) {
    for (const double value : {32768.0, -32769.0, 1e300, -1e300, kInfinity, -kInfinity, std::nan("")}) {
        EXPECT_EQ(failureOf([=] { wholeNumber<std::int16_t>(value, ""); }), kOverflow) << value;
    }
    for (const double value : {2147483648.0, -2147483649.0, kInfinity, -kInfinity, std::nan("")}) {
        EXPECT_EQ(failureOf([=] { wholeNumber<std::int32_t>(value, ""); }), kOverflow) << value;
    }
}

TEST(AverageBitRate, IsOneHundredAndFortyFourBytesForLayersIIAndIII) {
    EXPECT_DOUBLE_EQ(averageBitRate(averageFrameSize(417'000, 1000), 1, 44100), 127.70625);
    EXPECT_DOUBLE_EQ(averageBitRate(417.0, 2, 44100), 127.70625);
}

TEST(AverageBitRate, HasOneCoefficientForEveryVersionAndTwelveForLayerIOnPurpose) {
    EXPECT_DOUBLE_EQ(averageBitRate(120.0, 3, 48000), 120.0 * 48000 / 12000);
    EXPECT_DOUBLE_EQ(averageBitRate(208.0, 1, 22050), 208.0 * 22050 / 144000);
}

TEST(DurationSeconds, IsMillisecondsRoundedThenCutToSeconds) {
    EXPECT_EQ(durationSeconds(3'999'998, 128), 250); // 249999.875 ms
    EXPECT_EQ(durationSeconds(1998, 16), 0);         // 999 ms
    EXPECT_EQ(durationSeconds(1999, 16), 1);         // 999.5 ms
    EXPECT_EQ(durationSeconds(31'999, 128), 2);      // 1999.9375 ms
    EXPECT_EQ(durationSeconds(31'990, 128), 1);      // 1999.375 ms
}

TEST(DurationSeconds, IsUnknownWithoutABitRateAboveZero) {
    for (const double bitRate : {0.0, -1.0, -0.5, std::nan("")}) EXPECT_EQ(durationSeconds(1000, bitRate), -1);
}

TEST(DurationSeconds, HoldsTheLongestStream) {
    EXPECT_EQ(durationSeconds(INT32_MAX, 8), 2'147'483);
    // 2,147,483,647 frames, far more milliseconds than 32 bits hold.
    EXPECT_EQ(durationSeconds(INT32_MAX, averageBitRate(1.0, 1, 8000)), 309'237'645);
    EXPECT_EQ(failureOf([] { durationSeconds(INT32_MAX, 1e-9); }), kOverflow);
}

TEST(RoundedFrameSize, RoundsHalfToEven) {
    EXPECT_EQ(roundedFrameSize(416.5), 416);
    EXPECT_EQ(roundedFrameSize(417.5), 418);
    EXPECT_EQ(roundedFrameSize(417.49), 417);
    EXPECT_EQ(roundedFrameSize(-0.5), 0);
    EXPECT_EQ(roundedFrameSize(-1.5), -2);
}

TEST(RoundedFrameSize, OverflowsAboveSixteenBits) {
    EXPECT_EQ(roundedFrameSize(32767.4), 32767);
    EXPECT_EQ(failureOf([] { roundedFrameSize(32767.5); }), kOverflow);
    EXPECT_EQ(failureOf([] { roundedFrameSize(-32769.0); }), kOverflow);
}

struct Case {
    const char* name;
    std::int16_t bitRate;
    std::int32_t frequency;
    bool padding;
    std::int16_t size;
};

class CalcFrameSizeTest : public testing::TestWithParam<Case> {};

TEST_P(CalcFrameSizeTest, IsCutToWholeBytes) {
    const Case& tested = GetParam();
    EXPECT_EQ(CalcFrameSize(tested.bitRate, tested.frequency, tested.padding), tested.size);
}

INSTANTIATE_TEST_SUITE_P(Frames, CalcFrameSizeTest,
                         testing::Values(Case{"At128", 128, 44100, false, 417},
                                         Case{"At128WithPadding", 128, 44100, true, 418},
                                         Case{"WithoutFraction", 128, 48000, false, 384},
                                         Case{"Mpeg2HasTheSameCoefficient", 64, 22050, false, 417},
                                         Case{"LayerOneHasTheSameCoefficient", 384, 44100, false, 1253},
                                         Case{"Zero", 0, 44100, false, 0}, Case{"ZeroWithPadding", 0, 44100, true, 1},
                                         Case{"UnknownBitRate", -1, 44100, false, 0},
                                         Case{"UnknownBitRateWithPadding", -1, 8000, true, 1},
                                         Case{"UnknownBitRateWithoutFrequency", -1, 0, true, 1}),
                         [](const auto& tested) { return tested.param.name; });

// Division first is less exact than multiplication first, and a frame can come out one byte shorter for it: the order
// is part of the rule.
TEST(CalcFrameSize, ComputesFromLeftToRight) {
    int exactDiffers = 0;
    for (std::int16_t bitRate = 1; bitRate <= 448; ++bitRate) {
        for (const std::int32_t frequency : {44100, 48000, 32000, 22050, 24000, 16000, 8000}) {
            const double left = static_cast<double>(bitRate) / frequency * 144 * 1000;
            EXPECT_EQ(CalcFrameSize(bitRate, frequency, false), static_cast<std::int16_t>(left));
            exactDiffers += static_cast<int>(left) != bitRate * 144'000 / frequency ? 1 : 0;
        }
    }
    EXPECT_GT(exactDiffers, 0);
}

TEST(CalcFrameSize, OverflowsAboveSixteenBitsAndWithoutAFrequency) {
    EXPECT_EQ(CalcFrameSize(29'826, 131'072, false), 32'767); // 32767.6
    EXPECT_EQ(failureOf([] { CalcFrameSize(29'826, 131'072, true); }), kOverflow);
    EXPECT_EQ(failureOf([] { CalcFrameSize(29'827, 131'072, false); }), kOverflow);
    EXPECT_EQ(failureOf([] { CalcFrameSize(128, 0, false); }), kOverflow);
    EXPECT_EQ(failureOf([] { CalcFrameSize(0, 0, false); }), kOverflow);
}

TEST(FrameCountOf, DividesTowardZero) {
    EXPECT_EQ(frameCountOf(834, 417), 2);
    EXPECT_EQ(frameCountOf(833, 417), 1);
    EXPECT_EQ(frameCountOf(-833, 417), -1);
    EXPECT_EQ(frameCountOf(833, -417), -1);
}

TEST(FrameCountOf, NeverFails) {
    EXPECT_EQ(frameCountOf(1000, 0), 0);
    EXPECT_EQ(frameCountOf(0, 0), 0);
    EXPECT_EQ(frameCountOf(INT32_MIN, -1), 0);
    EXPECT_EQ(frameCountOf(INT32_MIN, 1), INT32_MIN);
}

} // namespace
} // namespace corvane::framevalues_test
