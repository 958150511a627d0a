#include "corvane/platform/Inflate.h"

#include "tests/support/Id3v2Builder.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>

namespace corvane::inflate_test {
namespace {

using test::bytesOf;
using test::deflated;

constexpr std::string_view kText = "as often as often as often as often as this";
constexpr auto kSize = static_cast<std::int32_t>(kText.size());

// What comes out of a stream that claims so many bytes.
std::optional<ByteArray> asClaimed(Bytes stream, std::int32_t claimedSize) {
    const auto size = inflatedSize(stream, claimedSize);
    return size ? inflated(stream, *size) : std::nullopt;
}

TEST(Inflate, GivesWhatWasDeflated) {
    EXPECT_EQ(asClaimed(deflated(bytesOf(kText)), kSize), bytesOf(kText));
    const ByteArray large(3'000'000, 7);
    EXPECT_EQ(asClaimed(deflated(large), 3'000'000), large);
}

TEST(Inflate, AClaimOfMoreThanComesOutIsIgnored) {
    EXPECT_EQ(asClaimed(deflated(bytesOf(kText)), kSize + 1), bytesOf(kText));
    EXPECT_EQ(asClaimed(deflated(bytesOf(kText)), kSize + 1000), bytesOf(kText));
}

TEST(Inflate, AnEmptyStreamInsideIsRead) { EXPECT_EQ(asClaimed(deflated({}), 1), ByteArray()); }

TEST(Inflate, GivesNothingWhenThereIsLessThanToldBefore) {
    EXPECT_FALSE(inflated(deflated(bytesOf(kText)), kSize + 1));
    EXPECT_FALSE(inflated({}, 1));
    EXPECT_EQ(inflated(deflated(bytesOf(kText)), 2), bytesOf(kText.substr(0, 2)));
}

TEST(Inflate, BytesBehindTheStreamAreIgnored) {
    EXPECT_EQ(asClaimed(test::joined({deflated(bytesOf(kText)), bytesOf("more")}), kSize), bytesOf(kText));
}

TEST(Inflate, AClaimOfLessThanComesOutIsRefused) {
    for (std::int32_t claimed = std::numeric_limits<std::int32_t>::min() / 2; claimed < kSize;
         claimed = claimed < 0 ? claimed / 2 + (claimed == -1) : claimed + 1) {
        EXPECT_FALSE(asClaimed(deflated(bytesOf(kText)), claimed)) << claimed;
    }
}

TEST(Inflate, AClaimBeyondWhatDeflateCanMakeIsRefused) {
    const ByteArray stream = deflated(bytesOf(kText));
    const auto most = static_cast<std::int32_t>(kLargestInflation) * static_cast<std::int32_t>(stream.size());
    EXPECT_EQ(asClaimed(stream, most), bytesOf(kText));
    EXPECT_FALSE(asClaimed(stream, most + 1));
    EXPECT_FALSE(asClaimed(stream, std::numeric_limits<std::int32_t>::max()));
}

TEST(Inflate, EveryShorterPrefixIsRefused) {
    const ByteArray stream = deflated(bytesOf(kText));
    for (std::size_t size = 0; size < stream.size(); ++size) {
        EXPECT_FALSE(asClaimed(Bytes(stream).first(size), kSize)) << size;
    }
}

TEST(Inflate, ADamagedStreamIsRefused) {
    ByteArray stream = deflated(bytesOf(kText));
    stream.back() ^= 1; // the check sum
    EXPECT_FALSE(asClaimed(stream, kSize));
    stream.front() ^= 0x55;
    EXPECT_FALSE(asClaimed(stream, kSize));
}

TEST(Inflate, AStreamThatWantsADictionaryIsRefused) {
    ByteArray stream = deflated(bytesOf(kText));
    stream[1] = 0xBB; // 78 BB: with dictionary, check bits right
    EXPECT_FALSE(asClaimed(stream, kSize));
}

} // namespace
} // namespace corvane::inflate_test
