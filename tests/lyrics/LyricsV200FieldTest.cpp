#include "corvane/lyrics/LyricsV200Field.h"

#include "corvane/lyrics/LyricsV200FieldInternals.h"

#include <gtest/gtest.h>

#include <string>

namespace corvane::lyricsv200field_test {
namespace {

std::shared_ptr<LyricsV200Field> fieldOf(std::string_view id) { return Internals<LyricsV200Field>::of(id, 4, "Text"); }

// Which of IsLyrics, IsArtist, IsAlbum, IsTitle and IsAuthor are true, as "10000".
std::string kindOf(const LyricsV200Field& field) {
    std::string kinds;
    for (const bool is : {field.IsLyrics(), field.IsArtist(), field.IsAlbum(), field.IsTitle(), field.IsAuthor()}) {
        kinds += is ? '1' : '0';
    }
    return kinds;
}

struct KindCase {
    const char* id;
    const char* kinds;
};
class LyricsFieldKind : public testing::TestWithParam<KindCase> {};
TEST_P(LyricsFieldKind, FollowsFromTheId) { EXPECT_EQ(kindOf(*fieldOf(GetParam().id)), GetParam().kinds); }
INSTANTIATE_TEST_SUITE_P(Ids, LyricsFieldKind,
                         testing::Values(KindCase{"LYR", "10000"}, KindCase{"EAR", "01000"}, KindCase{"EAL", "00100"},
                                         KindCase{"ETT", "00010"}, KindCase{"AUT", "00001"}, KindCase{"INF", "00000"},
                                         KindCase{"lyr", "00000"}, KindCase{"Ear", "00000"}, KindCase{"eaL", "00000"},
                                         KindCase{"ett", "00000"}, KindCase{"aut", "00000"}),
                         [](const auto& tested) { return tested.param.id; });

TEST(LyricsV200Field, ANewOneIsNoFieldOfAnyKind) {
    const LyricsV200Field field;
    EXPECT_EQ(field.ID(), "   ");
    EXPECT_EQ(field.Size(), 0);
    EXPECT_EQ(field.TextData(), "");
    EXPECT_EQ(kindOf(field), "00000");
}

TEST(LyricsV200Field, ShowsWhatTheLibraryHasSet) {
    const auto field = fieldOf("INF");
    EXPECT_EQ(field->ID(), "INF");
    EXPECT_EQ(field->Size(), 4);
    EXPECT_EQ(field->TextData(), "Text");
}

TEST(LyricsV200Field, TheIdIsPaddedOrCutToThreeCharacters) {
    EXPECT_EQ(fieldOf("")->ID(), "   ");
    EXPECT_EQ(fieldOf("AB")->ID(), "AB ");
    EXPECT_EQ(fieldOf("LYRX")->ID(), "LYR");
    EXPECT_EQ(fieldOf("€äßx")->ID(), "€äß");
    EXPECT_EQ(fieldOf("ä")->ID(), "ä  ");
}

} // namespace
} // namespace corvane::lyricsv200field_test
