#include "corvane/platform/EncodedText.h"

#include "tests/support/Id3v2Builder.h"

#include <gtest/gtest.h>

namespace corvane::encodedtext_test {
namespace {

using namespace test;
using Values = std::vector<std::string>;

Values valuesOf(Bytes payload) {
    ByteReader reader(payload);
    auto text = EncodedTextReader::begin(reader);
    if (!text) return {"no text"};
    const Values values = text->takeValues(reader);
    EXPECT_EQ(reader.left(), 0U);
    return values;
}

class EveryEncoding : public testing::TestWithParam<Encoding> {};

TEST_P(EveryEncoding, GivesTheTextThatWasWritten) {
    const std::string text = GetParam() == Encoding::CodePage ? "Abc caf\u00E9" : "Abc \u65E5\u672C \U0001F600";
    EXPECT_EQ(valuesOf(textFrame(text, GetParam())), Values{text});
    EXPECT_EQ(valuesOf(textFrame("ASCII", GetParam())), Values{"ASCII"});
}

TEST_P(EveryEncoding, CutsTrailingZeros) {
    for (const std::size_t zeros : {1U, 2U, 3U, 4U, 5U}) {
        EXPECT_EQ(valuesOf(ByteBuilder().bytes(textFrame("ab", GetParam())).repeat(0, zeros).done()), Values{"ab"});
    }
}

TEST_P(EveryEncoding, GivesSeveralValues) {
    EXPECT_EQ(valuesOf(valuesFrame(Values{"a", "bc", "d"}, GetParam())), (Values{"a", "bc", "d"}));
    EXPECT_EQ(valuesOf(valuesFrame(Values{"", "a", "", "b", ""}, GetParam())), (Values{"a", "b"}));
}

TEST_P(EveryEncoding, TakesAStringWithItsEnd) {
    const ByteArray bytes = ByteBuilder()
                                .byte(static_cast<unsigned>(GetParam()))
                                .bytes(terminated(GetParam(), "caf\u00E9"))
                                .bytes(terminated(GetParam(), ""))
                                .bytes(encoded(GetParam(), "rest"))
                                .done();
    ByteReader reader(bytes);
    auto text = EncodedTextReader::begin(reader);
    ASSERT_TRUE(text);
    EXPECT_EQ(text->takeTerminated(reader), "caf\u00E9");
    EXPECT_EQ(text->takeTerminated(reader), "");
    EXPECT_EQ(text->takeTerminated(reader), ""); // "rest" has no end and is not taken
    EXPECT_EQ(text->takeValues(reader), Values{"rest"});
}

TEST_P(EveryEncoding, OfNothingIsNothing) {
    EXPECT_EQ(valuesOf(textFrame("", GetParam())), Values());
    EXPECT_EQ(valuesOf(ByteArray{static_cast<std::uint8_t>(GetParam())}), Values());
}

INSTANTIATE_TEST_SUITE_P(All, EveryEncoding,
                         testing::Values(Encoding::CodePage, Encoding::Utf16, Encoding::Utf16BigEndian,
                                         Encoding::Utf8));

TEST(EncodedText, WithoutAnEncodingIsNoText) {
    EXPECT_EQ(valuesOf({}), Values{"no text"});
    EXPECT_EQ(valuesOf(ByteArray{4, 'a'}), Values{"no text"});
    EXPECT_EQ(valuesOf(ByteArray{255, 'a'}), Values{"no text"});
}

struct OrderCase {
    const char* name;
    ByteArray payload;
    Values expected;
};
class OrderOfUtf16 : public testing::TestWithParam<OrderCase> {};
TEST_P(OrderOfUtf16, IsThatOfTheMarkOrOfTheStringBefore) {
    EXPECT_EQ(valuesOf(GetParam().payload), GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(
    Payloads, OrderOfUtf16,
    testing::Values(OrderCase{"BigEndianMark", {1, 0xFE, 0xFF, 0, 'a'}, {"a"}},
                    OrderCase{"LittleEndianWithoutAMark", {1, 'a', 0}, {"a"}},
                    OrderCase{"MarkOfTheFirstString", {1, 0xFE, 0xFF, 0, 'a', 0, 0, 0, 'b'}, {"a", "b"}},
                    OrderCase{"MarkInEveryString", {1, 0xFF, 0xFE, 'a', 0, 0, 0, 0xFE, 0xFF, 0, 'b'}, {"a", "b"}},
                    OrderCase{"Encoding2WithoutAMark", {2, 0, 'a'}, {"a"}},
                    OrderCase{"Encoding2WithAMarkAllTheSame", {2, 0xFF, 0xFE, 'a', 0}, {"a"}},
                    OrderCase{"HalfOfNoPair", {2, 0xD8, 0x3D, 0, 'a'}, {"\uFFFDa"}},
                    OrderCase{"ATrailingOddByte", {2, 0, 'a', 'b'}, {"a"}},
                    OrderCase{"AZeroByteIsNoEnd", {2, 0, 'a', 0x01, 0x00, 0, 'b'}, {"a\u0100b"}}),
    [](const auto& tested) { return tested.param.name; });

TEST(EncodedText, ALeadingMarkOfUtf8IsNoCharacter) {
    EXPECT_EQ(valuesOf(bytesOf("\3\xEF\xBB\xBF"
                               "a")),
              Values{"a"});
}

TEST(EncodedText, DamagedUtf8IsRepaired) {
    EXPECT_EQ(valuesOf(bytesOf("\3a\xFF"
                               "b\xC3")),
              Values{"a\uFFFDb\uFFFD"});
}

TEST(JoinedValues, StandBehindEachOther) {
    EXPECT_EQ(joinedValues({"a", "b", "c"}), "a; b; c");
    EXPECT_EQ(joinedValues({"a"}), "a");
    EXPECT_EQ(joinedValues({}), "");
}

} // namespace
} // namespace corvane::encodedtext_test
