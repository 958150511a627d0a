#include "corvane/id3v1/Id3v1Record.h"

#include "corvane/id3v1/ID3V1Tag.h"
#include "corvane/platform/RuntimeFailure.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/Id3v1Builder.h"

#include <gtest/gtest.h>

namespace corvane::id3v1record_test {
namespace {

using test::bytesOf;
using test::Id3v1Builder;

using enum EID3TagConstants;

Id3v1Fields decoded(const Id3v1Builder& record) {
    const auto fields = decodeRecord(record.done());
    EXPECT_TRUE(fields);
    return fields.value_or(Id3v1Fields{});
}

ByteArray bytesOf(const EncodedRecord& record) { return {record.bytes.begin(), record.bytes.end()}; }

// A tag with distinct values everywhere.
void fill(ID3V1Tag& tag, EID3TagConstants tagType) {
    tag.Title("Title");
    tag.Artist("Artist");
    tag.Album("Album");
    tag.Year("1999");
    tag.Comment("Comment");
    tag.Track(7);
    tag.Genre(17);
    tag.TagType(tagType);
}

Id3v1Builder fullRecord() {
    return Id3v1Builder().title("Title").artist("Artist").album("Album").year("1999").comment("Comment").genre(17);
}

// Decoding

TEST(DecodeRecord, ReadsEveryField) {
    const Id3v1Fields fields = decoded(fullRecord().track(7));
    EXPECT_EQ(fields.title, "Title");
    EXPECT_EQ(fields.artist, "Artist");
    EXPECT_EQ(fields.album, "Album");
    EXPECT_EQ(fields.year, "1999");
    EXPECT_EQ(fields.comment, "Comment");
    EXPECT_EQ(fields.track, 7);
    EXPECT_EQ(fields.genre, 17);
    EXPECT_EQ(fields.tagType, ID3V11);
}

TEST(DecodeRecord, FieldsReachFromTheirFirstToTheirLastByte) {
    const Id3v1Fields fields = decoded(Id3v1Builder()
                                           .title("<" + std::string(28, 't') + ">")
                                           .artist("<" + std::string(28, 'a') + ">")
                                           .album("<" + std::string(28, 'l') + ">")
                                           .year("<yy>")
                                           .comment("<" + std::string(28, 'c') + ">"));
    EXPECT_EQ(fields.title, "<" + std::string(28, 't') + ">");
    EXPECT_EQ(fields.artist, "<" + std::string(28, 'a') + ">");
    EXPECT_EQ(fields.album, "<" + std::string(28, 'l') + ">");
    EXPECT_EQ(fields.year, "<yy>");
    EXPECT_EQ(fields.comment, "<" + std::string(28, 'c') + ">");
    EXPECT_EQ(fields.tagType, ID3v1);
    EXPECT_EQ(fields.track, 0);
}

TEST(DecodeRecord, ZeroAndSevenBeforeTheGenreIsTrackSeven) {
    const Id3v1Fields fields = decoded(Id3v1Builder().comment(std::string(30, 'c')).track(7));
    EXPECT_EQ(fields.tagType, ID3V11);
    EXPECT_EQ(fields.track, 7);
    EXPECT_EQ(fields.comment, std::string(28, 'c'));
}

TEST(DecodeRecord, ZeroAndZeroBeforeTheGenreIsPlainId3v1) {
    const Id3v1Fields fields = decoded(Id3v1Builder().comment(std::string(28, 'c')).track(0));
    EXPECT_EQ(fields.tagType, ID3v1);
    EXPECT_EQ(fields.track, 0);
    EXPECT_EQ(fields.comment, std::string(28, 'c'));
}

TEST(DecodeRecord, ACommentThatReachesByte125LeavesNoTrack) {
    const Id3v1Fields fields = decoded(Id3v1Builder().put(125, "x\x07"));
    EXPECT_EQ(fields.tagType, ID3v1);
    EXPECT_EQ(fields.track, 0);
    EXPECT_EQ(fields.comment, ""); // its first byte is 0
}

TEST(DecodeRecord, EveryTrackByteButZeroIsATrack) {
    for (unsigned track = 1; track <= 255; ++track) {
        const Id3v1Fields fields = decoded(Id3v1Builder().track(track));
        EXPECT_EQ(fields.track, track);
        EXPECT_EQ(fields.tagType, ID3V11);
    }
}

TEST(DecodeRecord, EveryGenreByteIsTheGenre) {
    for (unsigned genre = 0; genre <= 255; ++genre) EXPECT_EQ(decoded(Id3v1Builder().genre(genre)).genre, genre);
}

TEST(DecodeRecord, AFieldEndsBeforeItsFirstZeroByte) {
    const std::string text("Abc\0def", 7);
    EXPECT_EQ(decoded(Id3v1Builder().title(text)).title, "Abc");
}

TEST(DecodeRecord, AFieldOfBlanksIsEmpty) { EXPECT_EQ(decoded(Id3v1Builder().album(std::string(30, ' '))).album, ""); }

TEST(DecodeRecord, BlanksAtBothEndsAreCutAndOthersKept) {
    const Id3v1Fields fields =
        decoded(Id3v1Builder().title("  a  b  ").artist(std::string("  a \0 b", 7)).album("\ta\n").year("\xA0 1 "));
    EXPECT_EQ(fields.title, "a  b");
    EXPECT_EQ(fields.artist, "a");
    EXPECT_EQ(fields.album, "\ta\n");
    EXPECT_EQ(fields.year, "\u00A0 1");
}

TEST(DecodeRecord, TextsAreWindows1252) {
    EXPECT_EQ(decoded(Id3v1Builder().title("\x80 na\xEFve \x81")).title, "€ naïve \u0081");
}

TEST(DecodeRecord, OnlyTheMarkerMakesARecord) {
    for (const char* marker : {"tag", "TAH", "\0AG", "3AG", "ID3"}) {
        EXPECT_FALSE(decodeRecord(Id3v1Builder().put(0, std::string_view(marker, 3)).done())) << marker;
    }
}

TEST(DecodeRecord, EveryShorterPrefixAndALongerRecordAreRefused) {
    ByteArray record = fullRecord().done();
    const Bytes whole(record);
    for (std::size_t size = 0; size < record.size(); ++size) EXPECT_FALSE(decodeRecord(whole.first(size))) << size;
    record.push_back(0);
    EXPECT_FALSE(decodeRecord(record));
}

TEST(AssignFields, GivesTheTagEveryValue) {
    ID3V1Tag tag;
    assignFields(tag, decoded(fullRecord().track(7)));
    EXPECT_EQ(tag.Title(), "Title");
    EXPECT_EQ(tag.Artist(), "Artist");
    EXPECT_EQ(tag.Album(), "Album");
    EXPECT_EQ(tag.Year(), "1999");
    EXPECT_EQ(tag.Comment(), "Comment");
    EXPECT_EQ(tag.Track(), 7);
    EXPECT_EQ(tag.Genre(), 17);
    EXPECT_EQ(tag.TagType(), ID3V11);
}

// Encoding

TEST(EncodeRecord, WritesEveryFieldOfId3v11) {
    ID3V1Tag tag;
    fill(tag, ID3V11);
    const EncodedRecord record = encodeRecord(tag);
    EXPECT_EQ(bytesOf(record), fullRecord().track(7).done());
    EXPECT_EQ(record.replacedCount, 0U);
    EXPECT_FALSE(record.textsCut);
}

TEST(EncodeRecord, PlainId3v1HasNoTrack) {
    ID3V1Tag tag;
    fill(tag, ID3v1);
    EXPECT_EQ(bytesOf(encodeRecord(tag)), fullRecord().done());
}

TEST(EncodeRecord, EveryTagTypeButPlainId3v1IsWrittenAsId3v11) {
    ID3V1Tag tag;
    fill(tag, static_cast<EID3TagConstants>(3));
    EXPECT_EQ(bytesOf(encodeRecord(tag)), fullRecord().track(7).done());
}

TEST(EncodeRecord, TextsThatFillTheirFieldsAreNotCut) {
    ID3V1Tag tag;
    tag.Title(std::string(30, 't'));
    tag.Artist(std::string(30, 'a'));
    tag.Album(std::string(30, 'l'));
    tag.Year("1999");
    tag.Comment(std::string(30, 'c'));
    tag.TagType(ID3v1);
    const EncodedRecord record = encodeRecord(tag);
    EXPECT_FALSE(record.textsCut);
    EXPECT_EQ(bytesOf(record), Id3v1Builder()
                                   .title(std::string(30, 't'))
                                   .artist(std::string(30, 'a'))
                                   .album(std::string(30, 'l'))
                                   .year("1999")
                                   .comment(std::string(30, 'c'))
                                   .done());
}

struct CutCase {
    const char* name;
    void (ID3V1Tag::*write)(std::string);
    EID3TagConstants tagType;
    std::size_t offset, width; // of the field in the record
};
class EncodeRecordCut : public testing::TestWithParam<CutCase> {};
TEST_P(EncodeRecordCut, OneCharacterTooManyIsCutOffAndTold) {
    const auto& [name, write, tagType, offset, width] = GetParam();
    ID3V1Tag tag;
    tag.TagType(tagType);
    (tag.*write)(std::string(width, 'x') + "y");
    const EncodedRecord record = encodeRecord(tag);
    EXPECT_TRUE(record.textsCut);
    EXPECT_EQ(bytesOf(record), Id3v1Builder().put(offset, std::string(width, 'x')).done());
}
INSTANTIATE_TEST_SUITE_P(Fields, EncodeRecordCut,
                         testing::Values(CutCase{"Title", &ID3V1Tag::Title, ID3v1, 3, 30},
                                         CutCase{"Artist", &ID3V1Tag::Artist, ID3v1, 33, 30},
                                         CutCase{"Album", &ID3V1Tag::Album, ID3v1, 63, 30},
                                         CutCase{"Year", &ID3V1Tag::Year, ID3v1, 93, 4},
                                         CutCase{"Comment", &ID3V1Tag::Comment, ID3v1, 97, 30},
                                         CutCase{"CommentBesideATrack", &ID3V1Tag::Comment, ID3V11, 97, 28}),
                         [](const auto& tested) { return tested.param.name; });

TEST(EncodeRecord, TextsAreCutByCharactersAndNotByBytes) {
    ID3V1Tag tag;
    tag.TagType(ID3v1);
    tag.Year("ääää");
    tag.Title("€€€");
    const EncodedRecord record = encodeRecord(tag);
    EXPECT_FALSE(record.textsCut);
    EXPECT_EQ(bytesOf(record), Id3v1Builder().year("\xE4\xE4\xE4\xE4").title("\x80\x80\x80").done());
}

TEST(EncodeRecord, ReplacedCharactersAreCountedUpToTheCut) {
    ID3V1Tag tag;
    tag.TagType(ID3v1);
    tag.Year("19ПбП");
    tag.Title("\xFF");
    const EncodedRecord record = encodeRecord(tag);
    EXPECT_EQ(record.replacedCount, 3U);
    EXPECT_TRUE(record.textsCut);
    EXPECT_EQ(bytesOf(record), Id3v1Builder().year("19??").title("?").done());
}

TEST(EncodeRecord, ATrackOutsideAByteIsAnOverflow) {
    for (const int track : {-32768, -1, 256, 263, 32767}) {
        ID3V1Tag tag;
        tag.TagType(ID3V11);
        tag.Track(static_cast<std::int16_t>(track));
        try {
            encodeRecord(tag);
            ADD_FAILURE() << track;
        } catch (const RuntimeFailure& failure) {
            EXPECT_EQ(failure.number(), static_cast<std::int32_t>(FailureNumber::Overflow)) << track;
        }
    }
}

TEST(EncodeRecord, PlainId3v1DoesNotLookAtTheTrack) {
    ID3V1Tag tag;
    tag.TagType(ID3v1);
    tag.Track(256);
    EXPECT_EQ(bytesOf(encodeRecord(tag)), Id3v1Builder().done());
}

TEST(EncodeRecord, WhatIsWrittenReadsBack) {
    for (unsigned byte = 0x21; byte <= 0xFF; ++byte) {
        const std::string text(4, static_cast<char>(byte));
        const ByteArray record = Id3v1Builder().title(text).year(text).comment(text).track(byte).genre(byte).done();
        ID3V1Tag tag;
        assignFields(tag, decodeRecord(record).value());
        const EncodedRecord back = encodeRecord(tag);
        EXPECT_EQ(bytesOf(back), record) << byte;
        EXPECT_EQ(back.replacedCount, 0U) << byte;
    }
}

} // namespace
} // namespace corvane::id3v1record_test
