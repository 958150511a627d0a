#include "apps/cli/TagValues.h"

#include <gtest/gtest.h>

namespace corvane::cli::tagvalues_test {
namespace {

struct MeaningCase {
    const char* name;
    std::string_view text;
    bool isMeant;
};
const auto kNameOfCase = [](const auto& tested) { return std::string(tested.param.name); };

class Track : public testing::TestWithParam<MeaningCase> {};
TEST_P(Track, IsMeantAsListed) { EXPECT_EQ(isTrack(GetParam().text), GetParam().isMeant); }
INSTANTIATE_TEST_SUITE_P(Texts, Track,
                         testing::Values(MeaningCase{"Number", "7", true}, MeaningCase{"Large", "70000", true},
                                         MeaningCase{"WithTotal", "07/12", true}, MeaningCase{"Empty", "", false},
                                         MeaningCase{"NoTotal", "7/", false}, MeaningCase{"NoNumber", "/12", false},
                                         MeaningCase{"TwoTotals", "7/12/15", false}, MeaningCase{"Word", "A1", false},
                                         MeaningCase{"Negative", "-7", false}, MeaningCase{"Blank", "7 ", false}),
                         kNameOfCase);

class Genre : public testing::TestWithParam<MeaningCase> {};
TEST_P(Genre, IsMeantAsListed) { EXPECT_EQ(isGenre(GetParam().text), GetParam().isMeant); }
INSTANTIATE_TEST_SUITE_P(Texts, Genre,
                         testing::Values(MeaningCase{"Least", "0", true}, MeaningCase{"Most", "255", true},
                                         MeaningCase{"TooLarge", "256", false}, MeaningCase{"Name", "Rock", true},
                                         MeaningCase{"OwnName", "My genre", true}, MeaningCase{"Decade", "80s", true}),
                         kNameOfCase);

TEST(Id3v1PartOfValues, HoldsWhatId3v1CanHold) {
    TagValues values;
    values.title = "T";
    values.track = "5/12";
    values.genre = "rock";
    const Id3v1Part part = id3v1Part(values);
    EXPECT_EQ(part.values.title, "T");
    EXPECT_FALSE(part.values.artist);
    EXPECT_EQ(part.values.track, 5);
    EXPECT_EQ(part.values.genre, 17);
    EXPECT_TRUE(part.lost.empty());
}

TEST(Id3v1PartOfValues, ValueWithoutANumberIsDeletedAndTold) {
    TagValues values;
    values.track = "256/300";
    values.genre = "My genre";
    const Id3v1Part part = id3v1Part(values);
    EXPECT_EQ(part.values.track, 0);
    EXPECT_EQ(part.values.genre, 255);
    EXPECT_EQ(part.lost, (std::vector<std::string>{"track: ID3v1 has no number 256/300, only 1 to 255",
                                                   "genre: ID3v1 has no number for \"My genre\""}));
}

} // namespace
} // namespace corvane::cli::tagvalues_test
