#include "apps/cli/DisplayWidth.h"

#include <gtest/gtest.h>

namespace corvane::cli::displaywidth_test {
namespace {

using Pieces = std::vector<std::string>;

struct Case {
    const char* name;
    std::string_view text;
    std::size_t columns;
};
class DisplayWidth : public testing::TestWithParam<Case> {};

TEST_P(DisplayWidth, CountsColumns) { EXPECT_EQ(displayWidth(GetParam().text), GetParam().columns); }

INSTANTIATE_TEST_SUITE_P(Texts, DisplayWidth,
                         testing::Values(Case{"Empty", "", 0}, Case{"Ascii", "abc", 3},
                                         Case{"Latin", "\u00c5\u00e9\u0142", 3}, Case{"Han", "\u65e5\u672c", 4},
                                         Case{"Hangul", "\ud55c\uae00", 4}, Case{"FullWidth", "\uff21", 2},
                                         Case{"HalfWidthKatakana", "\uff76", 1}, Case{"Pictograph", "\U0001f3b5", 2},
                                         Case{"CombiningAccent", "e\u0301", 1}, Case{"ZeroWidthJoiner", "\u200d", 0},
                                         Case{"HanOfLaterPlanes", "\U00020000", 2}, Case{"MalformedByte", "\xff", 1}),
                         [](const auto& tested) { return tested.param.name; });

TEST(Wrapped, BreaksAtTheLastBlankThatFits) {
    EXPECT_EQ(wrapped("one two three", 8), (Pieces{"one two", "three"}));
    EXPECT_EQ(wrapped("one two three", 7), (Pieces{"one two", "three"}));
    EXPECT_EQ(wrapped("one two three", 6), (Pieces{"one", "two", "three"}));
}

TEST(Wrapped, BreaksAWordThatIsTooLong) { EXPECT_EQ(wrapped("abcdefgh", 3), (Pieces{"abc", "def", "gh"})); }

TEST(Wrapped, WideCharactersCountTwice) {
    EXPECT_EQ(wrapped("\u65e5\u672c\u8a9e", 5), (Pieces{"\u65e5\u672c", "\u8a9e"}));
}

TEST(Wrapped, CombiningMarksStayWithTheirCharacter) { EXPECT_EQ(wrapped("ae\u0301b", 2), (Pieces{"ae\u0301", "b"})); }

TEST(Wrapped, AlwaysGetsOn) {
    EXPECT_EQ(wrapped("\u65e5\u672c", 1), (Pieces{"\u65e5", "\u672c"}));
    EXPECT_EQ(wrapped("ab", 0), (Pieces{"a", "b"}));
}

TEST(Wrapped, TextThatFitsIsOnePiece) {
    EXPECT_EQ(wrapped("", 5), Pieces{""});
    EXPECT_EQ(wrapped("abcde", 5), Pieces{"abcde"});
}

} // namespace
} // namespace corvane::cli::displaywidth_test
