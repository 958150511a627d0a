#include "apps/cli/Quantity.h"

#include <gtest/gtest.h>

#include <limits>

namespace corvane::cli::quantity_test {
namespace {

TEST(Quantity, DigitsStandInGroupsOfThree) {
    EXPECT_EQ(grouped(0), "0");
    EXPECT_EQ(grouped(999), "999");
    EXPECT_EQ(grouped(1000), "1,000");
    EXPECT_EQ(grouped(-1000), "-1,000");
    EXPECT_EQ(grouped(-999), "-999");
    EXPECT_EQ(grouped(std::numeric_limits<std::int64_t>::min()), "-9,223,372,036,854,775,808");
}

TEST(Quantity, BytesAreExactAndRoundedFromOneMebibyteOn) {
    EXPECT_EQ(byteText(1), "1 byte");
    EXPECT_EQ(byteText(0), "0 bytes");
    EXPECT_EQ(byteText(1048575), "1,048,575 bytes");
    EXPECT_EQ(byteText(5242880), "5,242,880 bytes (5.0 MiB)");
}

TEST(Quantity, RoundedBytesNeverReachTheNextUnit) {
    EXPECT_EQ(roundedByteText(1023), "1023 bytes");
    EXPECT_EQ(roundedByteText(1024), "1.0 KiB");
    EXPECT_EQ(roundedByteText(1048575), "1.0 MiB");
    EXPECT_EQ(roundedByteText(1043333), "1018.9 KiB");
    EXPECT_EQ(roundedByteText(std::numeric_limits<std::uint64_t>::max()), "16.0 EiB");
}

TEST(Quantity, DurationHasHoursWhereItNeedsThem) {
    EXPECT_EQ(durationText(0), "0:00");
    EXPECT_EQ(durationText(59), "0:59");
    EXPECT_EQ(durationText(250), "4:10");
    EXPECT_EQ(durationText(3599), "59:59");
    EXPECT_EQ(durationText(3723), "1:02:03");
    EXPECT_EQ(durationText(std::numeric_limits<std::int32_t>::max()), "596523:14:07");
}

} // namespace
} // namespace corvane::cli::quantity_test
