#include "corvane/id3v230/Id3FrameNumbers.h"

#include <gtest/gtest.h>

#include <array>

namespace corvane::id3framenumbers_test {
namespace {

// id3lib's numbers as measured with the library, by ours.
constexpr auto kMeasured = std::to_array<std::int32_t>(
    {0,  1,  2,  4,  5,  6,  8,  9,  10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 23, 24, 27, 28, 29, 30,
     31, 32, 33, 34, 36, 42, 43, 44, 45, 46, 47, 48, 49, 50, 51, 53, 55, 56, 57, 58, 59, 60, 61, 62, 63, 64,
     65, 67, 68, 69, 70, 71, 72, 76, 77, 79, 80, 81, 82, 83, 84, 85, 86, 87, 88, 89, 90, 91, 92, 93, 94});

TEST(Id3FrameNumbers, AreTheMeasuredOnes) {
    ASSERT_EQ(kMeasured.size(), 77U);
    for (std::size_t frame = 0; frame < kMeasured.size(); ++frame) {
        EXPECT_EQ(id3libNumberOf(static_cast<ID3_FrameID>(frame)), kMeasured[frame]) << frame;
    }
    EXPECT_EQ(id3libNumberOf(ID3_FrameID::ID3EZFID_Artist), 61);
}

TEST(Id3FrameNumbers, OfWhatIsNoFrameAreNone) {
    for (const std::int32_t number : {-2147483647, -1, 77, 78, 95, 1000, 2147483647}) {
        EXPECT_EQ(id3libNumberOf(static_cast<ID3_FrameID>(number)), std::nullopt) << number;
    }
}

} // namespace
} // namespace corvane::id3framenumbers_test
