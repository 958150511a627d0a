#include "corvane/lyrics/LyricsFormat.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/LyricsBuilder.h"

#include <gtest/gtest.h>

#include <string>

namespace corvane::lyricsformat_test {
namespace {

using test::bytesOf;
using test::LyricsBuilder;
using test::textOf;

using enum ELyricsVersionConstants;

struct TrailerCase {
    const char* name;
    const char* trailer;
    ELyricsVersionConstants version;
    std::int32_t bodySize; // -1 when there is none
};
class LyricsTrailer : public testing::TestWithParam<TrailerCase> {};
TEST_P(LyricsTrailer, TellsVersionAndSize) {
    const ByteArray trailer = bytesOf(GetParam().trailer);
    EXPECT_EQ(lyricsVersionOf(trailer), GetParam().version);
    EXPECT_EQ(lyricsBodySize(trailer).value_or(-1), GetParam().bodySize);
}
INSTANTIATE_TEST_SUITE_P(Bytes, LyricsTrailer,
                         testing::Values(TrailerCase{"VersionOne", "lyricsLYRICSEND", lvcV100, 5100},
                                         TrailerCase{"VersionOneWithDigits", "000042LYRICSEND", lvcV100, 5100},
                                         TrailerCase{"VersionTwo", "000042LYRICS200", lvcV200, 42},
                                         TrailerCase{"SizeZero", "000000LYRICS200", lvcV200, 0},
                                         TrailerCase{"SizeOne", "000001LYRICS200", lvcV200, 1},
                                         TrailerCase{"SizeAtItsMaximum", "999999LYRICS200", lvcV200, 999999},
                                         TrailerCase{"SizeWithBlanks", "   042LYRICS200", lvcV200, -1},
                                         TrailerCase{"SizeWithSign", "+00042LYRICS200", lvcV200, -1},
                                         TrailerCase{"SizeNegative", "-00042LYRICS200", lvcV200, -1},
                                         TrailerCase{"SizeWithPoint", "0042.0LYRICS200", lvcV200, -1},
                                         TrailerCase{"SizeHexadecimal", "0x0042LYRICS200", lvcV200, -1},
                                         TrailerCase{"LowerCase", "000042lyrics200", lvcUnknown, -1},
                                         TrailerCase{"OtherVersion", "000042LYRICS300", lvcUnknown, -1},
                                         TrailerCase{"MarkerOneByteEarly", "00042LYRICS200x", lvcUnknown, -1},
                                         TrailerCase{"Empty", "", lvcUnknown, -1},
                                         TrailerCase{"TooLong", "0000042LYRICS200", lvcUnknown, -1}),
                         [](const auto& tested) { return tested.param.name; });

TEST(LyricsTrailerBytes, EveryShorterPrefixIsRefused) {
    const ByteArray trailer = bytesOf("000042LYRICS200");
    for (std::size_t size = 0; size < trailer.size(); ++size) {
        EXPECT_EQ(lyricsVersionOf(Bytes(trailer).first(size)), lvcUnknown) << size;
        EXPECT_FALSE(lyricsBodySize(Bytes(trailer).first(size))) << size;
    }
}

TEST(LyricsTrailerBytes, EveryByteButADigitIsNoSize) {
    for (std::size_t place = 0; place < 6; ++place) {
        for (unsigned byte = 0; byte <= 255; ++byte) {
            ByteArray trailer = bytesOf("000000LYRICS200");
            trailer[place] = static_cast<std::uint8_t>(byte);
            EXPECT_EQ(lyricsBodySize(trailer).has_value(), byte >= '0' && byte <= '9') << byte;
        }
    }
}

TEST(TakeLyricsField, GivesIdLengthAndData) {
    const ByteArray body = bytesOf("ETT00005TitleEAR00000");
    ByteReader rest(body);
    const auto title = takeLyricsField(rest);
    ASSERT_TRUE(title);
    EXPECT_EQ(textOf(title->id), "ETT");
    EXPECT_EQ(title->size, 5);
    EXPECT_EQ(textOf(title->data), "Title");
    const auto artist = takeLyricsField(rest);
    ASSERT_TRUE(artist);
    EXPECT_EQ(textOf(artist->id), "EAR");
    EXPECT_EQ(artist->size, 0);
    EXPECT_EQ(textOf(artist->data), "");
    EXPECT_EQ(rest.left(), 0U);
}

TEST(TakeLyricsField, DataEndsWithTheBodyWhateverTheLengthTells) {
    for (const char* length : {"00006", "00100", "99999"}) {
        const ByteArray body = bytesOf("ETT" + std::string(length) + "Title");
        ByteReader rest(body);
        const auto field = takeLyricsField(rest);
        ASSERT_TRUE(field) << length;
        EXPECT_EQ(field->size, std::stoi(length));
        EXPECT_EQ(textOf(field->data), "Title") << length;
        EXPECT_EQ(rest.left(), 0U);
    }
}

TEST(TakeLyricsField, ABodyThatEndsInsideTheLengthGivesTheDigitsThatAreThere) {
    const ByteArray body = bytesOf("ETT01205Title");
    for (const std::size_t size : {4U, 5U, 6U, 7U}) {
        ByteReader rest(Bytes(body).first(size));
        const auto field = takeLyricsField(rest);
        ASSERT_TRUE(field) << size;
        EXPECT_EQ(textOf(field->id), "ETT");
        EXPECT_EQ(field->size, std::stoi(std::string("01205").substr(0, size - 3)));
        EXPECT_EQ(textOf(field->data), "");
        EXPECT_EQ(rest.left(), 0U);
    }
}

TEST(TakeLyricsField, EveryPrefixThatEndsBeforeTheLengthIsRefused) {
    const ByteArray body = bytesOf("ETT00005Title");
    for (std::size_t size = 0; size < 4; ++size) {
        ByteReader rest(Bytes(body).first(size));
        EXPECT_FALSE(takeLyricsField(rest)) << size;
    }
}

TEST(TakeLyricsField, ALengthOfAnythingButDigitsIsRefused) {
    for (const char* length : {"    5", "5    ", "+0005", "-0005", "5.000", "0x005", "OOOO5",
                               "00\xB2"
                               "05"}) {
        const ByteArray body = bytesOf("ETT" + std::string(length) + "Title");
        ByteReader rest(body);
        EXPECT_FALSE(takeLyricsField(rest)) << length;
    }
}

TEST(TakeLyricsField, AnIdIsAnyThreeBytes) {
    const ByteArray body = bytesOf(std::string("\0\xFF\n00001x", 9));
    ByteReader rest(body);
    const auto field = takeLyricsField(rest);
    ASSERT_TRUE(field);
    EXPECT_EQ(textOf(field->id), std::string("\0\xFF\n", 3));
}

TEST(TakeLyricsField, AHostileBodyIsSplitInOnePass) {
    ByteArray body;
    for (int count = 0; count < 120'000; ++count) {
        for (const char character : std::string("ABC00000")) body.push_back(static_cast<std::uint8_t>(character));
    }
    ByteReader rest(body);
    int fields = 0;
    while (takeLyricsField(rest)) ++fields;
    EXPECT_EQ(fields, 120'000);
}

} // namespace
} // namespace corvane::lyricsformat_test
