#include "corvane/id3v1/Genres.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <type_traits>

namespace corvane::genres_test {
namespace {

constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();

TEST(Genres, CountIsOneHundredAndFortyNine) { EXPECT_EQ(Genres().Count(), 149); }

TEST(Genres, TheLastPositionIsTheUndefinedGenre) {
    const auto last = Genres().getGenreByIndex(149);
    ASSERT_NE(last, nullptr);
    EXPECT_EQ(last->Description(), "<Undefined>");
    EXPECT_EQ(last->Num(), 255);
}

TEST(Genres, GenreNStandsAtPositionNPlusOne) {
    const Genres genres;
    for (std::int16_t number = 0; number <= 147; ++number) {
        const auto byKey = genres.getGenreByID(std::to_string(number));
        ASSERT_NE(byKey, nullptr) << number;
        EXPECT_EQ(byKey->Num(), number);
        EXPECT_EQ(genres.getGenreByIndex(number + 1), byKey) << number;
    }
}

TEST(Genres, AnEntryIsFoundByItsKey) {
    const Genres genres;
    EXPECT_EQ(genres.getGenreByID("99")->Description(), "Accoustic");
    EXPECT_EQ(genres.getGenreByID("67")->Description(), "Psychadelic");
    EXPECT_EQ(genres.getGenreByID("255")->Description(), "<Undefined>");
}

TEST(Genres, ATextThatIsNoKeyGivesNothing) {
    const Genres genres;
    for (const char* key : {"148", "254", "256", "", "-1", "+1", "07", "00", " 7", "7 ", "7.0", "0x7", "Blues", "65537",
                            "4294967303", "99999999999999999999"}) {
        EXPECT_EQ(genres.getGenreByID(key), nullptr) << key;
        EXPECT_EQ(genres.Item(std::string(key)), nullptr) << key;
    }
}

TEST(Genres, APositionOutOfRangeGivesNothing) {
    const Genres genres;
    for (const std::int32_t position : {kSmallest, -1, 0, 150, 256, kLargest}) {
        EXPECT_EQ(genres.getGenreByIndex(position), nullptr) << position;
        EXPECT_EQ(genres.Item(position), nullptr) << position;
    }
}

TEST(Genres, ItemTakesANumberAsPositionAndATextAsKey) {
    const Genres genres;
    EXPECT_EQ(genres.Item(8)->Description(), "Hip-Hop");
    EXPECT_EQ(genres.Item("8")->Description(), "Jazz");
    EXPECT_EQ(genres[8], genres.Item(8));
    EXPECT_EQ(genres["8"], genres.Item("8"));
    EXPECT_EQ(genres.Item(Variant()), nullptr);
}

TEST(Genres, EnumeratesInTableOrder) {
    const Genres genres;
    std::int32_t position = 0;
    for (const auto& genre : genres) EXPECT_EQ(genre, genres.getGenreByIndex(++position));
    EXPECT_EQ(position, 149);
}

TEST(Genres, EnumeratorsAreIndependent) {
    const Genres genres;
    auto first = genres.begin();
    const auto second = first++;
    EXPECT_EQ((*first)->Num(), 1);
    EXPECT_EQ((*second)->Num(), 0);
    EXPECT_NE(first, second);
}

TEST(Genres, TheSameEntryIsHandedOutEveryTime) {
    const Genres genres;
    genres.getGenreByID("17")->Num(4711);
    EXPECT_EQ(genres.getGenreByID("17")->Num(), 4711);
}

TEST(Genres, AnEntryWhoseNumberIsWrittenKeepsItsKeyAndName) {
    const Genres genres;
    const auto rock = genres.getGenreByID("17");
    rock->Num(-5);
    EXPECT_EQ(genres.getGenreByID("17"), rock);
    EXPECT_EQ(rock->Description(), "Rock");
    EXPECT_EQ(genres.getGenreByID("-5"), nullptr);
}

TEST(Genres, AWrittenNumberChangesNoOtherList) {
    const Genres changed, other;
    changed.getGenreByID("17")->Num(4711);
    EXPECT_EQ(other.getGenreByID("17")->Num(), 17);
    EXPECT_NE(other.getGenreByID("17"), changed.getGenreByID("17"));
}

TEST(Genres, AnEntryOutlivesItsList) {
    std::shared_ptr<Genre> entry;
    { entry = Genres().getGenreByIndex(1); }
    EXPECT_EQ(entry->Description(), "Blues");
}

TEST(Genres, AListCannotBeCopied) { EXPECT_FALSE(std::is_copy_constructible_v<Genres>); }

TEST(Genre, ANewOneIsEmpty) {
    const Genre genre;
    EXPECT_EQ(genre.Num(), 0);
    EXPECT_EQ(genre.Description(), "");
}

TEST(Genre, NumHoldsEverySixteenBitNumber) {
    Genre genre;
    for (const std::int16_t number : {std::int16_t{-32768}, std::int16_t{0}, std::int16_t{32767}}) {
        genre.Num(number);
        EXPECT_EQ(genre.Num(), number);
    }
}

} // namespace
} // namespace corvane::genres_test
