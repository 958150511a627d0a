#include "corvane/platform/ByteRange.h"

#include <gtest/gtest.h>

namespace corvane::byterange_test {
namespace {

TEST(ByteRange, FillsIsTrueForRangesThatFollowEachOtherToTheEnd) {
    EXPECT_TRUE(fills(8, ByteRange{0, 3}, ByteRange{3, 5}));
    EXPECT_TRUE(fills(0));
}

TEST(ByteRange, FillsRefusesGapsOverlapsWrongOrderAndWrongTotals) {
    EXPECT_FALSE(fills(8, ByteRange{0, 3}, ByteRange{4, 4}));
    EXPECT_FALSE(fills(8, ByteRange{0, 4}, ByteRange{3, 5}));
    EXPECT_FALSE(fills(8, ByteRange{3, 5}, ByteRange{0, 3}));
    EXPECT_FALSE(fills(9, ByteRange{0, 3}, ByteRange{3, 5}));
    EXPECT_FALSE(fills(7, ByteRange{0, 3}, ByteRange{3, 5}));
}

TEST(ByteRange, AFieldIsItsBytes) {
    const ByteArray record{1, 2, 3, 4};
    const Bytes field = fieldOf(record, {1, 2});
    EXPECT_EQ(ByteArray(field.begin(), field.end()), (ByteArray{2, 3}));
}

TEST(ByteRange, AFieldThatDoesNotFitTheRecordHasNoBytes) {
    const ByteArray record{1, 2, 3, 4};
    EXPECT_TRUE(fieldOf(record, {3, 2}).empty());
    EXPECT_TRUE(fieldOf(record, {5, 1}).empty());
    EXPECT_TRUE(fieldOf(record, {1, static_cast<std::size_t>(-1)}).empty());
}

} // namespace
} // namespace corvane::byterange_test
