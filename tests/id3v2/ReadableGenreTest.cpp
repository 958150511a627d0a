#include "corvane/id3v2/ReadableGenre.h"

#include <gtest/gtest.h>

namespace corvane::readablegenre_test {
namespace {

struct Case {
    const char* name;
    std::string contentType;
    std::string expected;
};
class ReadableGenre : public testing::TestWithParam<Case> {};
TEST_P(ReadableGenre, NamesWhatTheContentTypeMeans) {
    EXPECT_EQ(readableGenre(GetParam().contentType), GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(
    Texts, ReadableGenre,
    testing::Values(Case{"Reference", "(17)", "Rock"}, Case{"Number", "17", "Rock"}, Case{"Zero", "(0)", "Blues"},
                    Case{"Name", "Rock", "Rock"}, Case{"ReferenceAndItsName", "(17)Rock", "Rock"},
                    Case{"ARefinementStandsAlone", "(4)Eurodisco", "Eurodisco"},
                    Case{"BlanksInFrontOfTheRefinement", "(17) Rock", "Rock"},
                    Case{"SeveralReferences", "(51)(39)", "Techno -Industrial; Noise"},
                    Case{"TheSameReferenceTwice", "(17)(17)", "Rock"}, Case{"Remix", "(RX)", "Remix"},
                    Case{"Cover", "(CR)", "Cover"}, Case{"CoverAsText", "CR", "Cover"},
                    Case{"ReferencesAndRemix", "(17)(RX)", "Rock; Remix"},
                    Case{"AnEscapedParenthesis", "((draft)", "(draft)"},
                    Case{"AReferenceAndAnEscapedParenthesis", "(17)((draft)", "(draft)"},
                    Case{"AReferenceAndANumber", "(17)18", "Techno"}, Case{"None", "(255)", ""},
                    Case{"NoneAsANumber", "255", ""}, Case{"AnUnknownNumber", "(200)", "(200)"},
                    Case{"AnUnknownPlainNumber", "148", "148"}, Case{"TooLargeANumber", "(999)", "(999)"},
                    Case{"NoNumber", "(live)", "(live)"}, Case{"WithoutAnEnd", "(17", "(17"},
                    Case{"EmptyParentheses", "()", "()"}, Case{"Empty", "", ""},
                    Case{"NotAtTheStart", "Rock (17)", "Rock (17)"}),
    [](const auto& tested) { return tested.param.name; });

TEST(ReadableGenres, OfSeveralNamesEachOnce) {
    EXPECT_EQ(readableGenre({"17", "Rock", "(39)", "", "RX"}), "Rock; Noise; Remix");
    EXPECT_EQ(readableGenre(std::vector<std::string>{}), "");
}

} // namespace
} // namespace corvane::readablegenre_test
