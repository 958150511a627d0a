#include "corvane/id3v2/ID3V22Tag.h"

#include "corvane/id3v2/ID3V22TagInternals.h"

#include "tests/id3v2/TagOnDisk.h"

#include <gtest/gtest.h>

#include <limits>

namespace corvane::id3v22tag_test {
namespace {

using namespace test;

TEST(ID3V22Tag, OneFrameIsTheTitleAndNothingFollows) {
    TagOnDisk file(Id3v2Builder(2).raw(bytesOf(std::string_view("TT2\0\0\5\0abcd", 11))));
    const auto reader = file.tag.ID3V22Tag();
    ASSERT_NE(reader, nullptr);
    EXPECT_EQ(reader->Title(), "abcd");
    EXPECT_EQ(reader->FrameList(), "TT2;");
    EXPECT_EQ(reader->FrameCount(), 1);
}

struct Property {
    const char* name;
    const char* id;
    std::string (ID3V22Tag::*read)() const;
};
class PropertyOfID3V22Tag : public testing::TestWithParam<Property> {};
TEST_P(PropertyOfID3V22Tag, IsTheTextOfItsFrame) {
    TagOnDisk file(Id3v2Builder(2).text(GetParam().id, "value"));
    EXPECT_EQ((*file.tag.ID3V22Tag().*GetParam().read)(), "value");
    TagOnDisk other(Id3v2Builder(2).text("XXX", "value"));
    EXPECT_EQ((*other.tag.ID3V22Tag().*GetParam().read)(), "");
}
INSTANTIATE_TEST_SUITE_P(
    All, PropertyOfID3V22Tag,
    testing::Values(Property{"Artist", "TP1", &ID3V22Tag::Artist}, Property{"Album", "TAL", &ID3V22Tag::Album},
                    Property{"Title", "TT2", &ID3V22Tag::Title}, Property{"Genre", "TCO", &ID3V22Tag::Genre},
                    Property{"Track", "TRK", &ID3V22Tag::Track}, Property{"Year", "TYE", &ID3V22Tag::Year}),
    [](const auto& tested) { return tested.param.name; });

TEST(ID3V22Tag, AGenreKeepsItsParentheses) {
    TagOnDisk file(Id3v2Builder(2).text("TCO", "(17)Rock"));
    EXPECT_EQ(file.tag.ID3V22Tag()->Genre(), "(17)Rock");
}

TEST(ID3V22Tag, FramesAreFoundByIdAndByIndex) {
    TagOnDisk file(Id3v2Builder(2).text("TAL", "a").text("TT2", "t").text("TAL", "b"));
    const auto reader = file.tag.ID3V22Tag();
    EXPECT_EQ(reader->FrameList(), "TAL;TT2;TAL;");
    EXPECT_EQ(reader->FrameCount(), 2);
    EXPECT_EQ(reader->GetFrameByID("TAL")->TextData(), "a");
    EXPECT_EQ(reader->GetFrameByIndex(2)->ID(), "TT2");
    EXPECT_EQ(reader->GetFrameByID("TP1"), nullptr);
    EXPECT_EQ(reader->GetFrameByIndex(0), nullptr);
    EXPECT_EQ(reader->GetFrameByIndex(3), nullptr);
    EXPECT_EQ(reader->GetText("TAL"), "a");
    EXPECT_EQ(reader->GetText("TP1"), "");
}

TEST(ID3V22Tag, AnExtremeIndexOrAPartOfAnIdGivesNothing) {
    TagOnDisk file(Id3v2Builder(2).text("TAL", "a"));
    const auto reader = file.tag.ID3V22Tag();
    using Limits = std::numeric_limits<std::int32_t>;
    for (const std::int32_t index : {Limits::min(), -1, 0, 2, Limits::max()}) {
        EXPECT_EQ(reader->GetFrameByIndex(index), nullptr) << index;
    }
    for (const char* id : {"", "T", "TA", "TALB", "TAL;", "tal", "AL;"}) {
        EXPECT_EQ(reader->GetFrameByID(id), nullptr) << id;
        EXPECT_EQ(reader->GetText(id), "") << id;
    }
    EXPECT_EQ(reader->GetText("TAL"), "a");
}

TEST(ID3V22Tag, EveryRefusalIsAWarning) {
    for (bool (ID3V22Tag::*refused)() : {&ID3V22Tag::canSave, &ID3V22Tag::removeTag, &ID3V22Tag::saveTag}) {
        ID3V22Tag reader;
        EXPECT_EQ(Internals<ID3V22Tag>::getErrorRecord(reader)->Severity, cError::kNone);
        EXPECT_FALSE((reader.*refused)());
        EXPECT_EQ(Internals<ID3V22Tag>::getErrorRecord(reader)->Severity, cError::kWarning);
    }
}

TEST(ID3V22Tag, SavingAndRemovingAreNotSupported) {
    ID3V22Tag reader;
    EXPECT_FALSE(reader.canSave());
    EXPECT_EQ(lastErrorOf(reader), "0, canSave, Saving is not supported.");
    EXPECT_FALSE(reader.removeTag());
    EXPECT_EQ(lastErrorOf(reader), "0, removeTag, Removing is not supported.");
    EXPECT_FALSE(reader.saveTag());
    EXPECT_EQ(lastErrorOf(reader), "0, saveTag, Saving is not supported.");
    EXPECT_EQ(Internals<ID3V22Tag>::getErrorRecord(reader)->Severity, cError::kWarning);
}

} // namespace
} // namespace corvane::id3v22tag_test
