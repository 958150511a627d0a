// Records written into a file, and read back.
#include "corvane/id3v230/FrameNames.h"
#include "corvane/id3v230/ID3V230.h"
#include "corvane/id3v230/ID3V230Internals.h"
#include "corvane/platform/FileReader.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/HostMessageBox.h"
#include "tests/support/Id3v2Builder.h"
#include "tests/support/ImageBuilder.h"
#include "tests/support/Mp3File.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace corvane::id3v230saving_test {
namespace {

using namespace test;
using enum ID3_FrameID;
using Updatable = Internals<ID3V230>;

class SavedTag : public testing::TestWithParam<bool> {
protected:
    ScratchFolder folder;

    // A tag object over a file that begins with a tag.
    struct Open {
        Open(const ScratchFolder& in, const Id3v2Builder& builder, bool safely) : file(in, builder.done()) {
            tag.UseTempCopy(safely);
            EXPECT_TRUE(Updatable::LoadFromFile(tag, file.path()));
        }
        // Saves; the rest of the file must be what it was. Gives the tag as it is read then.
        std::unique_ptr<ID3V230> saved() {
            EXPECT_TRUE(Updatable::SaveTag(tag)) << Updatable::lastFailure(tag)->description;
            EXPECT_TRUE(file.audioIsUntouched());
            auto again = std::make_unique<ID3V230>();
            EXPECT_TRUE(Updatable::LoadFromFile(*again, file.path()));
            return again;
        }
        bool isRefused(std::int32_t number) {
            EXPECT_FALSE(Updatable::SaveTag(tag));
            const auto& failure = Updatable::lastFailure(tag);
            EXPECT_TRUE(failure);
            EXPECT_EQ(failure->number, number) << failure->description;
            EXPECT_FALSE(failure->description.empty());
            return file.isUnchanged();
        }

        Mp3File file;
        ID3V230 tag;
    };
    Open open(const Id3v2Builder& builder) { return {folder, builder, GetParam()}; }

    void TearDown() override { EXPECT_EQ(folder.names(), std::vector<std::string>{"song.mp3"}) << "a temporary stays"; }
};

std::string lettersOf(const ID3V230& tag) {
    std::string letters;
    for (const auto& record : *tag.Frames()) letters += record->FrameAbbr() + ';';
    return letters;
}

// The bytes of the frame at a place, from 1, with its header.
ByteArray frameBytes(const ID3V230& tag, std::size_t place) {
    const auto& image = *Updatable::image(tag);
    return image.bytes(image.frames()[place - 1]);
}

ByteArray frameOf(std::string_view id, Bytes data, unsigned formatFlags = 0, unsigned statusFlags = 0) {
    return Id3v2Builder(3).frame(id, data, formatFlags, statusFlags).body();
}

TEST_P(SavedTag, AChangedValueIsReadBack) {
    auto song = open(Id3v2Builder(3).text("TIT2", "before").text("TPE1", "artist").padding(500));
    song.tag.Title("after");
    const auto again = song.saved();
    EXPECT_EQ(again->Title(), "after");
    EXPECT_EQ(again->Artist(), "artist");
    EXPECT_EQ(song.file.content().size(), song.file.original().size()) << "the padding takes the difference";
}

TEST_P(SavedTag, TextsOutsideIso88591AreReadBack) {
    auto song = open(Id3v2Builder(3).text("TIT2", "before"));
    song.tag.Title("\u65E5\u672C\u8A9E");
    song.tag.Artist("\u041F\u0440\u0438\u0432\u0435\u0442");
    song.tag.Album("\u20AC 5");
    song.tag.Comments("\U0001F600 \u65E5\u672C");
    song.tag.LyricsUnsynced("\u0436\n\u20AC");
    song.tag.UserText("\u2020");
    song.tag.Mood("\u65E5");
    const auto again = song.saved();
    EXPECT_EQ(again->Title(), "\u65E5\u672C\u8A9E");
    EXPECT_EQ(again->Artist(), "\u041F\u0440\u0438\u0432\u0435\u0442");
    EXPECT_EQ(again->Album(), "\u20AC 5");
    EXPECT_EQ(again->Comments(), "\U0001F600 \u65E5\u672C");
    EXPECT_EQ(again->LyricsUnsynced(), "\u0436\n\u20AC");
    EXPECT_EQ(again->UserText(), "\u2020");
    EXPECT_EQ(again->Mood(), "\u65E5");
}

TEST_P(SavedTag, EveryNamedPropertyIsReadBack) {
    auto song = open(Id3v2Builder(3).text("TSSE", "x"));
    struct Text {
        std::string (ID3V230::*read)() const;
        void (ID3V230::*write)(std::string_view);
    };
    const Text texts[] = {{&ID3V230::Title, &ID3V230::Title},
                          {&ID3V230::Artist, &ID3V230::Artist},
                          {&ID3V230::ArtistURL, &ID3V230::ArtistURL},
                          {&ID3V230::UserURL, &ID3V230::UserURL},
                          {&ID3V230::Album, &ID3V230::Album},
                          {&ID3V230::Track, &ID3V230::Track},
                          {&ID3V230::Composer, &ID3V230::Composer},
                          {&ID3V230::OriginalArtist, &ID3V230::OriginalArtist},
                          {&ID3V230::Copyright, &ID3V230::Copyright},
                          {&ID3V230::EncodedBy, &ID3V230::EncodedBy},
                          {&ID3V230::Comments, &ID3V230::Comments},
                          {&ID3V230::UniqueKey, &ID3V230::UniqueKey},
                          {&ID3V230::Genre, &ID3V230::Genre},
                          {&ID3V230::UserText, &ID3V230::UserText},
                          {&ID3V230::LyricsUnsynced, &ID3V230::LyricsUnsynced},
                          {&ID3V230::Tempo, &ID3V230::Tempo},
                          {&ID3V230::Mood, &ID3V230::Mood},
                          {&ID3V230::Situation, &ID3V230::Situation},
                          {&ID3V230::Preference, &ID3V230::Preference}};
    int number = 0;
    for (const Text& text : texts) (song.tag.*text.write)("value " + std::to_string(++number));
    song.tag.Year(1999);
    song.tag.LyricsSynced("[00:01.0] one\n[01:02.5] two");
    song.tag.Picture(Picture::fromBytes(jpegImage(3, 2)));
    const auto again = song.saved();
    number = 0;
    for (const Text& text : texts) EXPECT_EQ((*again.*text.read)(), "value " + std::to_string(++number));
    EXPECT_EQ(again->Year(), 1999);
    EXPECT_EQ(again->LyricsSynced(), "[00:01.0] one\n[01:02.5] two");
    ASSERT_NE(again->Picture(), nullptr);
    EXPECT_EQ(again->Frames()->Item(again->Frames()->Count())->PictureRAW(), jpegImage(3, 2));
    EXPECT_EQ(again->Frames()->Item(1)->FrameAbbr(), "TSSE");
}

// What stands in a tag that nobody has asked to change.
Id3v2Builder foreignFrames() {
    return Id3v2Builder(3)
        .frame("PRIV", bytesOf("owner\0data"))
        .text("TIT2", "before")
        .text("TPE2", "\u00E9", Encoding::Utf8)
        .text("TPE3", "\u65E5", Encoding::Utf16BigEndian)
        .frame("XYZW", countedBytes(33), 0, 0xE0)
        .compressedFrame("TCOM", textFrame("compressed"))
        .frame("TALB", countedBytes(20), 0x40)
        .frame("COMM", bytesOf("\1eng"))
        .frame("GEOB", countedBytes(300), 0x20)
        .frame("TXXX", {})
        .text("TCOP", "")
        .frame("PCNT", countedBytes(9))
        .frame("APIC", pictureFrame(bytesOf("no image"), "-->", "d"))
        .text("TPE1", "second to none");
}

TEST_P(SavedTag, FramesThatWereNotTouchedAreCarriedOverByteForByte) {
    auto song = open(foreignFrames().padding(300));
    std::vector<ByteArray> before;
    for (std::size_t place = 1; place <= 14; ++place) before.push_back(frameBytes(song.tag, place));
    song.tag.Title("a title that is longer than the one before, by far");
    const auto again = song.saved();
    ASSERT_EQ(again->FrameCount(), 14);
    for (std::size_t place = 1; place <= 14; ++place) {
        if (place == 2) continue;
        EXPECT_EQ(frameBytes(*again, place), before[place - 1]) << place;
    }
    EXPECT_EQ(again->Title(), "a title that is longer than the one before, by far");
}

TEST_P(SavedTag, NothingChangedWritesNothing) {
    auto song = open(foreignFrames().padding(300));
    song.tag.Artist("second to none");
    const auto before = statusOf(song.file.path());
    ASSERT_TRUE(Updatable::SaveTag(song.tag));
    const auto after = statusOf(song.file.path());
    EXPECT_TRUE(song.file.isUnchanged());
    EXPECT_EQ(before.st_ino, after.st_ino);
    EXPECT_EQ(before.st_mtim.tv_nsec, after.st_mtim.tv_nsec);
    EXPECT_EQ(before.st_ctim.tv_nsec, after.st_ctim.tv_nsec);
}

TEST_P(SavedTag, ADoubleQuoteOfTheFileIsWrittenAsAnApostropheAtTheNextSave) {
    auto song = open(Id3v2Builder(3).text("TIT2", "the \"best\"").text("TPE1", "x", Encoding::Utf16));
    const ByteArray artist = frameBytes(song.tag, 2);
    const auto again = song.saved();
    EXPECT_EQ(frameBytes(*again, 1), frameOf("TIT2", textFrame("the 'best'")));
    EXPECT_EQ(frameBytes(*again, 2), artist);
}

TEST_P(SavedTag, DoubleQuotesThatAHostSetsBecomeApostrophes) {
    auto song = open(Id3v2Builder(3).text("TIT2", "x"));
    song.tag.Title("a \"new\" title");
    EXPECT_EQ(song.tag.Title(), "a \"new\" title") << "until it is saved";
    EXPECT_EQ(song.saved()->Title(), "a 'new' title");
    EXPECT_EQ(song.tag.Title(), "a 'new' title");
}

TEST_P(SavedTag, TheEmptyTextTakesTheFrameOutOfTheFile) {
    auto song = open(Id3v2Builder(3).text("TIT2", "x").text("TPE1", "y"));
    song.tag.Title("");
    EXPECT_EQ(lettersOf(*song.saved()), "TPE1;");
    EXPECT_EQ(lettersOf(song.tag), "TIT2;TPE1;") << "the record stays";
}

TEST_P(SavedTag, AFrameDeletedAndSetAgainIsThere) {
    auto song = open(Id3v2Builder(3).text("TIT2", "x").text("TPE1", "y"));
    song.tag.Title("");
    song.tag.Title("again");
    EXPECT_EQ(song.saved()->Title(), "again");
}

TEST_P(SavedTag, ARecordThatIsMarkedAsDeletedIsLeftOut) {
    auto song = open(Id3v2Builder(3).text("TIT2", "x").frame("PRIV", countedBytes(9)).text("TPE1", "y"));
    song.tag.Frames()->Item(2)->Delete();
    EXPECT_EQ(lettersOf(*song.saved()), "TIT2;TPE1;");
}

TEST_P(SavedTag, WithoutAnyFrameThereIsNoTag) {
    auto song = open(Id3v2Builder(3).text("TIT2", "x").padding(100));
    song.tag.Title("");
    EXPECT_EQ(song.saved()->FramesSize(), 0);
    EXPECT_EQ(song.file.content(), Mp3File::usualRest());
    song.tag.Title("there again");
    EXPECT_EQ(song.saved()->Title(), "there again");
}

TEST_P(SavedTag, ANewPictureIsAFrontCoverWithItsMimeType) {
    auto song = open(Id3v2Builder(3).text("TIT2", "x"));
    song.tag.Picture(Picture::fromBytes(gifImage(5, 6)));
    const auto again = song.saved();
    EXPECT_EQ(frameBytes(*again, 2), frameOf("APIC", pictureFrame(gifImage(5, 6), "image/gif")));
}

TEST_P(SavedTag, ANewPictureChangedAfterItsSaveIsStillAFrontCover) {
    auto song = open(Id3v2Builder(3).text("TIT2", "x"));
    song.tag.Picture(Picture::fromBytes(gifImage(5, 6)));
    song.saved();
    song.tag.Picture(Picture::fromBytes(pngImage(7, 8)));
    EXPECT_EQ(frameBytes(*song.saved(), 2), frameOf("APIC", pictureFrame(pngImage(7, 8), "image/png")));
}

TEST_P(SavedTag, AChangedPictureKeepsItsTypeAndDescription) {
    ByteArray data = pictureFrame(pngImage(2, 2), "image/png", "");
    data[11] = 17; // a bright coloured fish
    ASSERT_EQ(data[10], 0) << "the end of the MIME type";
    auto song =
        open(Id3v2Builder(3).frame("APIC", data).frame("APIC", pictureFrame(pngImage(3, 3), "image/png", "back side")));
    song.tag.Picture(Picture::fromBytes(jpegImage(8, 8)));
    song.tag.Frames()->Item(2)->Picture(Picture::fromBytes(jpegImage(9, 9)));
    const auto again = song.saved();
    ByteArray expected = pictureFrame(jpegImage(8, 8), "image/jpeg", "");
    expected[12] = 17;
    EXPECT_EQ(frameBytes(*again, 1), frameOf("APIC", expected));
    EXPECT_EQ(frameBytes(*again, 2), frameOf("APIC", pictureFrame(jpegImage(9, 9), "image/jpeg", "back side")));
}

TEST_P(SavedTag, NoPictureTakesItOutOfTheFile) {
    auto song = open(Id3v2Builder(3).text("TIT2", "x").frame("APIC", pictureFrame(pngImage(2, 2))));
    song.tag.Picture(nullptr);
    EXPECT_EQ(lettersOf(*song.saved()), "TIT2;");
}

TEST_P(SavedTag, AChangedCommentKeepsItsLanguage) {
    auto song = open(Id3v2Builder(3).frame("COMM", commentFrame("", "alt", Encoding::CodePage, "deu")));
    song.tag.Comments("neu");
    const auto again = song.saved();
    EXPECT_EQ(frameBytes(*again, 1), frameOf("COMM", commentFrame("", "neu", Encoding::CodePage, "deu")));
}

TEST_P(SavedTag, ANewCommentHasARealLanguage) {
    auto song = open(Id3v2Builder(3).text("TIT2", "x"));
    song.tag.Comments("a comment");
    EXPECT_EQ(frameBytes(*song.saved(), 2), frameOf("COMM", commentFrame("", "a comment")));
}

TEST_P(SavedTag, AHostMayChangeDescriptionAndLanguageOfARecord) {
    auto song = open(Id3v2Builder(3).frame("COMM", commentFrame("d", "c")).text("TIT2", "x"));
    song.tag.Frames()->Item(1)->sDescription("other");
    song.tag.Frames()->Item(1)->vLanguage("fra");
    EXPECT_EQ(frameBytes(*song.saved(), 1), frameOf("COMM", commentFrame("other", "c", Encoding::CodePage, "fra")));
}

TEST_P(SavedTag, TheUniqueKeyIsStoredWithABlankBehindEachCharacter) {
    auto song = open(Id3v2Builder(3).text("TIT2", "x"));
    song.tag.UniqueKey("ab");
    const auto again = song.saved();
    EXPECT_EQ(frameBytes(*again, 2), frameOf("UFID", bytesOf(std::string_view("\0a b ", 5))));
    EXPECT_EQ(again->UniqueKey(), "ab");
}

TEST_P(SavedTag, AYearOf0IsWritten) {
    auto song = open(Id3v2Builder(3).text("TIT2", "x").text("TYER", "1999"));
    song.tag.Year(0);
    EXPECT_EQ(frameBytes(*song.saved(), 2), frameOf("TYER", textFrame("0")));
}

TEST_P(SavedTag, TheSameYearAsANumberIsNoChangeOfTheFrame) {
    auto song = open(Id3v2Builder(3).text("TYER", "1999", Encoding::Utf16));
    song.tag.Year(1999);
    ASSERT_TRUE(Updatable::SaveTag(song.tag));
    EXPECT_TRUE(song.file.isUnchanged());
}

TEST_P(SavedTag, ASecondSaveGoesOnFromTheFirst) {
    auto song = open(foreignFrames().frame("APIC", pictureFrame(jpegImage(9, 9), "image/jpeg")).padding(20));
    song.tag.Title("one");
    song.saved();
    song.tag.Title("two");
    song.tag.Picture(Picture::fromBytes(pngImage(4, 4)));
    EXPECT_EQ(song.saved()->Title(), "two");
    song.tag.Artist(std::string(5000, 'x'));
    const auto again = song.saved();
    EXPECT_EQ(again->Title(), "two");
    EXPECT_EQ(again->Artist(), std::string(5000, 'x'));
    EXPECT_EQ(again->FrameCount(), 15);
    EXPECT_TRUE(song.tag.Frames()->Item(2)->bChanged()) << "a save does not reset the marks";
}

TEST_P(SavedTag, LargePicturesGoOverWhenTheTagGrows) {
    ByteArray image = pngImage(4, 4);
    image.resize(400'000, 0xE5);
    auto song = open(Id3v2Builder(3).text("TIT2", "x").frame("APIC", pictureFrame(image)).text("TPE1", "y"));
    song.tag.Title(std::string(3000, 't'));
    const auto again = song.saved();
    EXPECT_EQ(again->Frames()->Item(2)->PictureRAW(), image);
    EXPECT_EQ(song.tag.Frames()->Item(2)->PictureRAW(), image) << "it stands elsewhere now";
    EXPECT_EQ(again->Artist(), "y");
}

TEST_P(SavedTag, AnUnsynchronisedTagIsWrittenWithoutUnsynchronisation) {
    auto song = open(Id3v2Builder(3).unsynchronise().text("TIT2", "\u00FF\u00E0").text("TPE1", "\u00FF\u00F0"));
    const auto flag = [&] { return song.file.content()[5]; };
    EXPECT_EQ(flag(), 0x80);
    song.tag.Title("after");
    const auto again = song.saved();
    EXPECT_EQ(flag(), 0);
    EXPECT_EQ(again->Artist(), "\u00FF\u00F0");
    EXPECT_EQ(again->Title(), "after");
}

TEST_P(SavedTag, AValueWithoutAPlaceInItsFrameFailsAndChangesNothing) {
    auto song = open(Id3v2Builder(3).text("TIT2", "x"));
    song.tag.LyricsSynced("[00:99.0] no such second");
    EXPECT_TRUE(song.isRefused(3));
}

TEST_P(SavedTag, AFileChangedByOthersIsRefused) {
    auto song = open(Id3v2Builder(3).text("TIT2", "x"));
    song.tag.Title("y");
    const ByteArray theirs = countedBytes(4000);
    folder.write("song.mp3", theirs);
    EXPECT_FALSE(Updatable::SaveTag(song.tag));
    EXPECT_EQ(song.file.content(), theirs);
}

struct Untouchable {
    const char* name;
    ByteArray tag;
    std::int32_t number;
};

TEST_P(SavedTag, TagsThatMustNotBeOverwrittenAreRefused) {
    const Untouchable kTags[] = {
        {"Version 2.2", Id3v2Builder(2).text("TT2", "x").done(), 10},
        {"Version 2.4", Id3v2Builder(4).text("TIT2", "x").done(), 10},
        {"Past the end of the file", Id3v2Builder(3).text("TIT2", "x").claimedSize(10'000'000).done(), 3},
        {"A frame over the end of the tag",
         Id3v2Builder(3).text("TIT2", "x").raw(bytesOf(std::string_view("TPE1\0\0\1\0\0\0\0x", 12))).done(), 3},
    };
    for (const Untouchable& untouchable : kTags) {
        const Mp3File file(folder, untouchable.tag);
        ID3V230 tag;
        tag.UseTempCopy(GetParam());
        ASSERT_TRUE(Updatable::LoadFromFile(tag, file.path()));
        tag.Title("another");
        EXPECT_FALSE(Updatable::SaveTag(tag)) << untouchable.name;
        ASSERT_TRUE(Updatable::lastFailure(tag));
        EXPECT_EQ(Updatable::lastFailure(tag)->number, untouchable.number) << Updatable::lastFailure(tag)->description;
        EXPECT_TRUE(file.isUnchanged()) << untouchable.name;
    }
}

TEST_P(SavedTag, ADescriptionForAFrameWithoutOneIsToldToTheHost) {
    auto song = open(Id3v2Builder(3).text("TIT2", "x"));
    song.tag.Frames()->Item(1)->sDescription("no place for it");
    const HostMessageBox box;
    EXPECT_TRUE(Updatable::SaveTag(song.tag));
    ASSERT_EQ(box.shown.size(), 1U);
    EXPECT_EQ(box.shown[0].text, "Unable to write data to field.\r\nID3V230::id3SetField()\r\n"
                                 "Field '5' doesn't exist.\r\nData: no place for it");
}

INSTANTIATE_TEST_SUITE_P(Both, SavedTag, testing::Bool(),
                         [](const auto& tested) { return tested.param ? "BySafeReplacement" : "InPlace"; });

TEST(StripTags, TakesOutTheKindsWhoseBitsAreSet) {
    const ScratchFolder folder;
    const Mp3File file(folder, Id3v2Builder(3).text("TIT2", "x").done());
    ID3V230 tag;
    ASSERT_TRUE(Updatable::LoadFromFile(tag, file.path()));
    EXPECT_EQ(Updatable::StripTags(tag, 2), 0);
    EXPECT_TRUE(file.audioIsUntouched());
    EXPECT_EQ(file.content(), Mp3File::usualRest());
    EXPECT_EQ(tag.Frames()->Count(), 1) << "the records stay";
    EXPECT_EQ(Updatable::StripTags(tag, 3), 0);
    EXPECT_EQ(file.content().size(), Mp3File::usualRest().size() - 128);
    EXPECT_FALSE(Updatable::lastFailure(tag));
}

TEST(StripTags, ATagTakenOutCanBeSavedAgain) {
    const ScratchFolder folder;
    const Mp3File file(folder, Id3v2Builder(3).text("TIT2", "x").frame("PRIV", countedBytes(50)).done());
    ID3V230 tag;
    ASSERT_TRUE(Updatable::LoadFromFile(tag, file.path()));
    ASSERT_EQ(Updatable::StripTags(tag, 2), 0);
    ASSERT_TRUE(Updatable::SaveTag(tag)) << Updatable::lastFailure(tag)->description;
    EXPECT_TRUE(file.audioIsUntouched());
    ID3V230 again;
    ASSERT_TRUE(Updatable::LoadFromFile(again, file.path()));
    EXPECT_EQ(again.Title(), "x");
    EXPECT_EQ(again.FrameCount(), 2);
}

TEST(StripTags, WithoutAFileNothingIsDone) {
    ID3V230 tag;
    EXPECT_EQ(Updatable::StripTags(tag, 2), 11);
    tag.Title("x");
    EXPECT_FALSE(Updatable::SaveTag(tag));
    EXPECT_EQ(Updatable::lastFailure(tag)->number, 11);
}

} // namespace
} // namespace corvane::id3v230saving_test
