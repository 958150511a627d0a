#include "corvane/id3v230/ID3V230.h"

#include "tests/id3v230/TagOnFile.h"
#include "tests/support/ImageBuilder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace corvane::id3v230_test {
namespace {

using enum ID3_FrameID;
using test::Encoding;
using test::Id3v2Builder;
using test::TagOnFile;

TEST(ID3V230, ANewObjectHoldsNothing) {
    const ID3V230 tag;
    EXPECT_FALSE(tag.HadError());
    EXPECT_EQ(tag.ErrorDescription(), "");
    EXPECT_TRUE(tag.UseTempCopy());
    EXPECT_EQ(tag.FramesSize(), 0);
    EXPECT_EQ(tag.FrameCount(), 0);
    EXPECT_EQ(tag.Frames()->Count(), 0);
    EXPECT_EQ(tag.Picture(), nullptr);
    EXPECT_EQ(tag.Year(), 0);
    EXPECT_EQ(tag.TotalTracks(), 0);
    EXPECT_EQ(Internals<ID3V230>::FileName(tag), "");
    EXPECT_FALSE(Internals<ID3V230>::isChanged(tag));
}

TEST(ID3V230, ErrorFlagAndTextAreForHosts) {
    ID3V230 tag;
    tag.HadError(true);
    tag.ErrorDescription("what a host found");
    EXPECT_TRUE(tag.HadError());
    EXPECT_EQ(tag.ErrorDescription(), "what a host found");
}

TEST(ID3V230, ObjectsAliveAreCounted) {
    const std::int32_t before = Internals<ID3V230>::liveCount();
    {
        const ID3V230 one;
        const ID3V230 other;
        EXPECT_EQ(Internals<ID3V230>::liveCount(), before + 2);
    }
    EXPECT_EQ(Internals<ID3V230>::liveCount(), before);
}

struct TextProperty {
    const char* name;
    std::string (ID3V230::*read)() const;
    void (ID3V230::*write)(std::string_view);
    ID3_FrameID frame;
    const char* descriptor;
};

class ATextProperty : public testing::TestWithParam<TextProperty> {};

TEST_P(ATextProperty, IsTheValueOfItsFrame) {
    const auto& [name, read, write, frame, descriptor] = GetParam();
    ID3V230 tag;
    EXPECT_EQ((tag.*read)(), "");
    (tag.*write)("a value \u65E5");
    EXPECT_EQ((tag.*read)(), "a value \u65E5");
    EXPECT_EQ(tag.FrameValue(frame, descriptor), FrameVariant("a value \u65E5"));
    ASSERT_EQ(tag.Frames()->Count(), 1);
    const ID3V230Frame& record = *tag.Frames()->Item(1);
    EXPECT_EQ(record.eType(), static_cast<std::int16_t>(frame));
    EXPECT_EQ(record.sDescription(), descriptor);
    EXPECT_TRUE(record.IsNew());
    EXPECT_TRUE(record.bChanged());
    EXPECT_EQ(record.Position(), 1);
    EXPECT_EQ(record.FrameHandle(), 0);
}

TEST_P(ATextProperty, SetToTheEmptyTextDeletesItsFrame) {
    const auto& [name, read, write, frame, descriptor] = GetParam();
    ID3V230 tag;
    (tag.*write)("");
    EXPECT_EQ(tag.Frames()->Count(), 0) << "deleting what is not there makes nothing";
    (tag.*write)("a value");
    (tag.*write)("");
    EXPECT_EQ((tag.*read)(), "");
    ASSERT_EQ(tag.Frames()->Count(), 1) << "the record stays";
    EXPECT_TRUE(tag.Frames()->Item(1)->Deleted());
    (tag.*write)("another value");
    EXPECT_EQ((tag.*read)(), "another value");
    EXPECT_FALSE(tag.Frames()->Item(1)->Deleted());
    EXPECT_EQ(tag.Frames()->Count(), 1);
}

INSTANTIATE_TEST_SUITE_P(
    All, ATextProperty,
    testing::Values(
        TextProperty{"Title", &ID3V230::Title, &ID3V230::Title, ID3FID_TITLE, ""},
        TextProperty{"Song", &ID3V230::Song, &ID3V230::Song, ID3FID_TITLE, ""},
        TextProperty{"Artist", &ID3V230::Artist, &ID3V230::Artist, ID3FID_LEADARTIST, ""},
        TextProperty{"ArtistURL", &ID3V230::ArtistURL, &ID3V230::ArtistURL, ID3FID_WWWARTIST, ""},
        TextProperty{"UserURL", &ID3V230::UserURL, &ID3V230::UserURL, ID3FID_WWWUSER, ""},
        TextProperty{"Album", &ID3V230::Album, &ID3V230::Album, ID3FID_ALBUM, ""},
        TextProperty{"Track", &ID3V230::Track, &ID3V230::Track, ID3FID_TRACKNUM, ""},
        TextProperty{"Composer", &ID3V230::Composer, &ID3V230::Composer, ID3FID_COMPOSER, ""},
        TextProperty{"OriginalArtist", &ID3V230::OriginalArtist, &ID3V230::OriginalArtist, ID3FID_ORIGARTIST, ""},
        TextProperty{"Copyright", &ID3V230::Copyright, &ID3V230::Copyright, ID3FID_COPYRIGHT, ""},
        TextProperty{"EncodedBy", &ID3V230::EncodedBy, &ID3V230::EncodedBy, ID3FID_ENCODEDBY, ""},
        TextProperty{"Comments", &ID3V230::Comments, &ID3V230::Comments, ID3FID_COMMENT, ""},
        TextProperty{"UniqueKey", &ID3V230::UniqueKey, &ID3V230::UniqueKey, ID3FID_UNIQUEFILEID, ""},
        TextProperty{"Genre", &ID3V230::Genre, &ID3V230::Genre, ID3FID_CONTENTTYPE, ""},
        TextProperty{"UserText", &ID3V230::UserText, &ID3V230::UserText, ID3FID_USERTEXT, ""},
        TextProperty{"LyricsUnsynced", &ID3V230::LyricsUnsynced, &ID3V230::LyricsUnsynced, ID3FID_UNSYNCEDLYRICS, ""},
        TextProperty{"LyricsSynced", &ID3V230::LyricsSynced, &ID3V230::LyricsSynced, ID3FID_SYNCEDLYRICS, ""},
        TextProperty{"Tempo", &ID3V230::Tempo, &ID3V230::Tempo, ID3FID_COMMENT, "MusicMatch_Tempo"},
        TextProperty{"Mood", &ID3V230::Mood, &ID3V230::Mood, ID3FID_COMMENT, "MusicMatch_Mood"},
        TextProperty{"Situation", &ID3V230::Situation, &ID3V230::Situation, ID3FID_COMMENT, "MusicMatch_Situation"},
        TextProperty{"Preference", &ID3V230::Preference, &ID3V230::Preference, ID3FID_COMMENT,
                     "MusicMatch_Preference"}),
    [](const auto& tested) { return tested.param.name; });

TEST(ID3V230, TitleAndSongAreTwoNamesOfOneFrame) {
    ID3V230 tag;
    tag.Title("one");
    EXPECT_EQ(tag.Song(), "one");
    tag.Song("two");
    EXPECT_EQ(tag.Title(), "two");
    EXPECT_EQ(tag.Frames()->Count(), 1);
}

TEST(ID3V230, TempoAndCommentsStandInDifferentFrames) {
    ID3V230 tag;
    tag.Comments("a comment");
    tag.Tempo("Fast");
    tag.Tempo("Slow");
    EXPECT_EQ(tag.Comments(), "a comment");
    EXPECT_EQ(tag.Tempo(), "Slow");
    EXPECT_EQ(tag.Frames()->Count(), 2);
}

TEST(ID3V230, AFrameWithoutARecordHasTheEmptyValue) {
    const ID3V230 tag;
    EXPECT_EQ(tag.FrameValue(ID3FID_TITLE), FrameVariant());
    EXPECT_EQ(tag.Title(), "");
}

TEST(ID3V230, DescriptionsAreComparedExactly) {
    ID3V230 tag;
    tag.Mood("Calm");
    EXPECT_EQ(tag.FrameValue(ID3FID_COMMENT, "MUSICMATCH_MOOD"), FrameVariant());
    EXPECT_EQ(tag.FrameValue(ID3FID_COMMENT), FrameVariant());
}

struct TotalTracksCase {
    const char* text;
    std::int16_t total;
};

TEST(ID3V230, TotalTracksIsTheNumberBehindTheFirstSlash) {
    for (const auto& [text, total] : {TotalTracksCase{"7", 0}, TotalTracksCase{"7/", 0}, TotalTracksCase{"7/12abc", 12},
                                      TotalTracksCase{"3/12", 12}, TotalTracksCase{"3/12/15", 12},
                                      TotalTracksCase{"/4", 4}, TotalTracksCase{"", 0}}) {
        ID3V230 tag;
        tag.Track(text);
        EXPECT_EQ(tag.TotalTracks(), total) << text;
    }
}

TEST(ID3V230, TotalTracksIsAppendedToWhateverTrackHolds) {
    ID3V230 tag;
    tag.TotalTracks(15);
    EXPECT_EQ(tag.Track(), "/15");
    tag.Track("7");
    tag.TotalTracks(15);
    EXPECT_EQ(tag.Track(), "7/15");
    tag.Track("3/12");
    tag.TotalTracks(15);
    EXPECT_EQ(tag.Track(), "3/12/15");
    EXPECT_EQ(tag.TotalTracks(), 12);
}

TEST(ID3V230, ATotalOrYearOutside16BitsIsAnOverflow) {
    ID3V230 tag;
    tag.Track("1/40000");
    EXPECT_THROW(tag.TotalTracks(), RuntimeFailure);
    const TagOnFile file(Id3v2Builder().text("TYER", "40000"));
    EXPECT_THROW(file.tag.Year(), RuntimeFailure);
}

TEST(ID3V230, YearIsTheNumberThatItsTextBeginsWith) {
    EXPECT_EQ(TagOnFile(Id3v2Builder().text("TYER", "1999")).tag.Year(), 1999);
    EXPECT_EQ(TagOnFile(Id3v2Builder().text("TYER", "1999-05-01")).tag.Year(), 1999);
    EXPECT_EQ(TagOnFile(Id3v2Builder().text("TYER", "")).tag.Year(), 0);
}

TEST(ID3V230, YearIsStoredAsANumberAlsoWhenItIsZero) {
    ID3V230 tag;
    tag.Year(2001);
    EXPECT_EQ(tag.FrameValue(ID3FID_YEAR), FrameVariant(std::int16_t{2001}));
    tag.Year(0);
    EXPECT_EQ(tag.FrameValue(ID3FID_YEAR), FrameVariant(std::int16_t{0}));
    EXPECT_FALSE(tag.Frames()->Item(1)->Deleted());
}

TEST(ID3V230, GenreIsReadWithoutBlanksAround) {
    const TagOnFile file(Id3v2Builder().text("TCON", "  (17)Rock "));
    EXPECT_EQ(file.tag.Genre(), "(17)Rock");
    const SplitGenre split = Internals<ID3V230>::splittedGenre(file.tag);
    EXPECT_EQ(split.number, 17);
    EXPECT_EQ(split.description, "Rock");
}

TEST(ID3V230, GenreIsStoredUnchanged) {
    ID3V230 tag;
    tag.Genre(" (17)Rock ");
    EXPECT_EQ(tag.FrameValue(ID3FID_CONTENTTYPE), FrameVariant(" (17)Rock "));
}

TEST(ID3V230, RecordsAreReadInTheOrderOfTheTag) {
    const TagOnFile file(Id3v2Builder()
                             .text("TIT2", "\u65E5\u672C", Encoding::Utf16)
                             .frame("COMM", test::commentFrame("d", "c"))
                             .frame("XYZW", test::textFrame("?"))
                             .text("TPE1", "an artist")
                             .padding(100));
    EXPECT_EQ(file.tag.FrameCount(), 4);
    EXPECT_EQ(file.tag.FramesSize(), static_cast<std::int32_t>(test::contentOf(file.path()).size()));
    ASSERT_EQ(file.tag.Frames()->Count(), 4);
    std::string letters;
    for (const auto& record : *file.tag.Frames()) {
        letters += record->FrameAbbr() + ';';
        EXPECT_FALSE(record->IsNew());
        EXPECT_FALSE(record->bChanged());
        EXPECT_FALSE(record->Deleted());
        EXPECT_FALSE(record->bDupe());
    }
    EXPECT_EQ(letters, "TIT2;COMM;????;TPE1;");
    EXPECT_EQ(file.record(3).Position(), 3);
    EXPECT_EQ(file.record(3).FrameHandle(), 3);
    EXPECT_EQ(file.record(3).FrameTitle(), "No known frame");
    EXPECT_EQ(file.tag.Title(), "\u65E5\u672C");
    EXPECT_EQ(file.tag.Comments(), "") << "its description is not the empty one";
    EXPECT_EQ(file.tag.FrameValue(ID3FID_COMMENT, "d"), FrameVariant("c"));
    EXPECT_EQ(file.record(2).vLanguage(), Variant("eng"));
    EXPECT_EQ(file.record(1).vLanguage(), Variant());
}

TEST(ID3V230, OfSeveralRecordsOfOneKeyTheFirstIsReadAndChanged) {
    TagOnFile file(Id3v2Builder().text("TIT2", "first").text("TPE1", "x").text("TIT2", "second"));
    EXPECT_EQ(file.tag.Title(), "first");
    EXPECT_FALSE(file.record(1).bDupe());
    EXPECT_FALSE(file.record(2).bDupe());
    EXPECT_TRUE(file.record(3).bDupe());
    file.tag.Title("changed");
    EXPECT_EQ(file.record(1).vValue(), FrameVariant("changed"));
    EXPECT_EQ(file.record(3).vValue(), FrameVariant("second"));
}

TEST(ID3V230, CommentsOfDifferentDescriptionsAreNoDuplicates) {
    const TagOnFile file(Id3v2Builder()
                             .frame("COMM", test::commentFrame("one", "x"))
                             .frame("COMM", test::commentFrame("two", "x"))
                             .frame("COMM", test::commentFrame("one", "y")));
    EXPECT_FALSE(file.record(2).bDupe());
    EXPECT_TRUE(file.record(3).bDupe());
}

TEST(ID3V230, SettingTheSameValueChangesNothing) {
    TagOnFile file(Id3v2Builder().text("TIT2", "a title"));
    file.tag.Title("a title");
    EXPECT_FALSE(file.record(1).bChanged());
    EXPECT_FALSE(Internals<ID3V230>::isChanged(file.tag));
    file.tag.Title("another");
    EXPECT_TRUE(file.record(1).bChanged());
    file.tag.Title("another");
    EXPECT_TRUE(file.record(1).bChanged()) << "once changed it stays so";
    EXPECT_TRUE(Internals<ID3V230>::isChanged(file.tag));
}

TEST(ID3V230, DoubleQuotesOfTheFileAreReadAsApostrophes) {
    const TagOnFile file(
        Id3v2Builder().text("TIT2", "the \"best\"").frame("TXXX", test::userTextFrame("a \"key\"", "\"v\"")));
    EXPECT_EQ(file.tag.Title(), "the 'best'");
    EXPECT_EQ(file.tag.FrameValue(ID3FID_USERTEXT, "a 'key'"), FrameVariant("'v'"));
    EXPECT_FALSE(file.record(1).bChanged());
}

TEST(ID3V230, AFrameThatNobodyCanReadIsNeitherFoundNorOverwritten) {
    TagOnFile file(Id3v2Builder().frame("TIT2", test::countedBytes(20), 0x40).text("TPE1", "x"));
    EXPECT_EQ(file.tag.Title(), "");
    file.tag.Title("a title");
    EXPECT_EQ(file.tag.Frames()->Count(), 3);
    EXPECT_EQ(file.tag.Title(), "a title");
    EXPECT_EQ(file.record(1).vValue(), FrameVariant());
}

TEST(ID3V230, CompressedFramesAreRead) {
    const TagOnFile file(Id3v2Builder().compressedFrame("TIT2", test::textFrame("a compressed title")));
    EXPECT_EQ(file.tag.Title(), "a compressed title");
}

TEST(ID3V230, GroupedFramesAreRead) {
    ByteArray data{7};
    const ByteArray text = test::textFrame("a grouped title");
    data.insert(data.end(), text.begin(), text.end());
    EXPECT_EQ(TagOnFile(Id3v2Builder().frame("TIT2", data, 0x20)).tag.Title(), "a grouped title");
}

TEST(ID3V230, UnsynchronisedTagsAreRead) {
    const TagOnFile file(Id3v2Builder().unsynchronise().text("TIT2", "\u00FF\u00E0 title").text("TPE1", "x"));
    EXPECT_EQ(file.tag.Title(), "\u00FF\u00E0 title");
    EXPECT_EQ(file.tag.Artist(), "x");
}

TEST(ID3V230, HeldCollectionsStayWhenTheTagIsReadAgain) {
    TagOnFile file(Id3v2Builder().text("TIT2", "a title"));
    const auto held = file.tag.Frames();
    EXPECT_EQ(held, file.tag.Frames()) << "the live collection, not a copy";
    file.read();
    EXPECT_NE(held, file.tag.Frames());
    EXPECT_EQ(held->Item(1)->vValue(), FrameVariant("a title"));
}

// ---- pictures

std::shared_ptr<Picture> somePicture(unsigned width = 4) { return Picture::fromBytes(test::pngImage(width, 3)); }

TEST(ID3V230, ThePictureIsThatOfTheFrameWithoutADescription) {
    const TagOnFile file(Id3v2Builder()
                             .frame("APIC", test::pictureFrame(test::pngImage(9, 9), "image/png", "back"))
                             .frame("APIC", test::pictureFrame(test::pngImage(4, 3))));
    ASSERT_NE(file.tag.Picture(), nullptr);
    EXPECT_EQ(file.tag.Picture()->width(), 4);
    EXPECT_EQ(file.record(1).Picture()->width(), 9);
    EXPECT_EQ(file.record(1).sDescription(), "back");
    EXPECT_EQ(file.record(2).PictureRAW(), test::pngImage(4, 3));
    EXPECT_EQ(file.tag.FrameValue(ID3FID_PICTURE), FrameVariant(file.tag.Picture()));
    EXPECT_EQ(file.tag.Picture(), file.tag.Picture()) << "one object, with one handle";
}

TEST(ID3V230, ANewPictureMakesARecord) {
    ID3V230 tag;
    tag.Picture(nullptr);
    EXPECT_EQ(tag.Frames()->Count(), 0);
    const auto picture = somePicture();
    tag.Picture(picture);
    ASSERT_EQ(tag.Frames()->Count(), 1);
    EXPECT_EQ(tag.Picture(), picture);
    EXPECT_EQ(tag.Frames()->Item(1)->eType(), static_cast<std::int16_t>(ID3FID_PICTURE));
    EXPECT_TRUE(tag.Frames()->Item(1)->bChanged());
}

TEST(ID3V230, AnotherPictureChangesTheRecord) {
    TagOnFile file(Id3v2Builder().frame("APIC", test::pictureFrame(test::pngImage(4, 3))));
    file.tag.Picture(file.tag.Picture());
    EXPECT_FALSE(file.record(1).bChanged()) << "the same picture again";
    file.tag.Picture(somePicture(8));
    EXPECT_TRUE(file.record(1).bChanged());
    EXPECT_EQ(file.tag.Picture()->width(), 8);
    EXPECT_EQ(file.record(1).PictureRAW(), test::pngImage(8, 3));
}

TEST(ID3V230, NoPictureEmptiesTheRecord) {
    TagOnFile file(Id3v2Builder().frame("APIC", test::pictureFrame(test::pngImage(4, 3))));
    file.tag.Picture(nullptr);
    EXPECT_EQ(file.tag.Picture(), nullptr);
    EXPECT_TRUE(file.record(1).PictureRAW().empty());
    EXPECT_EQ(file.tag.Frames()->Count(), 1);
}

TEST(ID3V230, AnImageOfAnUnknownKindIsNoPictureButHasItsBytes) {
    const ByteArray image = test::bytesOf("RIFF....WEBP");
    const TagOnFile file(Id3v2Builder().frame("APIC", test::pictureFrame(image, "image/webp")));
    EXPECT_EQ(file.tag.Picture(), nullptr);
    EXPECT_EQ(file.record(1).PictureRAW(), image);
}

TEST(ID3V230, ALargePictureIsReadWhenItIsAskedFor) {
    ByteArray image = test::pngImage(4, 3);
    image.resize(300'000, 0x55);
    const TagOnFile file(Id3v2Builder().text("TIT2", "a title").frame("APIC", test::pictureFrame(image)));
    std::filesystem::remove(file.path());
    EXPECT_EQ(file.tag.Title(), "a title");
    EXPECT_EQ(file.record(2).sDescription(), "");
    EXPECT_THROW(file.record(2).PictureRAW(), RuntimeFailure);
}

// ---- binding to files

TEST(ID3V230, AFileWithoutATagGivesNoRecords) {
    const TagOnFile file(test::countedBytes(5000));
    EXPECT_EQ(file.tag.FrameCount(), 0);
    EXPECT_EQ(file.tag.FramesSize(), 0);
    EXPECT_EQ(Internals<ID3V230>::FileName(file.tag), file.path());
}

TEST(ID3V230, LoadingAMissingFileFailsAndLeavesNoRecords) {
    TagOnFile file(Id3v2Builder().text("TIT2", "a title"));
    EXPECT_FALSE(Internals<ID3V230>::LoadFromFile(file.tag, file.folder().path("missing.mp3")));
    EXPECT_EQ(file.tag.Frames()->Count(), 0);
    EXPECT_EQ(file.tag.FrameCount(), 0);
}

TEST(ID3V230, LoadingReadsTheRecords) {
    const TagOnFile file(Id3v2Builder().text("TIT2", "a title"));
    ID3V230 tag;
    EXPECT_TRUE(Internals<ID3V230>::LoadFromFile(tag, file.path()));
    EXPECT_EQ(tag.Title(), "a title");
}

} // namespace
} // namespace corvane::id3v230_test
