#include "corvane/id3v2/ID3V24Tag.h"

#include "corvane/id3v2/ID3V24TagInternals.h"

#include "tests/id3v2/TagOnDisk.h"

#include <gtest/gtest.h>

#include <limits>

namespace corvane::id3v24tag_test {
namespace {

using namespace test;

struct Property {
    const char* name;
    const char* id;
    std::string (ID3V24Tag::*read)() const;
};
class PropertyOfID3V24Tag : public testing::TestWithParam<Property> {};
TEST_P(PropertyOfID3V24Tag, IsTheTextOfItsFrame) {
    TagOnDisk file(Id3v2Builder(4).text(GetParam().id, "value"));
    EXPECT_EQ((*file.tag.ID3V24Tag().*GetParam().read)(), "value");
    TagOnDisk other(Id3v2Builder(4).text("XXXX", "value"));
    EXPECT_EQ((*other.tag.ID3V24Tag().*GetParam().read)(), "");
}
INSTANTIATE_TEST_SUITE_P(
    All, PropertyOfID3V24Tag,
    testing::Values(Property{"Artist", "TPE1", &ID3V24Tag::Artist}, Property{"Album", "TALB", &ID3V24Tag::Album},
                    Property{"Title", "TIT2", &ID3V24Tag::Title}, Property{"GenreID", "TCON", &ID3V24Tag::GenreID},
                    Property{"Genre", "TCON", &ID3V24Tag::Genre}, Property{"Track", "TRCK", &ID3V24Tag::Track}),
    [](const auto& tested) { return tested.param.name; });

TEST(ID3V24Tag, GenresAreSplitAsThoseOfVersion23) {
    TagOnDisk file(Id3v2Builder(4).text("TCON", "(17)Rock"));
    EXPECT_EQ(file.tag.ID3V24Tag()->GenreID(), "17");
    EXPECT_EQ(file.tag.ID3V24Tag()->Genre(), "Rock");
}

TEST(ID3V24Tag, FramesAreFoundByIdAndByIndex) {
    TagOnDisk file(Id3v2Builder(4).text("TALB", "a").text("TIT2", "t").text("TALB", "b"));
    const auto reader = file.tag.ID3V24Tag();
    EXPECT_EQ(reader->FrameList(), "TALB;TIT2;TALB;");
    EXPECT_EQ(reader->FrameCount(), 2);
    EXPECT_EQ(reader->GetFrameByID("TALB")->TextData(), "a");
    EXPECT_EQ(reader->GetFrameByIndex(2)->ID(), "TIT2");
    EXPECT_EQ(reader->GetFrameByID("TPE1"), nullptr);
    EXPECT_EQ(reader->GetFrameByIndex(0), nullptr);
    EXPECT_EQ(reader->GetFrameByIndex(3), nullptr);
    EXPECT_EQ(reader->GetText("TALB"), "a");
    EXPECT_EQ(reader->GetText("TPE1"), "");
}

TEST(ID3V24Tag, Utf8IsReadInTheCodePageWithoutItsZeros) {
    TagOnDisk file(Id3v2Builder(4).frame("TPE1", bytesOf(std::string_view("\3\xC3\xA9\0x\0", 6))));
    EXPECT_EQ(file.tag.Artist(), "\3\u00C3\u00A9x");
}

TEST(ID3V24Tag, AnExtremeIndexOrAPartOfAnIdGivesNothing) {
    TagOnDisk file(Id3v2Builder(4).text("TALB", "a"));
    const auto reader = file.tag.ID3V24Tag();
    using Limits = std::numeric_limits<std::int32_t>;
    for (const std::int32_t index : {Limits::min(), -1, 0, 2, Limits::max()}) {
        EXPECT_EQ(reader->GetFrameByIndex(index), nullptr) << index;
    }
    for (const char* id : {"", "T", "TAL", "TALBX", "TALB;", "talb", "ALB;"}) {
        EXPECT_EQ(reader->GetFrameByID(id), nullptr) << id;
        EXPECT_EQ(reader->GetText(id), "") << id;
    }
    EXPECT_EQ(reader->GetText("TALB"), "a");
}

TEST(ID3V24Tag, EveryRefusalIsAWarning) {
    for (bool (ID3V24Tag::*refused)() : {&ID3V24Tag::canSave, &ID3V24Tag::removeTag, &ID3V24Tag::saveTag}) {
        ID3V24Tag reader;
        EXPECT_EQ(Internals<ID3V24Tag>::getErrorRecord(reader)->Severity, cError::kNone);
        EXPECT_FALSE((reader.*refused)());
        EXPECT_EQ(Internals<ID3V24Tag>::getErrorRecord(reader)->Severity, cError::kWarning);
    }
}

TEST(ID3V24Tag, SavingAndRemovingAreNotSupported) {
    ID3V24Tag reader;
    EXPECT_FALSE(reader.canSave());
    EXPECT_EQ(lastErrorOf(reader), "0, canSave, Saving is not supported.");
    EXPECT_FALSE(reader.removeTag());
    EXPECT_EQ(lastErrorOf(reader), "0, removeTag, Removing is not supported.");
    EXPECT_FALSE(reader.saveTag());
    EXPECT_EQ(lastErrorOf(reader), "0, saveTag, Saving is not supported.");
    EXPECT_EQ(Internals<ID3V24Tag>::getErrorRecord(reader)->Severity, cError::kWarning);
}

TEST(ID3V24Tag, ATagWhoseFooterDiffersCannotBeRead) {
    const auto tag = Id3v2Builder(4).text("TIT2", "t").footer();
    EXPECT_EQ(TagOnDisk(tag).tag.Title(), "t");
    ByteArray damaged = tag.done();
    damaged.back() ^= 1;
    TagOnDisk file(damaged);
    EXPECT_EQ(file.tag.Title(), "");
    EXPECT_EQ(lastErrorOf(file.tag), "-2147221504, ID3V2Tag::loadTag, Unable to load this tag.");
}

} // namespace
} // namespace corvane::id3v24tag_test
