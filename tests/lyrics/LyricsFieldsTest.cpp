#include "corvane/lyrics/LyricsFields.h"

#include "corvane/lyrics/LyricsV200FieldInternals.h"

#include <gtest/gtest.h>

namespace corvane::lyricsfields_test {
namespace {

std::shared_ptr<LyricsV200Field> fieldOf(std::string_view id, std::string text = {}) {
    return Internals<LyricsV200Field>::of(id, 0, std::move(text));
}

TEST(LyricsFields, KeepTheOrderInWhichTheyWereAdded) {
    LyricsFields fields;
    for (const char* id : {"LYR", "AUT", "XYZ", "EAL"}) EXPECT_TRUE(fields.add(fieldOf(id)));
    ASSERT_EQ(fields.count(), 4U);
    EXPECT_EQ(fields.at(0)->ID(), "LYR");
    EXPECT_EQ(fields.at(1)->ID(), "AUT");
    EXPECT_EQ(fields.at(2)->ID(), "XYZ");
    EXPECT_EQ(fields.at(3)->ID(), "EAL");
}

TEST(LyricsFields, AnIdThatIsInUseIsRefusedAndTheFirstFieldStays) {
    LyricsFields fields;
    EXPECT_TRUE(fields.add(fieldOf("LYR", "first")));
    EXPECT_FALSE(fields.add(fieldOf("LYR", "second")));
    EXPECT_EQ(fields.count(), 1U);
    EXPECT_EQ(fields.find("LYR")->TextData(), "first");
}

TEST(LyricsFields, IdsDifferInUpperAndLowerCase) {
    LyricsFields fields;
    EXPECT_TRUE(fields.add(fieldOf("LYR", "upper")));
    EXPECT_TRUE(fields.add(fieldOf("lyr", "lower")));
    EXPECT_EQ(fields.find("lyr")->TextData(), "lower");
    EXPECT_EQ(fields.find("Lyr"), nullptr);
}

TEST(LyricsFields, OnlyTheWholeIdFindsAField) {
    LyricsFields fields;
    EXPECT_TRUE(fields.add(fieldOf("LYR")));
    for (const char* id : {"", "L", "LY", "LYRX", " LYR"}) EXPECT_EQ(fields.find(id), nullptr) << id;
}

} // namespace
} // namespace corvane::lyricsfields_test
