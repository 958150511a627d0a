// Genres as they are entered and as they are stored.
#include "corvane/id3v2/StoredGenre.h"

#include "corvane/id3v1/GenreTable.h"
#include "corvane/id3v2/ReadableGenre.h"

#include <gtest/gtest.h>

namespace corvane::storedgenre_test {
namespace {

TEST(StoredGenre, IsTheSameWhicheverWayItIsEntered) {
    for (const char* entered : {"Rock", "rock", " Ro ck", "17", "017", "(17)", "(17)Rock", "(17) rock", "(017)ROCK"}) {
        EXPECT_EQ(storedGenre(entered), "(17)") << entered;
        EXPECT_EQ(genreNumber(entered), 17) << entered;
    }
}

struct GenreCase {
    const char* name;
    std::string_view entered;
    std::string stored;
    std::optional<std::uint8_t> number;
};
class EnteredGenre : public testing::TestWithParam<GenreCase> {};
TEST_P(EnteredGenre, IsStoredAsListed) {
    EXPECT_EQ(storedGenre(GetParam().entered), GetParam().stored);
    EXPECT_EQ(genreNumber(GetParam().entered), GetParam().number);
}
INSTANTIATE_TEST_SUITE_P(
    Texts, EnteredGenre,
    testing::Values(GenreCase{"Empty", "", "", 255}, GenreCase{"OddSpelling", "Trip -Hop", "(27)", 27},
                    GenreCase{"UsualSpelling", "trip-hop", "(27)", 27},
                    GenreCase{"NumberWithoutAName", "200", "(200)", 200},
                    GenreCase{"ReferenceWithoutAName", "(200)", "(200)", 200}, GenreCase{"None", "255", "", 255},
                    GenreCase{"ReferenceToNone", "(255)", "", 255}, GenreCase{"NameOfNone", "<Undefined>", "", 255},
                    GenreCase{"MorePrecise", "(17)Hard Rock", "(17)Hard Rock", 17},
                    GenreCase{"Several", "(31)(39)", "(31)(39)", 31}, GenreCase{"OwnName", "My genre", "My genre", {}},
                    GenreCase{"Decade", "80s", "80s", {}}, GenreCase{"NumberTooLarge", "256", "256", {}},
                    GenreCase{"ReferenceTooLarge", "(256)", "(256)", {}},
                    GenreCase{"ReferenceByLetters", "(RX)", "(RX)", {}}, GenreCase{"NoEnd", "(17", "(17", {}},
                    GenreCase{"NameInParentheses", "((draft)", "((draft)", {}}, GenreCase{"Blank", " ", " ", {}}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(StoredGenre, EveryNameOfTheTableIsReadBackAsItIs) {
    for (const GenreRow& row : kGenreTable) {
        if (row.number == kUndefinedGenre) continue;
        EXPECT_EQ(readableGenre(storedGenre(row.name)), row.name);
        EXPECT_EQ(genreNumber(row.name), row.number);
    }
}

} // namespace
} // namespace corvane::storedgenre_test
