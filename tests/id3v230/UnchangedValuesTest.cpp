// Values that are written back as they were read.
#include "corvane/id3v230/ID3V230.h"

#include "tests/id3v230/TagOnFile.h"
#include "tests/support/ByteBuilder.h"
#include "tests/support/ImageBuilder.h"

#include <gtest/gtest.h>

#include <functional>

namespace corvane::unchangedvalues_test {
namespace {

using namespace test;
using namespace std::string_view_literals;
using Updatable = Internals<ID3V230>;

struct Property {
    const char* name;
    std::function<void(ID3V230&)> writeBack;
};

template <std::string (ID3V230::*Read)() const, void (ID3V230::*Write)(std::string_view)>
Property textProperty(const char* name) {
    return {name, [](ID3V230& tag) { (tag.*Write)((tag.*Read)()); }};
}

#define TEXT_PROPERTY(NAME) textProperty<&ID3V230::NAME, &ID3V230::NAME>(#NAME)

// Every property that replaces a value. TotalTracks appends to one, and is no member of the table for that reason.
std::vector<Property> properties() {
    return {TEXT_PROPERTY(Title),
            TEXT_PROPERTY(Song),
            TEXT_PROPERTY(Artist),
            TEXT_PROPERTY(ArtistURL),
            TEXT_PROPERTY(UserURL),
            TEXT_PROPERTY(Album),
            TEXT_PROPERTY(Track),
            TEXT_PROPERTY(Composer),
            TEXT_PROPERTY(OriginalArtist),
            TEXT_PROPERTY(Copyright),
            TEXT_PROPERTY(EncodedBy),
            TEXT_PROPERTY(Comments),
            TEXT_PROPERTY(UniqueKey),
            TEXT_PROPERTY(Genre),
            TEXT_PROPERTY(UserText),
            TEXT_PROPERTY(LyricsUnsynced),
            TEXT_PROPERTY(LyricsSynced),
            TEXT_PROPERTY(Tempo),
            TEXT_PROPERTY(Mood),
            TEXT_PROPERTY(Situation),
            TEXT_PROPERTY(Preference),
            {"Year",
             [](ID3V230& tag) {
                 // A year that is not there reads 0, and 0 is a year that can be written.
                 if (!std::holds_alternative<NoValue>(tag.FrameValue(ID3_FrameID::ID3FID_YEAR))) tag.Year(tag.Year());
             }},
            {"Picture", [](ID3V230& tag) { tag.Picture(tag.Picture()); }}};
}

struct OddFrame {
    const char* name;
    const char* id;
    ByteArray data;
    unsigned formatFlags = 0;
    unsigned statusFlags = 0;
};

ByteArray rawOf(std::string_view bytes) { return bytesOf(bytes); }

std::vector<OddFrame> textFrames(const char* id) {
    return {{"empty", id, {}},
            {"encoding alone", id, rawOf("\0"sv)},
            {"empty text", id, textFrame("", Encoding::Utf16)},
            {"zeros at the end", id, rawOf("\0a\0\0"sv)},
            {"zeros alone", id, rawOf("\0\0\0"sv)},
            {"several values", id, valuesFrame({"a", "b"}, Encoding::CodePage)},
            {"blanks around", id, textFrame("  (17)Rock ")},
            {"blanks alone", id, textFrame("   ")},
            {"UTF-16", id, textFrame("\u65E5", Encoding::Utf16)},
            {"UTF-16, big-endian", id, textFrame("\u65E5", Encoding::Utf16BigEndian)},
            {"UTF-8", id, textFrame("\u65E5", Encoding::Utf8)},
            {"half a pair", id, rawOf("\1\xFF\xFE\x00\xD8"sv)},
            {"half a character", id, rawOf("\1\xFF\xFE\x41\x00\x42"sv)},
            {"Windows-1252", id, rawOf("\0\x80 5"sv)},
            {"unknown encoding", id, rawOf("\x09text"sv)},
            {"no encoding", id, rawOf("1999-05-01"sv)},
            {"encrypted", id, countedBytes(20), 0x40},
            {"damaged compression", id, countedBytes(20), 0x80},
            {"grouped", id, rawOf("\7\0grouped"sv), 0x20},
            {"read only", id, textFrame("x"), 0, 0x20}};
}

std::vector<OddFrame> describedFrames(const char* id) {
    return {{"empty", id, {}},
            {"without its text", id, rawOf("\0eng"sv)},
            {"empty text", id, rawOf("\0eng\0"sv)},
            {"no end of the description", id, rawOf("\0engabc"sv)},
            {"UTF-16, no end of the description", id, rawOf("\1eng\xFF\xFE\x41"sv)},
            {"UTF-16", id, commentFrame("", "\u65E5", Encoding::Utf16)},
            {"language of zeros", id, commentFrame("", "x", Encoding::CodePage, "\0\0\0"sv)},
            {"a second text", id, rawOf("\0eng\0a\0b"sv)},
            {"encrypted", id, countedBytes(20), 0x40}};
}

std::vector<OddFrame> musicMatchFrames() {
    std::vector<OddFrame> frames;
    for (const char* name : {"MusicMatch_Tempo", "MusicMatch_Mood", "MusicMatch_Situation", "MusicMatch_Preference"}) {
        frames.push_back({name, "COMM", commentFrame(name, "")});
        frames.push_back({name, "COMM", commentFrame(name, "x", Encoding::Utf16BigEndian)});
    }
    return frames;
}

std::vector<OddFrame> yearFrames() {
    return {{"a date", "TYER", textFrame("1999-05-01")},
            {"a date in UTF-16", "TYER", textFrame("1999-05-01", Encoding::Utf16)},
            {"blanks in front", "TYER", textFrame("  1999")},
            {"a sign", "TYER", textFrame("+1999")},
            {"leading zeros", "TYER", textFrame("0079")},
            {"letters", "TYER", textFrame("MCMXCIX")},
            {"plain", "TYER", textFrame("1999")}};
}

std::vector<OddFrame> otherFrames() {
    const ByteArray webp = bytesOf("RIFF....WEBP");
    return {{"WebP", "APIC", pictureFrame(webp, "image/webp")},
            {"linked", "APIC", pictureFrame(bytesOf("http://a/b.jpg"), "-->")},
            {"broken", "APIC", pictureFrame(bytesOf("\xFF\xD8\xFF\xE0"), "image/jpeg")},
            {"cut in its description", "APIC", rawOf("\0image/png\0\3abc"sv)},
            {"empty", "APIC", {}},
            {"odd MIME type", "APIC", pictureFrame(pngImage(3, 2), "PNG")},
            {"encrypted", "APIC", countedBytes(40), 0x40},
            {"grouped", "APIC", rawOf("\7\0image/png\0\3\0no image"sv), 0x20},
            {"no owner's end", "UFID", rawOf("abc"sv)},
            {"binary", "UFID", rawOf("owner\0\x80\xFF\0\x22"sv)},
            {"spread", "UFID", rawOf("\0a b "sv)},
            {"empty", "UFID", {}},
            {"zeros in the address", "WOAR", rawOf("http://a\0b"sv)},
            {"UTF-16 address", "WOAR", rawOf("\xFF\xFE\x41\x00"sv)},
            {"escaped address", "WOAR", bytesOf("http://a/%E6")},
            {"empty address", "WOAR", {}},
            {"zero alone", "WOAR", rawOf("\0"sv)},
            {"UTF-16 address", "WXXX", rawOf("\1\xFF\xFE\0\0\xFF\xFE\x41\x00"sv)},
            {"no address", "WXXX", rawOf("\0\0"sv)},
            {"no end", "WXXX", rawOf("\0abc"sv)},
            {"no value", "TXXX", rawOf("\0\0"sv)},
            {"no end", "TXXX", rawOf("\0abc"sv)},
            {"a time cut off", "SYLT", rawOf("\0eng\2\1\0one\0\0\0\1\0two\0\0\0"sv)},
            {"the only time cut off", "SYLT", rawOf("\0eng\2\1\0one\0\0\0"sv)},
            {"an unknown time format", "SYLT", rawOf("\0eng\7\1\0one\0\0\0\1\0"sv)},
            {"MPEG frames", "SYLT", rawOf("\0eng\1\1\0one\0\0\0\1\0"sv)},
            {"no entries", "SYLT", rawOf("\0eng\2\1\0"sv)},
            {"no description", "SYLT", rawOf("\0eng\2\1"sv)},
            {"empty", "SYLT", {}},
            {"times to the millisecond", "SYLT", rawOf("\0eng\2\1\0\none\n\0\0\0\4\xD7"sv)}};
}

std::vector<OddFrame> oddFrames() {
    std::vector<OddFrame> all = otherFrames();
    const auto add = [&all](std::vector<OddFrame> frames) { all.insert(all.end(), frames.begin(), frames.end()); };
    for (const char* id : {"TIT2", "TPE1", "TALB", "TRCK", "TCOM", "TOPE", "TCOP", "TENC", "TCON", "TYER"})
        add(textFrames(id));
    for (const char* id : {"COMM", "USLT"}) add(describedFrames(id));
    add(musicMatchFrames());
    add(yearFrames());
    return all;
}

// Saved with a change of another frame too, so that a tag is really written.
TEST(UnchangedValues, OfOddFramesLeaveTheFrameAsItIs) {
    for (const OddFrame& odd : oddFrames()) {
        TagOnFile song(
            Id3v2Builder(3).frame(odd.id, odd.data, odd.formatFlags, odd.statusFlags).text("TSSE", "x").padding(400));
        const ByteArray before = contentOf(song.path());
        for (const Property& property : properties()) property.writeBack(song.tag);
        ASSERT_TRUE(Updatable::SaveTag(song.tag)) << odd.id << ", " << odd.name;
        EXPECT_EQ(contentOf(song.path()), before) << odd.id << ", " << odd.name;
        EXPECT_FALSE(song.record(1).bChanged()) << odd.id << ", " << odd.name;
        song.record(2).vValue("y");
        ASSERT_TRUE(Updatable::SaveTag(song.tag)) << odd.id << ", " << odd.name;
        ByteArray expected = before;
        const auto place = std::find(expected.rbegin(), expected.rend(), std::uint8_t{'x'});
        ASSERT_NE(place, expected.rend());
        *place = 'y';
        EXPECT_EQ(contentOf(song.path()), expected) << odd.id << ", " << odd.name;
    }
}

TEST(UnchangedValues, OfRecordsLeaveTheFrameAsItIs) {
    for (const OddFrame& odd : oddFrames()) {
        TagOnFile song(Id3v2Builder(3).frame(odd.id, odd.data, odd.formatFlags, odd.statusFlags).padding(400));
        const ByteArray before = contentOf(song.path());
        ID3V230Frame& record = song.record(1);
        record.eType(record.eType());
        record.vValue(record.vValue());
        record.sDescription(record.sDescription());
        record.vLanguage(record.vLanguage());
        record.Picture(record.Picture());
        ASSERT_TRUE(Updatable::SaveTag(song.tag)) << odd.id << ", " << odd.name;
        EXPECT_EQ(contentOf(song.path()), before) << odd.id << ", " << odd.name;
    }
}

TEST(UnchangedValues, OfAYearAreTheNumberThatItsTextBeginsWith) {
    TagOnFile song(Id3v2Builder(3).text("TYER", "1999-05-01"));
    song.tag.Year(1999);
    EXPECT_EQ(song.tag.FrameValue(ID3_FrameID::ID3FID_YEAR), FrameVariant("1999-05-01"));
    song.tag.Year(2000);
    EXPECT_EQ(song.tag.FrameValue(ID3_FrameID::ID3FID_YEAR), FrameVariant(std::int16_t{2000}));
    song.tag.Year(1999);
    EXPECT_EQ(song.tag.FrameValue(ID3_FrameID::ID3FID_YEAR), FrameVariant(std::int16_t{1999})) << "a change by now";
}

TEST(UnchangedValues, DoNotHideThatAYearIsTooLarge) {
    TagOnFile song(Id3v2Builder(3).text("TYER", "99999"));
    EXPECT_THROW(song.tag.Year(), RuntimeFailure);
    song.tag.Year(1999);
    EXPECT_EQ(song.tag.Year(), 1999);
}

TEST(UnchangedValues, OfADeletedFrameBringItBack) {
    TagOnFile song(Id3v2Builder(3).text("TYER", "1999-05-01").text("TCON", " Rock ").text("TIT2", "x"));
    for (const std::int32_t place : {1, 2, 3}) song.record(place).Delete();
    song.tag.Year(1999);
    song.tag.Genre("Rock");
    song.tag.Title("x");
    for (const std::int32_t place : {1, 2, 3}) EXPECT_FALSE(song.record(place).Deleted()) << place;
}

TEST(UnchangedValues, OfAnUnknownPictureDoNotKeepAnotherFromBeingSetAndTakenOut) {
    TagOnFile song(
        Id3v2Builder(3).frame("APIC", pictureFrame(bytesOf("RIFF....WEBP"), "image/webp")).text("TIT2", "x"));
    song.tag.Picture(Picture::fromBytes(pngImage(3, 2)));
    song.tag.Picture(nullptr);
    song.tag.Picture(nullptr);
    ASSERT_TRUE(Updatable::SaveTag(song.tag));
    song.read();
    EXPECT_EQ(song.tag.FrameCount(), 1);
    EXPECT_EQ(song.tag.Title(), "x");
}

} // namespace
} // namespace corvane::unchangedvalues_test
