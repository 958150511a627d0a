#include "corvane/id3v230/ID3V230Frame.h"

#include "corvane/id3v230/ID3V230FrameInternals.h"

#include "tests/id3v230/TagOnFile.h"
#include "tests/support/ByteBuilder.h"
#include "tests/support/ImageBuilder.h"

#include <gtest/gtest.h>

namespace corvane::id3v230frame_test {
namespace {

using Record = Internals<ID3V230Frame>;
using test::Id3v2Builder;
using test::TagOnFile;
using enum ID3_FieldID;

TEST(ID3V230Frame, ANewRecordIsEmpty) {
    const auto record = Record::make();
    EXPECT_EQ(record->eType(), 0);
    EXPECT_EQ(record->FrameHandle(), 0);
    EXPECT_EQ(record->vValue(), FrameVariant());
    EXPECT_EQ(record->sDescription(), "");
    EXPECT_EQ(record->vLanguage(), Variant());
    EXPECT_EQ(record->Picture(), nullptr);
    EXPECT_FALSE(record->Deleted());
    EXPECT_FALSE(record->bDupe());
    EXPECT_TRUE(record->PictureRAW().empty());
    EXPECT_TRUE(Record::fields(*record).empty());
}

TEST(ID3V230Frame, EveryMemberIsReadAndWritten) {
    const auto record = Record::make();
    record->eType(36);
    record->FrameHandle(5);
    record->vValue("a value");
    record->Position(7);
    record->sDescription("a description");
    record->Deleted(true);
    record->bChanged(true);
    record->IsNew(true);
    record->vLanguage("deu");
    record->bDupe(true);
    EXPECT_EQ(record->eType(), 36);
    EXPECT_EQ(record->FrameHandle(), 5);
    EXPECT_EQ(record->vValue(), FrameVariant("a value"));
    EXPECT_EQ(record->Position(), 7);
    EXPECT_EQ(record->sDescription(), "a description");
    EXPECT_TRUE(record->Deleted());
    EXPECT_TRUE(record->bChanged());
    EXPECT_TRUE(record->IsNew());
    EXPECT_EQ(record->vLanguage(), Variant("deu"));
    EXPECT_TRUE(record->bDupe());
}

TEST(ID3V230Frame, NamesFollowTheNumber) {
    const auto record = Record::make();
    EXPECT_EQ(record->FrameAbbr(), "\?\?\?\?");
    EXPECT_EQ(record->FrameTitle(), "No known frame");
    record->eType(67);
    EXPECT_EQ(record->FrameAbbr(), "WCOP");
    EXPECT_EQ(record->FrameTitle(), "Copyright/Legal infromation");
    for (const std::int16_t number : std::initializer_list<std::int16_t>{75, 76}) {
        record->eType(number);
        EXPECT_EQ(record->FrameAbbr(), "    ") << number;
    }
    for (const std::int16_t number : std::initializer_list<std::int16_t>{77, 32767, -2}) {
        record->eType(number);
        EXPECT_EQ(record->FrameAbbr(), "") << number;
        EXPECT_EQ(record->FrameTitle(), "") << number;
    }
    record->eType(-1);
    EXPECT_EQ(record->FrameAbbr(), "TPE1");
}

TEST(ID3V230Frame, DeleteOnlyMarks) {
    const TagOnFile file(Id3v2Builder().text("TIT2", "a title"));
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(file.record(1).Delete(), FrameVariant());
        EXPECT_TRUE(file.record(1).Deleted());
        EXPECT_EQ(file.record(1).vValue(), FrameVariant("a title"));
        EXPECT_FALSE(file.record(1).bChanged());
        EXPECT_EQ(file.tag.Frames()->Count(), 1);
    }
}

std::vector<ID3_FieldID> fieldsOf(const ID3V230Frame& record) {
    std::vector<ID3_FieldID> ids;
    for (const ID3V230Field& field : Record::fields(record)) ids.push_back(field.FieldID);
    return ids;
}

TEST(ID3V230Frame, LoadListsTheFieldsOfAFrameInAscendingOrder) {
    const TagOnFile file(Id3v2Builder()
                             .text("TIT2", "a title")
                             .frame("COMM", test::commentFrame("d", "c"))
                             .frame("XYZW", test::countedBytes(9)));
    ID3V230Frame& record = file.record(1);
    record.Load(record.FrameHandle());
    EXPECT_EQ(fieldsOf(record), (std::vector{ID3FN_TEXTENC, ID3FN_TEXT})) << "no description";
    EXPECT_EQ(Record::fields(record)[1].NumTextItems, 1);
    EXPECT_EQ(Record::fields(record)[1].Size, 7);
    EXPECT_EQ(Record::fields(record)[1].FieldType, ID3_FieldType::ID3FTY_NONE) << "left alone";
    record.Load(2);
    EXPECT_EQ(fieldsOf(record), (std::vector{ID3FN_TEXTENC, ID3FN_TEXT, ID3FN_DESCRIPTION, ID3FN_LANGUAGE}));
    record.Load(3);
    EXPECT_EQ(fieldsOf(record), std::vector{ID3FN_DATA});
    EXPECT_EQ(Record::fields(record)[0].Size, 9);
}

TEST(ID3V230Frame, LoadOfNoFrameEmptiesTheList) {
    const TagOnFile file(Id3v2Builder().text("TIT2", "a title"));
    for (const std::int32_t handle : {0, -1, 2, 2'147'483'647}) {
        file.record(1).Load(1);
        file.record(1).Load(handle);
        EXPECT_TRUE(Record::fields(file.record(1)).empty()) << handle;
    }
    const auto record = Record::make();
    record->Load(1);
    EXPECT_TRUE(Record::fields(*record).empty());
}

TEST(ID3V230Frame, ThePictureBytesAreACopyOfThoseThatTheLibrarySets) {
    const auto record = Record::make();
    Record::setPictureBytes(*record, {1, 2, 3});
    ByteArray copy = record->PictureRAW();
    copy[0] = 9;
    EXPECT_EQ(record->PictureRAW(), (ByteArray{1, 2, 3}));
}

TEST(ID3V230Frame, APictureAsValueIsThePicture) {
    const auto record = Record::make();
    record->eType(static_cast<std::int16_t>(ID3_FrameID::ID3FID_PICTURE));
    const auto picture = Picture::fromBytes(test::pngImage(2, 2));
    record->vValue(picture);
    EXPECT_EQ(record->Picture(), picture);
    EXPECT_EQ(record->vValue(), FrameVariant(picture));
}

TEST(ID3V230Frame, ARecordLivesOnWhenItsTagIsGone) {
    std::shared_ptr<ID3V230Frame> record;
    {
        const TagOnFile file(Id3v2Builder().text("TIT2", "a title"));
        record = file.tag.Frames()->Item(1);
    }
    EXPECT_EQ(record->vValue(), FrameVariant("a title"));
}

// The frame at a place, from 1, with its header, as it stands in the file once the tag was saved.
ByteArray savedFrame(TagOnFile& song, std::size_t place) {
    EXPECT_TRUE(Internals<ID3V230>::SaveTag(song.tag)) << Internals<ID3V230>::lastFailure(song.tag)->description;
    song.read();
    const auto& image = *Internals<ID3V230>::image(song.tag);
    return place <= image.frames().size() ? image.bytes(image.frames()[place - 1]) : ByteArray();
}

ByteArray frameOf(std::string_view id, Bytes data) { return Id3v2Builder(3).frame(id, data).body(); }

TEST(ID3V230Frame, ThePictureThatItHasAlreadyIsNoChange) {
    const ByteArray data = test::pictureFrame(test::pngImage(3, 2), "image/PNG", "", test::Encoding::Utf16);
    TagOnFile song(Id3v2Builder(3).text("TIT2", "x").frame("APIC", data));
    song.tag.Picture(song.tag.Picture());
    song.record(2).vValue(song.record(2).vValue());
    song.tag.Title("another");
    EXPECT_FALSE(song.record(2).bChanged());
    EXPECT_EQ(savedFrame(song, 2), frameOf("APIC", data));
}

TEST(ID3V230Frame, APictureTakenOutAndGivenBackIsThere) {
    TagOnFile song(Id3v2Builder(3).text("TIT2", "x").frame("APIC", test::pictureFrame(test::pngImage(3, 2))));
    const auto picture = song.tag.Picture();
    song.tag.Picture(nullptr);
    song.tag.Picture(picture);
    EXPECT_EQ(savedFrame(song, 2), frameOf("APIC", test::pictureFrame(test::pngImage(3, 2))));
}

TEST(ID3V230Frame, OfWhichOnlyQuotesDifferIsNeverLost) {
    const std::pair<const char*, ByteArray> frames[] = {
        {"LINK", test::bytesOf(std::string_view("TIT2http://a/\0the \"c\"", 21))},
        {"WXXX", test::userUrlFrame("the \"description\"", "")},
        {"TXXX", test::userTextFrame("the \"description\"", "")},
        {"COMM", test::commentFrame("the \"description\"", "")},
        {"SYLT", test::syncedLyricsFrame("the \"description\"", {})},
        {"APIC", test::pictureFrame(test::bytesOf("no image"), "-->", "the \"description\"")},
        {"GEOB", test::bytesOf(std::string_view("\0a\0\"b\"\0\"c\"\0d", 12))},
    };
    for (const auto& [id, data] : frames) {
        TagOnFile song(Id3v2Builder(3).text("TIT2", "x").frame(id, data));
        song.tag.Title("another");
        EXPECT_EQ(savedFrame(song, 2), frameOf(id, data)) << id;
    }
}

TEST(ID3V230Frame, KeepsTheLanguageBytesThatItHasHoweverFewAreLetters) {
    for (const std::string_view language : {std::string_view("\0\0\0", 3), std::string_view("de\0", 3)}) {
        TagOnFile song(Id3v2Builder(3)
                           .frame("COMM", test::commentFrame("", "old", test::Encoding::CodePage, language))
                           .frame("COMM", test::commentFrame("", "its \"own\"", test::Encoding::CodePage, "eng"))
                           .frame("USLT", test::commentFrame("", "\"a\"", test::Encoding::Utf16, language)));
        song.tag.Comments("new");
        EXPECT_EQ(savedFrame(song, 1),
                  frameOf("COMM", test::commentFrame("", "new", test::Encoding::CodePage, language)));
        EXPECT_EQ(savedFrame(song, 2), frameOf("COMM", test::commentFrame("", "its 'own'")));
        EXPECT_EQ(savedFrame(song, 3), frameOf("USLT", test::commentFrame("", "'a'", test::Encoding::Utf16, language)));
        song.tag.Comments("\u65E5\u672C");
        EXPECT_EQ(savedFrame(song, 1),
                  frameOf("COMM", test::commentFrame("", "\u65E5\u672C", test::Encoding::Utf16, language)));
    }
}

TEST(ID3V230Frame, WhoseDataEndBeforeTheLanguageIsGivenOne) {
    TagOnFile song(Id3v2Builder(3).text("TIT2", "x").frame("COMM", test::bytesOf(std::string_view("\0e", 2))));
    song.tag.Comments("new");
    EXPECT_EQ(savedFrame(song, 2), frameOf("COMM", test::commentFrame("", "new")));
}

// Times to the millisecond, an entry that begins with a line break, and a content type of its own.
ByteArray karaoke(std::string_view second) {
    return test::ByteBuilder()
        .bytes(test::bytesOf(std::string_view("\0eng\2\3\0", 7)))
        .bytes(test::bytesOf(std::string_view("\none\0\0\0\4\xD7", 9)))
        .text(second)
        .bytes(test::bytesOf(std::string_view("\0\0\0\4\xDD", 5)))
        .bytes(test::bytesOf(std::string_view("two\nlines\0\0\0\x0B\xB9", 14)))
        .done();
}

TEST(ID3V230Frame, OfSyncedLyricsKeepsTheTimesOfLinesThatStay) {
    TagOnFile song(Id3v2Builder(3).frame("SYLT", karaoke("a \"b\"")).text("TIT2", "x"));
    song.tag.Title("another");
    EXPECT_EQ(savedFrame(song, 1), frameOf("SYLT", karaoke("a 'b'"))) << "only the quotes";
    EXPECT_EQ(song.tag.LyricsSynced(), "[00:01.2] one\n[00:01.2] a 'b'\n[00:03.0] two\n[00:03.0] lines");
    song.tag.LyricsSynced("[00:00.5] new\n[00:01.2] one\n[00:01.2] b\n[00:03.0] two\n[00:03.0] lines");
    const auto lyrics = [&] {
        return test::bytesOf(std::string_view("\0eng\2\3\0"
                                              "new\0\0\0\1\xF4"
                                              "one\0\0\0\4\xD7"
                                              "b\0\0\0\4\xDD"
                                              "two\0\0\0\x0B\xB9"
                                              "lines\0\0\0\x0B\xB9",
                                              7 + 8 + 8 + 6 + 8 + 10));
    };
    EXPECT_EQ(savedFrame(song, 1), frameOf("SYLT", lyrics()));
}

} // namespace
} // namespace corvane::id3v230frame_test
