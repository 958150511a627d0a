#include "corvane/platform/Utf.h"

#include <gtest/gtest.h>

namespace corvane::utf_test {
namespace {

TEST(Utf, CodePointsGoToUtf8AndBack) {
    for (const char32_t codePoint :
         {0x0U, 0x7FU, 0x80U, 0x7FFU, 0x800U, 0xD7FFU, 0xE000U, 0xFFFDU, 0xFFFFU, 0x10000U, 0x10FFFFU}) {
        std::string text;
        appendUtf8(text, codePoint);
        std::string_view rest = text;
        EXPECT_EQ(takeCodePoint(rest), codePoint);
        EXPECT_TRUE(rest.empty());
        EXPECT_TRUE(isUtf8(text));
    }
}

TEST(Utf, NumbersThatAreNoCharactersAreWrittenAsTheReplacementCharacter) {
    for (const char32_t codePoint : {0xD800U, 0xDFFFU, 0x110000U}) {
        std::string text;
        appendUtf8(text, codePoint);
        EXPECT_EQ(text, "\uFFFD");
    }
}

struct Case {
    const char* name;
    std::string_view malformed;
    const char* repaired;
};

class MalformedUtf8 : public testing::TestWithParam<Case> {};

TEST_P(MalformedUtf8, EachMaximalPartBecomesOneReplacementCharacter) {
    EXPECT_EQ(repairedUtf8(GetParam().malformed), GetParam().repaired);
    EXPECT_FALSE(isUtf8(GetParam().malformed));
}

INSTANTIATE_TEST_SUITE_P(Sequences, MalformedUtf8,
                         testing::Values(Case{"LoneContinuation", "a\x80z", "a\uFFFDz"},
                                         Case{"OverlongSlash", "\xC0\xAF", "\uFFFD\uFFFD"},
                                         Case{"EncodedSurrogate", "\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},
                                         Case{"BeyondUnicode", "\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"},
                                         Case{"CutInTheMiddle", "\xE2\x82", "\uFFFD"},
                                         Case{"CutBeforeNext", "\xF0\x9F\x98z", "\uFFFDz"}),
                         [](const auto& tested) { return tested.param.name; });

TEST(Utf, HalfOfAPairOfUtf16BecomesTheReplacementCharacter) {
    EXPECT_EQ(utf8FromUtf16(u"\xD83D\xDE00"), "\xF0\x9F\x98\x80");
    EXPECT_EQ(utf8FromUtf16(u"a\xD83Dz"), "a\uFFFDz");
    EXPECT_EQ(utf8FromUtf16(u"\xDE00"), "\uFFFD");
    EXPECT_EQ(utf8FromUtf16(u"\xD83D"), "\uFFFD");
}

TEST(Utf, CharactersAreCountedNotBytes) { EXPECT_EQ(characterCount("日本€a"), 4U); }

} // namespace
} // namespace corvane::utf_test
