#include "corvane/id3v2/ReadableTag.h"

#include "tests/id3v2/LoadedFrames.h"
#include "tests/id3v2/TagOnDisk.h"

#include <gtest/gtest.h>

namespace corvane::readabletag_test {
namespace {

using namespace test;
using Texts = std::vector<std::string>;

ReadableTag readableOf(const Id3v2Builder& builder) { return readableTag(*loadedFrames(builder)); }
Texts textsOf(const ReadableTag& tag) {
    return {tag.title, tag.artist, tag.album, tag.year, tag.track, tag.genre, tag.comment};
}

TEST(ReadableTag, OfVersion22) {
    Id3v2Builder tag(2);
    tag.text("TT2", "t").text("TP1", "a").text("TAL", "l").text("TYE", "1999").text("TRK", "3/12").text("TCO", "(17)");
    tag.frame("COM", commentFrame("", "c", Encoding::Utf16));
    EXPECT_EQ(textsOf(readableOf(tag)), (Texts{"t", "a", "l", "1999", "3/12", "Rock", "c"}));
}

TEST(ReadableTag, OfVersions23And24InEveryEncoding) {
    for (const unsigned version : {3U, 4U}) {
        for (const Encoding encoding :
             {Encoding::CodePage, Encoding::Utf16, Encoding::Utf16BigEndian, Encoding::Utf8}) {
            Id3v2Builder tag(version);
            tag.text("TIT2", "t\u00E9", encoding).text("TPE1", "a", encoding).text("TALB", "l", encoding);
            tag.text("TYER", "1999", encoding).text("TRCK", "3", encoding).text("TCON", "17", encoding);
            tag.frame("COMM", commentFrame("", "c", encoding));
            EXPECT_EQ(textsOf(readableOf(tag)), (Texts{"t\u00E9", "a", "l", "1999", "3", "Rock", "c"}));
        }
    }
}

TEST(ReadableTag, OfNoFramesIsEmpty) { EXPECT_EQ(textsOf(readableTag(*noFrames())), Texts(7)); }

struct YearCase {
    const char* name;
    std::vector<std::pair<const char*, const char*>> frames;
    std::string expected;
};
class YearOfReadableTag : public testing::TestWithParam<YearCase> {};
TEST_P(YearOfReadableTag, IsThatOfTheBestFrame) {
    Id3v2Builder tag(4);
    for (const auto& [id, text] : GetParam().frames) tag.text(id, text);
    EXPECT_EQ(readableOf(tag).year, GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(
    Frames, YearOfReadableTag,
    testing::Values(YearCase{"Year", {{"TYER", "1999"}}, "1999"},
                    YearCase{"YearAsItStands", {{"TYER", "ca. 99"}}, "ca. 99"},
                    YearCase{"RecordingTime", {{"TDRC", "2001-05-06T10:00"}}, "2001"},
                    YearCase{"RecordingYear", {{"TDRC", "2001"}}, "2001"},
                    YearCase{"ReleaseTime", {{"TDRL", "2002-01"}}, "2002"},
                    YearCase{"OriginalTime", {{"TDOR", "2003"}}, "2003"},
                    YearCase{"YearBeforeTimes", {{"TDRC", "2001"}, {"TYER", "1999"}}, "1999"},
                    YearCase{"RecordingBeforeRelease", {{"TDOR", "2003"}, {"TDRL", "2002"}, {"TDRC", "2001"}}, "2001"},
                    YearCase{"ReleaseBeforeOriginal", {{"TDOR", "2003"}, {"TDRL", "2002"}}, "2002"},
                    YearCase{"ATimeWithoutAYearIsPassedOver", {{"TDRC", "soon"}, {"TDOR", "2003"}}, "2003"},
                    YearCase{"AnEmptyYearIsPassedOver", {{"TYER", ""}, {"TDRC", "2001"}}, "2001"},
                    YearCase{"ThreeDigitsAreNoYear", {{"TDRC", "200"}}, ""}),
    [](const auto& tested) { return tested.param.name; });

struct CommentCase {
    const char* name;
    std::vector<std::pair<const char*, const char*>> comments; // description, text
    std::string expected;
};
class CommentOfReadableTag : public testing::TestWithParam<CommentCase> {};
TEST_P(CommentOfReadableTag, IsTheOneForPeople) {
    Id3v2Builder tag(3);
    for (const auto& [description, text] : GetParam().comments) tag.frame("COMM", commentFrame(description, text));
    EXPECT_EQ(readableOf(tag).comment, GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(
    Frames, CommentOfReadableTag,
    testing::Values(CommentCase{"WithoutADescription", {{"", "c"}}, "c"},
                    CommentCase{"WithADescription", {{"about", "c"}}, "c"},
                    CommentCase{"TheOneWithoutComesFirst", {{"about", "c"}, {"", "d"}}, "d"},
                    CommentCase{"TheFirstWithout", {{"", "c"}, {"", "d"}}, "c"},
                    CommentCase{"TheFirstWith", {{"a", "c"}, {"b", "d"}}, "c"},
                    CommentCase{"EmptyOnesArePassedOver", {{"", ""}, {"a", "c"}}, "c"},
                    CommentCase{"NotesOfItunesAreNone", {{"iTunNORM", "00000"}, {"iTunes_CDDB_IDs", "x"}}, ""},
                    CommentCase{"NotesOfMusicMatchAreNone", {{"MusicMatch_Mood", "Wild"}}, ""},
                    CommentCase{"NotesArePassedOver", {{"iTunSMPB", "0"}, {"a", "c"}}, "c"}),
    [](const auto& tested) { return tested.param.name; });

TEST(ReadableTag, TheFirstFrameThatSaysSomethingCounts) {
    EXPECT_EQ(readableOf(Id3v2Builder(3).text("TIT2", "").text("TIT2", "b").text("TIT2", "c")).title, "b");
}

TEST(ReadableTag, AnEncryptedFrameSaysNothing) {
    const auto tag = Id3v2Builder(3).frame("TIT2", joined({bytesOf("M"), textFrame("x")}), 0x40).text("TIT2", "b");
    EXPECT_EQ(readableOf(tag).title, "b");
}

TEST(ReadableTag, NeedsTheFileNoMore) {
    TagOnDisk file(Id3v2Builder(4).text("TIT2", "\u65E5", Encoding::Utf8).text("TDRC", "2001-02-03", Encoding::Utf8));
    ASSERT_TRUE(Internals<ID3V2Tag>::parse(file.tag));
    std::filesystem::remove(file.path());
    const ReadableTag tag = readableTag(*Internals<ID3V2Tag>::frames(file.tag));
    EXPECT_EQ(tag.title, "\u65E5");
    EXPECT_EQ(tag.year, "2001");
}

} // namespace
} // namespace corvane::readabletag_test
