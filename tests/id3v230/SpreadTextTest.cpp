#include "corvane/id3v230/SpreadText.h"

#include "tests/support/ByteBuilder.h"

#include <gtest/gtest.h>

namespace corvane::spreadtext_test {
namespace {

using namespace test;

struct Case {
    const char* name;
    std::string text;
    std::string spread;
};
class SpreadText : public testing::TestWithParam<Case> {};

TEST_P(SpreadText, HasABlankBehindEachCharacter) { EXPECT_EQ(textOf(spreadText(GetParam().text)), GetParam().spread); }
TEST_P(SpreadText, IsReadBack) { EXPECT_EQ(unspreadText(spreadText(GetParam().text)), GetParam().text); }

INSTANTIATE_TEST_SUITE_P(Texts, SpreadText,
                         testing::Values(Case{"Nothing", "", ""}, Case{"TwoCharacters", "ab", "a b "},
                                         Case{"Blanks", "a  b", "a     b "}, Case{"OneBlank", " ", "  "},
                                         Case{"CodePage", "caf\u00E9 \u20AC", "c a f \xE9   \x80 "},
                                         Case{"OutsideTheCodePage", "a\u65E5\u00E9", "a \xE6\x97\xA5 \xC3\xA9 "},
                                         Case{"Zero", std::string("a\0b", 3), std::string("a \0 b ", 6)}),
                         [](const auto& tested) { return tested.param.name; });

TEST(UnspreadText, LeavesDataThatAreNotSpread) {
    EXPECT_EQ(unspreadText(bytesOf("abc")), "abc");
    EXPECT_EQ(unspreadText(bytesOf("a bc")), "a bc");
    EXPECT_EQ(unspreadText(bytesOf("a b")), "a b"); // odd length
    EXPECT_EQ(unspreadText(bytesOf("caf\xE9")), "caf\u00E9");
    EXPECT_EQ(unspreadText(bytesOf("\xC3\xA9")), "\u00C3\u00A9");
}

} // namespace
} // namespace corvane::spreadtext_test
