#include "corvane/id3v2/GenreText.h"

#include <gtest/gtest.h>

namespace corvane::genretext_test {
namespace {

struct Case {
    const char* name;
    const char* contentType;
    const char* id;
    const char* description;
};
class GenreText : public testing::TestWithParam<Case> {};
TEST_P(GenreText, IsSplitAtTheFirstClosingParenthesis) {
    EXPECT_EQ(genreIdOf(GetParam().contentType), GetParam().id);
    EXPECT_EQ(genreNameOf(GetParam().contentType), GetParam().description);
}
INSTANTIATE_TEST_SUITE_P(Texts, GenreText,
                         testing::Values(Case{"Both", "(17)Rock", "17", "Rock"}, Case{"NumberOnly", "(17)", "17", ""},
                                         Case{"NameOnly", "Rock", "Rock", "Rock"}, Case{"Empty", "", "", ""},
                                         Case{"EmptyReference", "()Rock", "", "Rock"},
                                         Case{"NotAtTheStart", "Rock (17)", "Rock (17)", "Rock (17)"},
                                         Case{"TwoReferences", "(51)(39)", "51", "(39)"},
                                         Case{"WithoutEnd", "(17 Rock", "(17 Rock", "(17 Rock"},
                                         Case{"NoNumber", "(RX)a)b", "RX", "a)b"}),
                         [](const auto& tested) { return tested.param.name; });

} // namespace
} // namespace corvane::genretext_test
