// The reader of ID3v2.3 tags where id3lib is installed: its properties are views of an updatable tag.
#include "corvane/id3v2/ID3V23Tag.h"
#include "corvane/id3v2/ID3V23TagInternals.h"
#include "corvane/id3v230/ID3V230Internals.h"
#include "corvane/platform/RuntimeFailure.h"

#include "tests/id3v2/TagOnDisk.h"
#include "tests/support/Failures.h"
#include "tests/support/ImageBuilder.h"
#include "tests/support/ProcessorTime.h"

#include <gtest/gtest.h>

#include <limits>

namespace corvane::backedid3v23tag_test {
namespace {

using namespace test;

constexpr const char* kUnableToSave = "0, saveTag, Unable to save the ID3v23 tag.";

std::shared_ptr<ID3V23Tag> readerOf(TagOnDisk& file) { return file.tag.ID3V23Tag(); }

TEST(BackedID3V23Tag, HoldsARecordForEveryFrame) {
    TagOnDisk file(Id3v2Builder(3)
                       .text("TIT2", "\u65E5\u672C", Encoding::Utf16)
                       .frame("COMM", commentFrame("one", "first"))
                       .frame("XYZW", countedBytes(5))
                       .frame("COMM", commentFrame("one", "second"))
                       .padding(5));
    const auto reader = readerOf(file);
    ASSERT_NE(reader, nullptr) << "the updatable tag is more lenient than the parser";
    EXPECT_EQ(reader->FrameCount(), 4);
    EXPECT_EQ(reader->FrameList(), "TIT2;COMM;XYZW;COMM;");
    EXPECT_EQ(reader->Title(), "\u65E5\u672C");
    const auto comment = reader->GetFrameByIndex(4);
    ASSERT_NE(comment, nullptr);
    EXPECT_EQ(comment->ID(), "COMM");
    EXPECT_EQ(comment->TextData(), "second");
    EXPECT_EQ(comment->Description(), "one");
    EXPECT_EQ(comment->Language(), "eng");
    EXPECT_EQ(reader->GetFrameByIndex(3)->RawData(), countedBytes(5));
    EXPECT_EQ(reader->GetFrameByIndex(3)->TextData(), "");
    EXPECT_EQ(reader->GetText("COMM"), "first");
    EXPECT_EQ(reader->GetFrameByID("XYZW")->ID(), "XYZW");
    for (const std::int32_t index : {0, -1, 5, std::numeric_limits<std::int32_t>::max()}) {
        EXPECT_EQ(reader->GetFrameByIndex(index), nullptr) << index;
    }
    EXPECT_EQ(reader->GetFrameByID("TPE1"), nullptr);
    EXPECT_EQ(reader->GetText("TPE1"), "");
}

TEST(BackedID3V23Tag, FramesAreViewsOfTheRecords) {
    TagOnDisk file(Id3v2Builder(3).text("TIT2", "before"));
    const auto reader = readerOf(file);
    const auto frame = reader->GetFrameByIndex(1);
    reader->Title("after");
    EXPECT_EQ(frame->TextData(), "after");
    EXPECT_TRUE(frame->IsTitle());
    EXPECT_EQ(frame->RawData(), textFrame("before")) << "as it was read";
    EXPECT_EQ(frame->removeHeader(), textFrame("before"));
    reader->Composer("new");
    EXPECT_EQ(reader->FrameCount(), 2);
    EXPECT_EQ(reader->GetFrameByIndex(2)->ID(), "TCOM");
    EXPECT_TRUE(reader->GetFrameByIndex(2)->RawData().empty()) << "it stands in no file";
}

struct Property {
    const char* name;
    const char* id;
    std::string (ID3V23Tag::*read)() const;
    void (ID3V23Tag::*write)(std::string_view);
    std::string (ID3V230::*updatable)() const;
};
class PropertyOfABackedTag : public testing::TestWithParam<Property> {};

TEST_P(PropertyOfABackedTag, IsThatOfTheUpdatableTag) {
    TagOnDisk file(Id3v2Builder(3).text("TSSE", "x"));
    const auto reader = readerOf(file);
    EXPECT_EQ((*reader.*GetParam().read)(), "");
    (*reader.*GetParam().write)("a value");
    EXPECT_EQ((*reader.*GetParam().read)(), "a value");
    EXPECT_EQ((*Internals<ID3V23Tag>::changeable(*reader).*GetParam().updatable)(), "a value");
    EXPECT_EQ(reader->FrameList(), std::string("TSSE;") + GetParam().id + ";");
}

#define PROPERTY(NAME, ID, UPDATABLE)                                                                                  \
    Property { #NAME, ID, &ID3V23Tag::NAME, &ID3V23Tag::NAME, &ID3V230::UPDATABLE }
INSTANTIATE_TEST_SUITE_P(
    Texts, PropertyOfABackedTag,
    testing::Values(PROPERTY(Artist, "TPE1", Artist), PROPERTY(Album, "TALB", Album), PROPERTY(Title, "TIT2", Title),
                    PROPERTY(Genre, "TCON", Genre), PROPERTY(Track, "TRCK", Track),
                    PROPERTY(LyricsUnsynced, "USLT", LyricsUnsynced), PROPERTY(LyricsSynced, "SYLT", LyricsSynced),
                    PROPERTY(UserURL, "WXXX", UserURL), PROPERTY(Comment, "COMM", Comments),
                    PROPERTY(Composer, "TCOM", Composer), PROPERTY(OriginalArtist, "TOPE", OriginalArtist),
                    PROPERTY(Copyright, "TCOP", Copyright), PROPERTY(EncodedBy, "TENC", EncodedBy)),
    [](const auto& tested) { return tested.param.name; });
#undef PROPERTY

TEST(BackedID3V23Tag, YearIsTheNumberAsText) {
    TagOnDisk file(Id3v2Builder(3).text("TYER", "1999"));
    const auto reader = readerOf(file);
    EXPECT_EQ(reader->Year(), "1999");
    reader->Year("2001");
    EXPECT_EQ(reader->Year(), "2001");
    EXPECT_EQ(Internals<ID3V23Tag>::changeable(*reader)->FrameValue(ID3_FrameID::ID3FID_YEAR),
              FrameVariant(std::int16_t{2001}));
    reader->Year(" +7 ");
    EXPECT_EQ(reader->Year(), "7");
    TagOnDisk without(Id3v2Builder(3).text("TIT2", "x"));
    EXPECT_EQ(readerOf(without)->Year(), "0");
}

TEST(BackedID3V23Tag, AYearThatIsNoNumberIsATypeMismatch) {
    TagOnDisk file(Id3v2Builder(3).text("TYER", "1999"));
    const auto reader = readerOf(file);
    for (const char* text : {"", "  ", "abc", "2001a", "20 01", "+-5", "--5", "0x10"}) {
        EXPECT_EQ(failureNumberOf([&] { reader->Year(text); }), static_cast<std::int32_t>(FailureNumber::TypeMismatch))
            << text;
    }
    for (const char* text : {"32768", "-32769"}) {
        EXPECT_EQ(failureNumberOf([&] { reader->Year(text); }), static_cast<std::int32_t>(FailureNumber::Overflow))
            << text;
    }
    EXPECT_EQ(reader->Year(), "1999");
}

TEST(BackedID3V23Tag, AYearInTheFileThatDoesNotFitIsRecorded) {
    TagOnDisk file(Id3v2Builder(3).text("TYER", "99999"));
    const auto reader = readerOf(file);
    EXPECT_EQ(reader->Year(), "");
    EXPECT_TRUE(lastErrorOf(*reader).starts_with("6, ")) << lastErrorOf(*reader);
}

TEST(BackedID3V23Tag, GenreIsTheWholeTextAndIsSplitByTheUpdatableTag) {
    TagOnDisk file(Id3v2Builder(3).text("TCON", " (17)Rock "));
    const auto reader = readerOf(file);
    EXPECT_EQ(reader->Genre(), "(17)Rock");
    EXPECT_EQ(reader->GenreID(), "17");
    std::int16_t number = -1;
    std::string description = "kept";
    EXPECT_TRUE(reader->splittedGenre(number, description));
    EXPECT_EQ(number, 17);
    EXPECT_EQ(description, "Rock");
    reader->Genre("Jazz");
    number = -1;
    EXPECT_TRUE(reader->splittedGenre(number, description));
    EXPECT_EQ(number, -1) << "no number, so the argument stays";
    EXPECT_EQ(description, "Jazz");
}

TEST(BackedID3V23Tag, ThePictureIsThatOfTheUpdatableTag) {
    TagOnDisk file(Id3v2Builder(3).frame("APIC", pictureFrame(jpegImage(4, 5))));
    const auto reader = readerOf(file);
    ASSERT_NE(reader->Picture(), nullptr);
    EXPECT_EQ(reader->Picture()->height(), 5);
    const auto frame = reader->GetFrameByID("APIC");
    EXPECT_TRUE(frame->IsPicture());
    EXPECT_EQ(frame->PictureRAW(), jpegImage(4, 5));
    EXPECT_EQ(frame->removeHeader(), jpegImage(4, 5));
    EXPECT_EQ(frame->createPicture()->width(), 4);
    reader->Picture(Picture::fromBytes(pngImage(9, 9)));
    EXPECT_EQ(reader->Picture()->width(), 9);
    EXPECT_EQ(frame->PictureRAW(), pngImage(9, 9));
    reader->Picture(nullptr);
    EXPECT_EQ(reader->Picture(), nullptr);
}

TEST(BackedID3V23Tag, APictureThatCanNoLongerBeReadIsRecorded) {
    ByteArray image = pngImage(4, 4);
    image.resize(300'000);
    TagOnDisk file(Id3v2Builder(3).frame("APIC", pictureFrame(image)));
    const auto reader = readerOf(file);
    file.replaceFile();
    EXPECT_EQ(reader->Picture(), nullptr);
    EXPECT_NE(lastErrorOf(*reader), "0, , ");
    EXPECT_TRUE(reader->GetFrameByIndex(1)->PictureRAW().empty());
}

TEST(BackedID3V23Tag, CanBeSaved) {
    TagOnDisk file(Id3v2Builder(3).text("TIT2", "x"));
    EXPECT_TRUE(readerOf(file)->canSave());
    EXPECT_EQ(lastErrorOf(*readerOf(file)), "0, , ");
}

TEST(BackedID3V23Tag, ARefusalOfSavingSaysNothingOfTheReason) {
    TagOnDisk file(Id3v2Builder(3).text("TIT2", "x"));
    const auto reader = readerOf(file);
    Internals<ID3V23Tag>::refuseSaving(*reader, true);
    EXPECT_FALSE(reader->canSave());
    EXPECT_EQ(lastErrorOf(*reader), "0, Save functionality, Saving is not supported.");
    Internals<ID3V23Tag>::refuseSaving(*reader, false);
    EXPECT_TRUE(reader->canSave());
}

TEST(BackedID3V23Tag, ASaveThatWorksLeavesItsRecordBehind) {
    TagOnDisk file(Id3v2Builder(3).text("TIT2", "before").padding(300));
    const auto reader = readerOf(file);
    reader->Title("after");
    EXPECT_TRUE(reader->saveTag());
    EXPECT_TRUE(file.audioIsUntouched());
    EXPECT_EQ(lastErrorOf(*reader), kUnableToSave);
    EXPECT_EQ(Internals<ID3V23Tag>::getErrorRecord(*reader)->Severity, cError::kError);
    TagOnDisk again(contentOf(file.path()));
    EXPECT_EQ(again.tag.Title(), "after");
}

TEST(BackedID3V23Tag, ASaveThatFailsLeavesTheSameRecord) {
    TagOnDisk file(Id3v2Builder(3).text("TIT2", "before"));
    const auto reader = readerOf(file);
    reader->Title("after");
    std::filesystem::remove(file.path());
    EXPECT_FALSE(reader->saveTag());
    EXPECT_EQ(lastErrorOf(*reader), kUnableToSave);
    EXPECT_TRUE(file.folder().names().empty());
}

TEST(BackedID3V23Tag, RemovingTakesTheTagOutOfTheFile) {
    TagOnDisk file(Id3v2Builder(3).text("TIT2", "x").padding(300));
    EXPECT_TRUE(readerOf(file)->removeTag());
    EXPECT_TRUE(file.audioIsUntouched());
    EXPECT_EQ(contentOf(file.path()), ByteArray(200, 0x55));
    EXPECT_EQ(lastErrorOf(*readerOf(file)), "0, , ");
}

TEST(BackedID3V23Tag, ARemovalThatFailsTellsTheErrorOfItsNumber) {
    TagOnDisk file(Id3v2Builder(3).text("TIT2", "x"));
    const auto reader = readerOf(file);
    std::filesystem::remove(file.path());
    EXPECT_FALSE(reader->removeTag());
    EXPECT_EQ(lastErrorOf(*reader), "0, removeTag, Unable to remove the tag: No file to parse");
}

TEST(BackedID3V23Tag, AReaderThatIsNotBackedRefusesToSaveAndToRemove) {
    ID3V23Tag reader;
    reader.Title("lost");
    EXPECT_EQ(reader.Title(), "");
    EXPECT_FALSE(reader.saveTag());
    EXPECT_EQ(lastErrorOf(reader), "0, saveTag, Saving is not supported.");
    EXPECT_FALSE(reader.removeTag());
    EXPECT_EQ(lastErrorOf(reader), "0, Remove functionality, Removing is not supported.");
}

TEST(BackedID3V23Tag, LoadingIsASuccessWhateverComesOfIt) {
    ID3V23Tag reader;
    EXPECT_TRUE(Internals<ID3V23Tag>::loadWithId3lib(reader, "/nowhere/at/all", {}));
    EXPECT_EQ(reader.FrameCount(), 0);
    EXPECT_EQ(reader.Title(), "");
}

// A tag of as many frames as an index is worth for.
Id3v2Builder tagOfManyFrames() {
    Id3v2Builder tag(3);
    for (int i = 0; i < 500; ++i) tag.frame("PRIV", countedBytes(3));
    return tag.text("TIT2", "title").text("TPE1", "first").text("TPE1", "second").frame("XYZW", countedBytes(5));
}

TEST(BackedID3V23Tag, AFrameIsFoundByItsIdWhateverBecomesOfTheRecords) {
    TagOnDisk file(tagOfManyFrames());
    const auto reader = readerOf(file);
    EXPECT_EQ(reader->GetText("TPE1"), "first");
    EXPECT_EQ(reader->GetFrameByID("XYZW")->RawData(), countedBytes(5));
    EXPECT_EQ(reader->GetFrameByID("TCOM"), nullptr);
    reader->Composer("added");
    EXPECT_EQ(reader->GetText("TCOM"), "added");
    const auto records = Internals<ID3V23Tag>::changeable(*reader)->Frames();
    records->Item(10)->eType(static_cast<std::int16_t>(ID3_FrameID::ID3FID_COMPOSER));
    records->Item(10)->vValue(std::string("retyped"));
    EXPECT_EQ(reader->GetText("TCOM"), "retyped") << "it precedes the one that was added";
    records->Item(502)->eType(static_cast<std::int16_t>(ID3_FrameID::ID3FID_ALBUM));
    EXPECT_EQ(reader->GetText("TPE1"), "second");
    EXPECT_EQ(reader->GetText("TALB"), "first");
    reader->Title("");
    EXPECT_NE(reader->GetFrameByID("TIT2"), nullptr) << "a deleted record stays in the collection";
    EXPECT_EQ(reader->GetFrameByID("PRIV")->RawData(), countedBytes(3));
}

TEST(BackedID3V23Tag, FramesAreFoundByTheirIdsInNoTimeToSpeakOf) {
    Id3v2Builder tag(3);
    constexpr int kFrames = 90'000;
    const auto idOf = [](int number) {
        std::string id = "A000";
        for (std::size_t place = 3; place > 0; --place, number /= 36) {
            id[place] = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"[number % 36];
        }
        if (number > 0) id[0] = static_cast<char>('A' + number);
        return id;
    };
    for (int i = 0; i < kFrames; ++i) tag.frame(idOf(i), countedBytes(1));
    TagOnDisk file(tag);
    const auto reader = readerOf(file);
    const double begin = processorSeconds();
    for (int i = 0; i < kFrames; ++i) {
        ASSERT_NE(reader->GetFrameByID(idOf(i)), nullptr) << i;
        reader->GetText(idOf(i));
    }
    EXPECT_LT(processorSeconds() - begin, 10);
}

} // namespace
} // namespace corvane::backedid3v23tag_test
