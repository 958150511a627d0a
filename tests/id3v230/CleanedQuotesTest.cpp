// Double quotes of a file, which become apostrophes when the tag is saved, and what of a frame stays then.
#include "corvane/id3v230/FrameRecordContent.h"
#include "corvane/id3v230/ID3V230.h"
#include "corvane/id3v230/RecordsToWrite.h"

#include "tests/id3v230/TagOnFile.h"
#include "tests/support/ByteBuilder.h"
#include "tests/support/ImageBuilder.h"

#include <gtest/gtest.h>

namespace corvane::cleanedquotes_test {
namespace {

using namespace test;
using namespace std::string_view_literals;
using Updatable = Internals<ID3V230>;

struct QuotedFrame {
    const char* name;
    const char* id;
    ByteArray before;
    ByteArray after;
    unsigned formatFlags = 0;
    unsigned statusFlags = 0;
};

ByteArray deflatedFrame(std::string_view text) {
    const ByteArray plain = textFrame(text);
    ByteArray data{0, 0, 0, static_cast<std::uint8_t>(plain.size())};
    const ByteArray rest = deflated(plain);
    data.insert(data.end(), rest.begin(), rest.end());
    return data;
}

QuotedFrame kept(const char* name, const char* id, const ByteArray& data, unsigned format = 0, unsigned status = 0) {
    return {name, id, data, data, format, status};
}

QuotedFrame cleaned(const char* name, const char* id, std::string_view before, std::string_view after) {
    return {name, id, bytesOf(before), bytesOf(after)};
}

std::vector<QuotedFrame> frames() {
    return {
        kept("status flags", "TIT2", textFrame("a \"b\""), 0, 0xA0),
        kept("read only", "COMM", commentFrame("", "a \"b\""), 0, 0x20),
        kept("a group", "TIT2", bytesOf("\7\0a \"b\""sv), 0x20),
        kept("compressed", "TIT2", deflatedFrame("a \"b\""), 0x80),
        kept("unknown format flags", "TIT2", textFrame("a \"b\""), 0x01),
        kept("an identifier", "UFID", bytesOf("owner\0a\"b\"\x80"sv)),
        kept("a spread identifier", "UFID", bytesOf("\0\" a "sv)),
        kept("a picture's description", "APIC", pictureFrame(pngImage(3, 2), "image/PNG", "a \"b\"")),
        cleaned("bytes that are no characters of an address", "WOAR", "http://\x80/\"a\"\xE9"sv,
                "http://\x80/'a'\xE9"sv),
        cleaned("after the end of an address", "WOAR", "http://\"a\"\0\"b\""sv, "http://'a'\0\"b\""sv),
        cleaned("an address in UTF-16", "WOAR", "\xFF\xFE\x22\x00\x00\x22"sv, "\xFF\xFE\x27\x00\x00\x22"sv),
        cleaned("Windows-1252", "TIT2", "\0\x93 \"a\""sv, "\0\x93 'a'"sv),
        cleaned("UTF-16", "TIT2", "\1\xFF\xFE\x22\x00\x00\x22\x65\xE5"sv, "\1\xFF\xFE\x27\x00\x00\x22\x65\xE5"sv),
        cleaned("UTF-16, big-endian", "TIT2", "\1\xFE\xFF\x00\x22\x22\x00"sv, "\1\xFE\xFF\x00\x27\x22\x00"sv),
        cleaned("UTF-16 without a mark", "TIT2", "\2\x00\x22\x22\x00"sv, "\2\x00\x27\x22\x00"sv),
        cleaned("half a pair", "TIT2", "\1\xFF\xFE\x00\xD8\x22\x00"sv, "\1\xFF\xFE\x00\xD8\x27\x00"sv),
        cleaned("UTF-8", "TIT2", "\3\"\xE6\x97\xA5\""sv, "\3'\xE6\x97\xA5'"sv),
        cleaned("broken UTF-8", "TIT2", "\3\"\xE6\x97"sv, "\3'\xE6\x97"sv),
        cleaned("zeros at the end", "TIT2", "\0\"a\"\0\0"sv, "\0'a'\0\0"sv),
        cleaned("several values", "TPE1", "\0\"a\"\0\"b\""sv, "\0'a'\0'b'"sv),
        cleaned("several values in UTF-16", "TPE1", "\1\xFF\xFE\x22\0\0\0\xFE\xFF\0\x22"sv,
                "\1\xFF\xFE\x27\0\0\0\xFE\xFF\0\x27"sv),
        cleaned("no encoding", "TIT2", "A \"b\""sv, "A 'b'"sv),
        cleaned("a quote for an encoding", "TIT2", "\"b\""sv, "'b'"sv),
        cleaned("description and text", "COMM", "\0e\"g\"d\"\0\"t\""sv, "\0e\"g'd'\0't'"sv),
        cleaned("description and text in UTF-16", "USLT", "\1eng\xFF\xFE\x22\0\0\0\xFF\xFE\x22\0"sv,
                "\1eng\xFF\xFE\x27\0\0\0\xFF\xFE\x27\0"sv),
        cleaned("description and address", "WXXX", "\1\xFF\xFE\x22\0\0\0\"\x80"sv, "\1\xFF\xFE\x27\0\0\0'\x80"sv),
        cleaned("times", "SYLT", "\0eng\2\1\0\"a\"\0\0\0\x22\x22"sv, "\0eng\2\1\0'a'\0\0\0\x22\x22"sv),
        cleaned("a time cut off", "SYLT", "\0eng\2\1\0\"a\"\0\0\0\1\0two\0\0\0"sv,
                "\0eng\2\1\0'a'\0\0\0\1\0two\0\0\0"sv),
    };
}

TEST(CleanedQuotes, AreTheOnlyBytesOfAFrameThatASaveChanges) {
    for (const QuotedFrame& frame : frames()) {
        const auto builder = [&](const ByteArray& data, std::string_view title) {
            return Id3v2Builder(3)
                .frame(frame.id, data, frame.formatFlags, frame.statusFlags)
                .text("TSSE", title)
                .padding(100);
        };
        TagOnFile song(builder(frame.before, "x"));
        song.record(2).vValue("y");
        EXPECT_EQ(losesQuotes(song.record(1)), frame.before != frame.after) << frame.name;
        ASSERT_TRUE(Updatable::SaveTag(song.tag)) << frame.name << Updatable::lastFailure(song.tag)->description;
        EXPECT_EQ(contentOf(song.path()), builder(frame.after, "y").done()) << frame.name;
        ASSERT_TRUE(Updatable::SaveTag(song.tag)) << frame.name;
        EXPECT_EQ(contentOf(song.path()), builder(frame.after, "y").done()) << frame.name << ", once more";
        EXPECT_EQ(valueText(song.record(1).vValue()).find('"'), std::string::npos) << frame.name;
        EXPECT_EQ(song.record(1).sDescription().find('"'), std::string::npos) << frame.name;
    }
}

TEST(CleanedQuotes, AreReadInTheIdentifierOfAFile) {
    TagOnFile song(Id3v2Builder(3).frame("UFID", bytesOf("owner\0a\"b\""sv)).text("TIT2", "x"));
    EXPECT_EQ(song.tag.UniqueKey(), "a'b'");
    const ByteArray before = contentOf(song.path());
    song.tag.UniqueKey("a'b'");
    ASSERT_TRUE(Updatable::SaveTag(song.tag));
    EXPECT_EQ(contentOf(song.path()), before) << "what was read is no change";
    song.tag.UniqueKey("c\"d");
    ASSERT_TRUE(Updatable::SaveTag(song.tag));
    song.read();
    EXPECT_EQ(song.tag.UniqueKey(), "c'd");
}

} // namespace
} // namespace corvane::cleanedquotes_test
