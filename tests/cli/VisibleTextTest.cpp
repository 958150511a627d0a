#include "apps/cli/VisibleText.h"

#include "corvane/platform/Utf.h"

#include <gtest/gtest.h>

namespace corvane::cli::visibletext_test {
namespace {

using Lines = std::vector<std::string>;

TEST(VisibleText, AsciiControlsBecomeTheirPictures) {
    EXPECT_EQ(visibleText("\x1b[31mred"), "\u241b[31mred");
    EXPECT_EQ(visibleText(std::string_view("\0\n\x7f", 3)), "\u2400\u240a\u2421");
}

TEST(VisibleText, MalformedBytesAndC1ControlsAreReplaced) {
    EXPECT_EQ(visibleText("a\x9b\x33z"), "a\ufffd3z");
    EXPECT_EQ(visibleText("\u009b31m"), "\ufffd31m");
}

TEST(VisibleText, MarksThatTurnTheReadingDirectionAreReplaced) {
    EXPECT_EQ(visibleText("gpj.\u202e3pm.exe"), "gpj.\ufffd3pm.exe");
    EXPECT_EQ(visibleText("\u2066\u2069\u200f\u061c"), "\ufffd\ufffd\ufffd\ufffd");
}

TEST(VisibleText, NoCharacterOfAnyKindLeavesAControlBehind) {
    for (char32_t character = 0; character < 0x3000; ++character) {
        std::string text;
        appendUtf8(text, character);
        std::string shown = visibleText(text);
        std::string_view rest = shown;
        const char32_t seen = takeCodePoint(rest);
        EXPECT_TRUE(seen >= 0x20 && seen != 0x7f && !(seen >= 0x80 && seen < 0xa0) && rest.empty());
    }
}

TEST(VisibleText, TextOfAllScriptsStays) {
    const std::string text = "\u00c5ngstr\u00f6m \u65e5\u672c\u8a9e \u05e9\u05dc\u05d5\u05dd \U0001f3b5";
    EXPECT_EQ(visibleText(text), text);
}

TEST(WithoutControls, KeepsBytesThatAreNoText) {
    EXPECT_EQ(withoutControls("caf\xe9\n\x1b.mp3"), "caf\xe9\u240a\u241b.mp3");
}

TEST(VisibleTable, OnlyLineFeedsAndTheirCarriageReturnsBreakLines) {
    EXPECT_EQ(visibleTable("a\nb\r\nc\rd\x1b\n\r\n"), "a\nb\nc\u240dd\u241b\n\n");
    EXPECT_EQ(visibleTable("a\r"), "a\u240d");
    EXPECT_EQ(visibleTable(""), "");
}

TEST(VisibleLines, EveryKindOfLineBreakEndsALine) {
    EXPECT_EQ(visibleLines("a\nb\r\nc\rd\u2028e\u2029f"), (Lines{"a", "b", "c", "d", "e", "f"}));
}

TEST(VisibleLines, EmptyLinesAtTheEndAreDropped) {
    EXPECT_EQ(visibleLines("a\n\nb\n\n\r\n"), (Lines{"a", "", "b"}));
    EXPECT_EQ(visibleLines(""), Lines{});
    EXPECT_EQ(visibleLines("\n"), Lines{});
}

TEST(VisibleLines, TabsBecomeBlanksAndOtherControlsVisible) {
    EXPECT_EQ(visibleLines("a\tb\x1b\u0085"), Lines{"a    b\u241b\ufffd"});
}

} // namespace
} // namespace corvane::cli::visibletext_test
