#include "corvane/id3v2/FrameText.h"

#include "corvane/id3v2/ByteHelpers.h"

#include "tests/support/Id3v2Builder.h"

#include <gtest/gtest.h>

#include <limits>

namespace corvane::frametext_test {
namespace {

using namespace test;

std::string contentOf(FrameId id, Bytes payload) { return textOf(removeHeader(id, payload)); }
std::string text(FrameId id, Bytes payload) { return textData(id, false, payload); }

struct ContentCase {
    const char* name;
    FrameId id;
    ByteArray payload;
    std::string expected;
};
class RemoveHeader : public testing::TestWithParam<ContentCase> {};
TEST_P(RemoveHeader, GivesWhatStandsBehindTheLeadingFields) {
    EXPECT_EQ(contentOf(GetParam().id, GetParam().payload), GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(
    Frames, RemoveHeader,
    testing::Values(ContentCase{"Comment", "COMM", commentFrame("about", "text"), "text"},
                    ContentCase{"CommentWithoutDescription", "COMM", commentFrame("", "text"), "text"},
                    ContentCase{"Lyrics", "USLT", commentFrame("about", "text"), "text"},
                    ContentCase{"SyncedLyrics", "SYLT", syncedLyricsFrame("about", {"a"}),
                                std::string("a\0\0\0\0\0", 6)},
                    ContentCase{"Url", "WXXX", userUrlFrame("about", "http://a"), "http://a"},
                    ContentCase{"Picture", "APIC", pictureFrame(bytesOf("PIC"), "image/png", "about"), "PIC"},
                    ContentCase{"PictureType0", "APIC", bytesOf(std::string_view("\0m\0\0d\0PIC", 9)), "PIC"},
                    ContentCase{"AnyOtherFrame", "TIT2", textFrame("text"), std::string("\0text", 5)},
                    ContentCase{"UserText", "TXXX", userTextFrame("d", "t"), std::string("\0d\0t", 4)},
                    ContentCase{"NothingBehindTheDescription", "COMM", commentFrame("about", ""), ""},
                    ContentCase{"CommentWithoutZero", "COMM", bytesOf(std::string_view("\0engtext", 8)),
                                std::string("\0engtext", 8)},
                    ContentCase{"PictureWithoutSecondZero", "APIC", bytesOf(std::string_view("\0m\0\3abc", 7)),
                                std::string("\0m\0\3abc", 7)},
                    ContentCase{"PictureThatEndsWithItsMimeType", "APIC", bytesOf(std::string_view("\0m\0", 3)),
                                std::string("\0m\0", 3)},
                    ContentCase{"Empty", "COMM", {}, ""}),
    [](const auto& tested) { return tested.param.name; });

TEST(FrameText, TheDescriptionEndsAtTheFirstSingleZeroAlsoInUtf16) {
    // 01 "eng" FF FE 'd' 00 00 00 FF FE 't' 00: the first 0 is the high byte of "d".
    EXPECT_EQ(contentOf("COMM", commentFrame("d", "t", Encoding::Utf16)), std::string("\0\0\xFF\xFEt\0", 6));
    EXPECT_EQ(contentOf("COMM", commentFrame("", "t", Encoding::Utf16)), std::string("\0\xFF\xFEt\0", 5));
}

TEST(FrameText, TextFramesInTheCodePage) {
    EXPECT_EQ(text("TIT2", textFrame("abcd")), "abcd");
    EXPECT_EQ(text("TIT2", bytesOf(std::string_view("\0\x80\xE9", 3))), "\u20AC\u00E9");
    EXPECT_EQ(text("TXXX", textFrame("a")), "a");
}

TEST(FrameText, ThatOfAUserTextHoldsItsDescriptionOnPurpose) {
    EXPECT_EQ(text("TXXX", userTextFrame("d", "t")), std::string("d\0t", 3));
}

TEST(FrameText, ATrailingZeroStaysInCodePageText) {
    EXPECT_EQ(text("TIT2", bytesOf(std::string_view("\0ab\0", 4))), std::string("ab\0", 3));
}

TEST(FrameText, TextFramesInUtf16) {
    EXPECT_EQ(text("TIT2", textFrame("A\u65E5\U0001F600", Encoding::Utf16)), "A\u65E5\U0001F600");
    EXPECT_EQ(text("TIT2", ByteArray{1, 0xFE, 0xFF, 0, 0x41}), "A");
}

TEST(FrameText, AnyOtherEncodingOfATextFrameIsTheCodePageWithoutZeros) {
    EXPECT_EQ(text("TPE1", textFrame("\u00E9", Encoding::Utf8)), "\3\u00C3\u00A9");
    EXPECT_EQ(text("TPE1", bytesOf(std::string_view("\3a\0b\1\2\0", 7))), "\3ab\1\2");
    EXPECT_EQ(text("TPE1", textFrame("AB", Encoding::Utf16BigEndian)), "\2AB");
}

TEST(FrameText, CommentsAndLyricsInTheCodePage) {
    for (const FrameId id : {FrameId("COMM"), FrameId("USLT")}) {
        EXPECT_EQ(text(id, commentFrame("d", "caf\u00E9")), "caf\u00E9");
    }
    EXPECT_EQ(text("SYLT", syncedLyricsFrame("d", {"a", "b"})), std::string("a\0\0\0\0\0b\0\0\0\3\xC3\xA8", 13));
}

TEST(FrameText, CommentsInUtf16AreReadFromBehindTheFirstZero) {
    const ByteArray comment = commentFrame("", "t", Encoding::Utf16);
    EXPECT_EQ(text("COMM", comment), Utf16BytesToString(bytesOf(std::string_view("\0\xFF\xFEt\0", 5))));
    // A description of characters whose bytes are never 0, ended by one 0 byte: right text behind it.
    const ByteArray aligned =
        ByteBuilder().byte(1).text("eng").text("\x41\x42").byte(0).text("\xFF\xFEt").byte(0).done();
    EXPECT_EQ(text("COMM", aligned), "t");
}

TEST(FrameText, AnyOtherEncodingOfACommentIsTheWholePayloadWithoutControlBytes) {
    EXPECT_EQ(text("COMM", commentFrame("d", "t\1\2", Encoding::Utf8)), "\3engdt");
    EXPECT_EQ(text("USLT", commentFrame("d", "t", Encoding::Utf16BigEndian)), "engdt");
    EXPECT_EQ(text("SYLT", ByteArray{9, 'e', 'n', 'g', 2, 1, 0, 'x'}), "\tengx");
}

TEST(FrameText, APictureIsTheWholePayloadWithoutControlBytes) {
    EXPECT_EQ(text("APIC", pictureFrame(bytesOf(std::string_view("P\0\1\2\3\x80", 6)), "image/png", "d")),
              "image/png\3dP\3\u20AC");
}

struct CounterCase {
    const char* name;
    ByteArray payload;
    std::string expected;
};
class PlayCounter : public testing::TestWithParam<CounterCase> {};
TEST_P(PlayCounter, IsItsFirstFourBytesAsANumber) { EXPECT_EQ(text("PCNT", GetParam().payload), GetParam().expected); }
INSTANTIATE_TEST_SUITE_P(Payloads, PlayCounter,
                         testing::Values(CounterCase{"Four", {0, 0, 1, 2}, "258"},
                                         CounterCase{"LongerCountersAreCut", {0, 0, 1, 2, 3}, "258"},
                                         CounterCase{"ShorterIsZero", {1, 2, 3}, "0"},
                                         CounterCase{"Largest", {0x7F, 0xFF, 0xFF, 0xFF}, "2147483647"},
                                         CounterCase{"OverflowLeavesTheLastByte", {0xFF, 0xFF, 0xFF, 0xFE}, "254"}),
                         [](const auto& tested) { return tested.param.name; });

TEST(FrameText, EveryOtherFrameHasNone) {
    for (const FrameId id : {FrameId("WXXX"), FrameId("WOAR"), FrameId("UFID"), FrameId("PRIV"), FrameId("GEOB"),
                             FrameId("POPM"), FrameId("    "), FrameId("tit2")}) {
        EXPECT_EQ(text(id, textFrame("abc")), "") << id.text();
    }
}

TEST(FrameText, AnEncryptedFrameHasNone) {
    EXPECT_EQ(textData("TIT2", true, textFrame("abc")), "");
    EXPECT_EQ(textData("PCNT", true, ByteArray(4)), "");
}

TEST(FrameText, AnEmptyPayloadHasNone) {
    for (const FrameId id : {FrameId("TIT2"), FrameId("COMM"), FrameId("PCNT"), FrameId("APIC")}) {
        EXPECT_EQ(text(id, {}), "") << id.text();
    }
    EXPECT_EQ(textDataOfVersion22("TT2", {}), "");
}

TEST(FrameText, EveryPrefixOfAPayloadIsRead) {
    for (const FrameId id : {FrameId("COMM"), FrameId("SYLT"), FrameId("WXXX"), FrameId("APIC"), FrameId("TIT2")}) {
        for (unsigned encoding = 0; encoding < 5; ++encoding) {
            const ByteArray payload =
                ByteBuilder().byte(encoding).text("engde").byte(0).byte(3).text("ab").repeat(0, 3).done();
            for (std::size_t size = 0; size <= payload.size(); ++size) {
                const Bytes prefix = Bytes(payload).first(size);
                EXPECT_LE(removeHeader(id, prefix).size(), size);
                EXPECT_LE(text(id, prefix).size(), 3 * size);
            }
        }
    }
}

TEST(FrameTextOfVersion22, ReadsTextFramesInTwoEncodings) {
    EXPECT_EQ(textDataOfVersion22("TT2", textFrame("abcd")), "abcd");
    EXPECT_EQ(textDataOfVersion22("TT2", textFrame("ab", Encoding::Utf16)), "ab");
}

TEST(FrameTextOfVersion22, AnyOtherEncodingAndEveryOtherFrameHasNone) {
    EXPECT_EQ(textDataOfVersion22("TT2", textFrame("ab", Encoding::Utf8)), "");
    EXPECT_EQ(textDataOfVersion22("TT2", textFrame("ab", Encoding::Utf16BigEndian)), "");
    EXPECT_EQ(textDataOfVersion22("COM", commentFrame("", "ab")), "");
    EXPECT_EQ(textDataOfVersion22("CNT", ByteArray{0, 0, 0, 1}), "");
    EXPECT_EQ(textDataOfVersion22("PIC", pictureFrameOfVersion22(bytesOf("x"))), "");
}

} // namespace
} // namespace corvane::frametext_test
