#include "corvane/platform/ByteReader.h"

#include <gtest/gtest.h>

#include <array>

namespace corvane::bytereader_test {
namespace {

constexpr std::array<std::uint8_t, 5> kBytes{1, 2, 3, 4, 5};

TEST(ByteReader, TakesBytesFrontToBack) {
    ByteReader reader(kBytes);
    EXPECT_EQ(reader.take(2)->back(), 2);
    EXPECT_EQ(reader.left(), 3U);
    EXPECT_EQ(reader.takeRest().front(), 3);
    EXPECT_EQ(reader.left(), 0U);
}

TEST(ByteReader, NumbersAreBigEndian) {
    EXPECT_EQ(ByteReader(kBytes).number<1>(), 0x01U);
    EXPECT_EQ(ByteReader(kBytes).number<2>(), 0x0102U);
    EXPECT_EQ(ByteReader(kBytes).number<4>(), 0x01020304U);
}

TEST(ByteReader, AReadThatDoesNotFitMovesNothing) {
    ByteReader reader(kBytes);
    EXPECT_FALSE(reader.take(6));
    EXPECT_FALSE(reader.take(static_cast<std::size_t>(-1)));
    EXPECT_EQ(reader.left(), 5U);
    EXPECT_TRUE(reader.take(3));
    EXPECT_FALSE(reader.number<4>());
    EXPECT_EQ(reader.number<2>(), 0x0405U);
}

TEST(ByteReader, AnOffsetPastTheEndLeavesNothing) {
    EXPECT_EQ(readerAt(kBytes, 4).left(), 1U);
    EXPECT_EQ(readerAt(kBytes, 5).left(), 0U);
    EXPECT_EQ(readerAt(kBytes, static_cast<std::size_t>(-1)).left(), 0U);
}

} // namespace
} // namespace corvane::bytereader_test
