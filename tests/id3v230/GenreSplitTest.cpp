#include "corvane/id3v230/GenreSplit.h"

#include <gtest/gtest.h>

namespace corvane::genresplit_test {
namespace {

struct Case {
    const char* name;
    const char* text;
    std::optional<std::int16_t> number;
    std::optional<std::string> description;
};

class SplitGenreOf : public testing::TestWithParam<Case> {};

TEST_P(SplitGenreOf, GivesNumberAndDescription) {
    const SplitGenre split = splitGenre(GetParam().text);
    EXPECT_EQ(split.number, GetParam().number);
    EXPECT_EQ(split.description, GetParam().description);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, SplitGenreOf,
    testing::Values(Case{"ANumberAndAName", "(17)Rock", 17, "Rock"}, Case{"BlanksAround", "  (17)Rock ", 17, "Rock"},
                    Case{"ANumberAlone", "(17)", 17, ""}, Case{"ANumberInManyBrackets", "((17) )", 17, ""},
                    Case{"OfTwoNumbersTheFirst", "(17)(18)", 17, ""}, Case{"AName", "Rock", std::nullopt, "Rock"},
                    Case{"Nothing", "", std::nullopt, ""}, Case{"BlanksOnly", "   ", std::nullopt, ""},
                    Case{"EmptyBrackets", "()Rock", 0, "Rock"}, Case{"ARemix", "(RX)Rock", 0, "Rock"},
                    Case{"NoClosingBracket", "(17 Rock", std::nullopt, "(17 Rock"},
                    Case{"ABracketAtTheEndOnly", "Rock)", std::nullopt, "Rock)"},
                    Case{"BlanksBehindTheBracket", "(17) Rock", 17, " Rock"},
                    Case{"ANumberThatDoesNotFitGivesNothing", "(99999)Rock", std::nullopt, std::nullopt}),
    [](const auto& tested) { return tested.param.name; });

} // namespace
} // namespace corvane::genresplit_test
