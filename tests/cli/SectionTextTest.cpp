#include "apps/cli/SectionText.h"

#include <gtest/gtest.h>

namespace corvane::cli::sectiontext_test {
namespace {

std::string plain(const Section& section, unsigned columns = 0) {
    return sectionText(section, Colours(ColourChoice::Never, false), columns);
}

TEST(SectionText, ColumnsAreAlignedByWhatTheyTakeOnATerminal) {
    EXPECT_EQ(plain({"S", {{"", "a", "1"}, {"", "\u65e5\u672c", "2"}, {"", "e\u0301", "3"}}}),
              "S\n  a     1\n  \u65e5\u672c  2\n  e\u0301     3\n");
}

TEST(SectionText, IdsHaveAColumnOnlyWhereThereAreAny) {
    EXPECT_EQ(plain({"S", {{"TIT2", "Title", "1"}, {"", "Padding", "2"}}}),
              "S\n  TIT2  Title    1\n        Padding  2\n");
}

TEST(SectionText, EmptyValueIsADash) {
    EXPECT_EQ(plain({"S", {{"", "a", ""}, {"", "b", "\n"}}}), "S\n  a  -\n  b  -\n");
}

TEST(SectionText, FurtherLinesStandBelowTheFirst) {
    EXPECT_EQ(plain({"S", {{"", "Lyrics", "one\r\n\ntwo"}}}), "S\n  Lyrics  one\n\n          two\n");
}

TEST(SectionText, LongLabelStandsOnALineOfItsOwn) {
    const std::string label(31, 'x');
    EXPECT_EQ(plain({"S", {{"", label, "1"}, {"", "a", "2"}}}), "S\n  " + label + "\n     1\n  a  2\n");
}

TEST(SectionText, ValuesAreWrappedToTheTerminal) {
    EXPECT_EQ(plain({"S", {{"", "ab", "one two three four five six seven"}}}, 26),
              "S\n  ab  one two three four\n      five six seven\n");
}

TEST(SectionText, NothingIsWrappedWhereThereIsHardlyRoom) {
    EXPECT_EQ(plain({"S", {{"", "ab", "one two three four five six seven"}}}, 25),
              "S\n  ab  one two three four five six seven\n");
}

TEST(SectionText, ControlCharactersOfEveryPartAreMadeVisible) {
    EXPECT_EQ(plain({"\x1b", {{"\x1b[A", "\u202e\n", "\x07\u009b"}}}),
              "\u241b\n  \u241b[A  \ufffd\u240a  \u2407\ufffd\n");
}

TEST(SectionText, ColoursDoNotChangeTheAlignment) {
    const Section section{"S", {{"ID", "a", "1"}, {"", "bb", "2"}}};
    std::string text = sectionText(section, Colours(ColourChoice::Always, false), 0);
    EXPECT_NE(text.find("\x1b["), std::string::npos);
    for (std::size_t begin = text.find('\x1b'); begin != std::string::npos; begin = text.find('\x1b')) {
        text.erase(begin, text.find('m', begin) - begin + 1);
    }
    EXPECT_EQ(text, plain(section));
}

} // namespace
} // namespace corvane::cli::sectiontext_test
