#include "apps/cli/JsonText.h"

#include "corvane/platform/Utf.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <random>

namespace corvane::cli::jsontext_test {
namespace {

std::string quoted(std::string_view text) {
    std::string line;
    appendJsonString(line, text);
    return line;
}

std::string readBack(std::string_view text) { return nlohmann::json::parse(quoted(text)).get<std::string>(); }

struct Case {
    const char* name;
    std::string_view text, quoted;
};
class JsonString : public testing::TestWithParam<Case> {};

TEST_P(JsonString, IsWrittenAsListed) { EXPECT_EQ(quoted(GetParam().text), GetParam().quoted); }

INSTANTIATE_TEST_SUITE_P(Texts, JsonString,
                         testing::Values(Case{"Empty", "", R"("")"}, Case{"Plain", "a b~", R"("a b~")"},
                                         Case{"QuoteAndBackslash", R"(a"b\c)", R"("a\"b\\c")"},
                                         Case{"LineBreaksAndTab", "\n\r\t", R"("\n\r\t")"},
                                         Case{"Nul", std::string_view("\0", 1), R"("\u0000")"},
                                         Case{"Escape", "\x1b[31m", R"("\u001b[31m")"},
                                         Case{"Delete", "\x7f", R"("\u007f")"},
                                         Case{"C1Control", "\u009b", R"("\u009b")"},
                                         Case{"DirectionMark", "\u202e", R"("\u202e")"},
                                         Case{"NoBreakSpaceIsText", "\u00a0", "\"\u00a0\""},
                                         Case{"OtherScripts", "\u00e9\u65e5\U0001f600", "\"\u00e9\u65e5\U0001f600\""},
                                         Case{"MalformedByte", "a\xffz", "\"a\ufffdz\""},
                                         Case{"SequenceCutShort", "\xe6\x97", "\"\ufffd\""}),
                         [](const auto& tested) { return tested.param.name; });

TEST(JsonText, EveryCharacterIsReadBackByAnIndependentParser) {
    for (char32_t character = 0; character <= 0x10FFFF; character += character < 0x3000 ? 1 : 97) {
        std::string text;
        appendUtf8(text, character);
        EXPECT_EQ(readBack(text), text) << static_cast<std::uint32_t>(character);
    }
}

TEST(JsonText, AnyBytesAreReadBackWithMalformedOnesReplaced) {
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        std::string bytes(random() % 40, '\0');
        std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<char>(random()); });
        EXPECT_EQ(readBack(bytes), repairedUtf8(bytes));
    }
}

} // namespace
} // namespace corvane::cli::jsontext_test
