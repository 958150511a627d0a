#include "corvane/id3v2/ID3V23Tag.h"

#include "corvane/id3v2/ID3V23TagInternals.h"
#include "corvane/id3v2/TagFrames.h"

#include "tests/id3v2/TagOnDisk.h"
#include "tests/support/ImageBuilder.h"

#include <gtest/gtest.h>

namespace corvane::id3v23tag_test {
namespace {

using namespace test;

constexpr std::string_view kTitleFrame("TIT2\0\0\0\5\0\0\0abcd", 15);

std::shared_ptr<ID3V23Tag> readerOf(TagOnDisk& file) { return file.tag.ID3V23Tag(); }

TEST(ID3V23Tag, OneFrameAndPaddingIsOneFrame) {
    TagOnDisk file(Id3v2Builder(3).raw(bytesOf(kTitleFrame)).padding(100));
    const auto reader = readerOf(file);
    ASSERT_NE(reader, nullptr);
    EXPECT_EQ(reader->FrameCount(), 1);
    EXPECT_EQ(reader->FrameList(), "TIT2;");
    EXPECT_EQ(reader->GetFrameByIndex(1)->TextData(), "abcd");
    EXPECT_EQ(Internals<ID3V23Tag>::frames(*reader).paddingSize(), 99U);
}

TEST(ID3V23Tag, OneFrameAndFiveZerosFailsToLoad) {
    TagOnDisk file(Id3v2Builder(3).raw(bytesOf(kTitleFrame)).padding(5));
    EXPECT_EQ(readerOf(file), nullptr);
}

TEST(ID3V23Tag, OneFrameAndOneZeroLoads) {
    TagOnDisk file(Id3v2Builder(3).raw(bytesOf(kTitleFrame)).padding(1));
    EXPECT_NE(readerOf(file), nullptr);
}

TEST(ID3V23Tag, AFrameOfSizeZeroInTheMiddleIsSkippedAndNotListed) {
    TagOnDisk file(Id3v2Builder(3).text("TALB", "a").frame("TPE1", {}).raw(bytesOf(kTitleFrame)));
    const auto reader = readerOf(file);
    ASSERT_NE(reader, nullptr);
    EXPECT_EQ(reader->FrameList(), "TALB;TIT2;");
    EXPECT_EQ(reader->Title(), "abcd");
}

TEST(ID3V23Tag, OfTwoCommentsTheFirstIsKeptAndBothAreListed) {
    TagOnDisk file(Id3v2Builder(3).frame("COMM", commentFrame("", "first")).frame("COMM", commentFrame("", "second")));
    const auto reader = readerOf(file);
    ASSERT_NE(reader, nullptr);
    EXPECT_EQ(reader->FrameCount(), 1);
    EXPECT_EQ(reader->FrameList(), "COMM;COMM;");
    EXPECT_EQ(reader->Comment(), "first");
}

TEST(ID3V23Tag, FramesAreFoundByIdAndByIndex) {
    TagOnDisk file(Id3v2Builder(3).text("TALB", "a").text("TIT2", "t"));
    const auto reader = readerOf(file);
    ASSERT_NE(reader, nullptr);
    EXPECT_EQ(reader->GetFrameByID("TIT2")->TextData(), "t");
    EXPECT_EQ(reader->GetFrameByIndex(2)->ID(), "TIT2");
    for (const char* id : {"TPE1", "", "T", "IT2", "TIT2;", "TALB;TIT2", "tit2"}) {
        EXPECT_EQ(reader->GetFrameByID(id), nullptr) << id;
        EXPECT_EQ(reader->GetText(id), "") << id;
    }
    for (const std::int32_t index : {0, -1, 3, INT32_MIN, INT32_MAX}) {
        EXPECT_EQ(reader->GetFrameByIndex(index), nullptr) << index;
    }
}

struct Property {
    const char* name;
    const char* id;
    std::string (ID3V23Tag::*read)() const;
    void (ID3V23Tag::*write)(std::string_view);
    bool hasFields; // language and description in front of the text
};
class PropertyOfID3V23Tag : public testing::TestWithParam<Property> {};

TEST_P(PropertyOfID3V23Tag, IsTheTextOfItsFrame) {
    TagOnDisk file(
        Id3v2Builder(3).frame(GetParam().id, GetParam().hasFields ? commentFrame("", "value") : textFrame("value")));
    EXPECT_EQ((*readerOf(file).*GetParam().read)(), "value");
}

TEST_P(PropertyOfID3V23Tag, IsEmptyWithoutItsFrame) {
    TagOnDisk file(Id3v2Builder(3).text("XXXX", "value"));
    EXPECT_EQ((*readerOf(file).*GetParam().read)(), "");
}

TEST_P(PropertyOfID3V23Tag, WritesDoNothing) {
    TagOnDisk file(
        Id3v2Builder(3).frame(GetParam().id, GetParam().hasFields ? commentFrame("", "value") : textFrame("value")));
    const auto before = contentOf(file.path());
    const auto reader = readerOf(file);
    const std::string record = lastErrorOf(*reader);
    (*reader.*GetParam().write)("other");
    EXPECT_EQ((*reader.*GetParam().read)(), "value");
    EXPECT_EQ(lastErrorOf(*reader), record);
    EXPECT_EQ(contentOf(file.path()), before);
}

#define PROPERTY(NAME, ID, FIELDS)                                                                                     \
    Property { #NAME, ID, &ID3V23Tag::NAME, &ID3V23Tag::NAME, FIELDS }
INSTANTIATE_TEST_SUITE_P(Texts, PropertyOfID3V23Tag,
                         testing::Values(PROPERTY(Artist, "TPE1", false), PROPERTY(Album, "TALB", false),
                                         PROPERTY(Title, "TIT2", false), PROPERTY(Genre, "TCON", false),
                                         PROPERTY(Track, "TRCK", false), PROPERTY(Year, "TYER", false),
                                         PROPERTY(LyricsUnsynced, "USLT", true), PROPERTY(Comment, "COMM", true),
                                         PROPERTY(Composer, "TCOM", false), PROPERTY(OriginalArtist, "TOPE", false),
                                         PROPERTY(Copyright, "TCOP", false), PROPERTY(EncodedBy, "TENC", false)),
                         [](const auto& tested) { return tested.param.name; });
#undef PROPERTY

TEST(ID3V23Tag, SyncedLyricsAreTheTextWithItsTimes) {
    TagOnDisk file(Id3v2Builder(3).frame("SYLT", syncedLyricsFrame("", {"a", "b"})));
    const auto reader = readerOf(file);
    EXPECT_EQ(reader->LyricsSynced(), reader->GetText("SYLT"));
    EXPECT_TRUE(reader->LyricsSynced().starts_with("a"));
    reader->LyricsSynced("other");
    EXPECT_TRUE(reader->LyricsSynced().starts_with("a"));
}

TEST(ID3V23Tag, TheUserUrlIsEmptySinceItsFrameHasNoText) {
    TagOnDisk file(Id3v2Builder(3).frame("WXXX", userUrlFrame("", "http://a")));
    const auto reader = readerOf(file);
    EXPECT_EQ(reader->UserURL(), "");
    reader->UserURL("http://b");
    EXPECT_EQ(textOf(reader->GetFrameByID("WXXX")->removeHeader()), "http://a");
}

TEST(ID3V23Tag, ThePictureIsThatOfItsFrame) {
    TagOnDisk file(Id3v2Builder(3).frame("APIC", pictureFrame(jpegImage(4, 5))));
    const auto reader = readerOf(file);
    const auto picture = reader->Picture();
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->mimeType(), "image/jpeg");
    EXPECT_EQ(picture->height(), 5);
    reader->Picture(nullptr); // a parsed tag is not changed
    EXPECT_NE(reader->Picture(), nullptr);
}

TEST(ID3V23Tag, WithoutAnImageThereIsNoPicture) {
    TagOnDisk none(Id3v2Builder(3).text("TIT2", "t"));
    EXPECT_EQ(readerOf(none)->Picture(), nullptr);
    TagOnDisk other(Id3v2Builder(3).frame("APIC", pictureFrame(bytesOf("no image"))));
    EXPECT_EQ(readerOf(other)->Picture(), nullptr);
}

TEST(ID3V23Tag, APictureThatCanNoLongerBeReadIsNothingAndRecorded) {
    const ByteArray image = test::joined({pngImage(1, 1), ByteArray(100'000, 7)});
    TagOnDisk file(Id3v2Builder(3).frame("APIC", pictureFrame(image)));
    const auto reader = readerOf(file);
    ASSERT_NE(reader->Picture(), nullptr);
    EXPECT_EQ(reader->Picture()->bytes().size(), image.size());
    file.replaceFile();
    EXPECT_EQ(reader->Picture(), nullptr);
    EXPECT_NE(lastErrorOf(*reader).find("The file was changed since it was read."), std::string::npos);
}

TEST(ID3V23Tag, AYearThatIsNoNumberIsNotWrittenEither) {
    TagOnDisk file(Id3v2Builder(3).text("TYER", "2001"));
    const auto reader = readerOf(file);
    EXPECT_NO_THROW(reader->Year("no number"));
    EXPECT_EQ(reader->Year(), "2001");
}

struct GenreCase {
    const char* name;
    const char* contentType;
    const char* id;
    const char* genre;
    const char* split; // the description that splittedGenre leaves, "kept" when it leaves it as it was
};
class GenreOfID3V23Tag : public testing::TestWithParam<GenreCase> {};
TEST_P(GenreOfID3V23Tag, IsSplit) {
    TagOnDisk file(Id3v2Builder(3).text("TCON", GetParam().contentType));
    const auto reader = readerOf(file);
    EXPECT_EQ(reader->GenreID(), GetParam().id);
    EXPECT_EQ(reader->Genre(), GetParam().genre);
    std::int16_t id = 99;
    std::string description = "kept";
    EXPECT_TRUE(reader->splittedGenre(id, description));
    EXPECT_EQ(id, 99); // never set, on purpose
    EXPECT_EQ(description, GetParam().split);
}
INSTANTIATE_TEST_SUITE_P(Texts, GenreOfID3V23Tag,
                         testing::Values(GenreCase{"Both", "(17)Rock", "17", "Rock", "Rock"},
                                         GenreCase{"NumberOnly", "(17)", "17", "", ""},
                                         GenreCase{"NameOnly", "Rock", "Rock", "Rock", "kept"},
                                         GenreCase{"WithoutEnd", "(17", "(17", "(17", "(17"}),
                         [](const auto& tested) { return tested.param.name; });

TEST(ID3V23Tag, AMissingGenreSplitsToNothing) {
    TagOnDisk file(Id3v2Builder(3).text("TIT2", "t"));
    std::int16_t id = 99;
    std::string description = "kept";
    EXPECT_TRUE(readerOf(file)->splittedGenre(id, description));
    EXPECT_EQ(description, "kept");
}

TEST(ID3V23Tag, ATagThatWasParsedCannotBeSaved) {
    TagOnDisk file(Id3v2Builder(3).text("TIT2", "t"));
    const auto reader = readerOf(file);
    EXPECT_FALSE(reader->saveTag());
    EXPECT_EQ(lastErrorOf(*reader), "0, saveTag, Saving is not supported.");
    EXPECT_EQ(Internals<ID3V23Tag>::getErrorRecord(*reader)->Severity, cError::kWarning);
}

TEST(ID3V23Tag, ATagThatWasParsedCannotBeRemoved) {
    TagOnDisk file(Id3v2Builder(3).text("TIT2", "t"));
    const auto reader = readerOf(file);
    EXPECT_FALSE(reader->removeTag());
    EXPECT_EQ(lastErrorOf(*reader), "0, Remove functionality, Removing is not supported.");
    EXPECT_EQ(Internals<ID3V23Tag>::getErrorRecord(*reader)->Severity, cError::kWarning);
}

TEST(ID3V23Tag, CanSaveNamesTheLibraryThatIsMissing) {
    ID3V23Tag reader;
    EXPECT_FALSE(reader.canSave());
    EXPECT_EQ(lastErrorOf(reader),
              "0, canSave, Saving is not supported.\r\n\r\nThe DLL 'libid3-3.8.so.3' is not present.\r\n"
              "Please install it into the program directory.");
    EXPECT_EQ(Internals<ID3V23Tag>::getErrorRecord(reader)->Severity, cError::kWarning);
}

TEST(ID3V23Tag, CanSaveSaysNoReasonWhenSavingIsRefused) {
    ID3V23Tag reader;
    Internals<ID3V23Tag>::refuseSaving(reader, true);
    EXPECT_FALSE(reader.canSave());
    EXPECT_EQ(lastErrorOf(reader), "0, Save functionality, Saving is not supported.");
    Internals<ID3V23Tag>::refuseSaving(reader, false);
    EXPECT_FALSE(reader.canSave());
    EXPECT_TRUE(lastErrorOf(reader).starts_with("0, canSave, "));
}

TEST(ID3V23Tag, AnUnloadedReaderIsEmpty) {
    const ID3V23Tag reader;
    EXPECT_EQ(reader.FrameList(), "");
    EXPECT_EQ(reader.FrameCount(), 0);
    EXPECT_EQ(reader.GetFrameByIndex(1), nullptr);
    EXPECT_EQ(reader.Title(), "");
    EXPECT_EQ(lastErrorOf(reader), "0, , ");
}

TEST(ID3V23Tag, TextThatCanNoLongerBeReadIsEmptyAndRecorded) {
    TagOnDisk file(Id3v2Builder(3).text("TIT2", std::string(100'000, 'x')));
    const auto reader = readerOf(file);
    EXPECT_EQ(reader->Title().size(), 100'000U);
    file.replaceFile();
    EXPECT_EQ(reader->Title(), "");
    EXPECT_NE(lastErrorOf(*reader).find("The file was changed since it was read."), std::string::npos);
    EXPECT_EQ(Internals<ID3V23Tag>::getErrorRecord(*reader)->Severity, cError::kError);
}

} // namespace
} // namespace corvane::id3v23tag_test
