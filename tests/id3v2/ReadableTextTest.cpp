#include "corvane/id3v2/ReadableText.h"

#include "corvane/platform/RuntimeFailure.h"

#include "tests/id3v2/LoadedFrames.h"

#include <gtest/gtest.h>

namespace corvane::readabletext_test {
namespace {

using namespace test;

// "language|description|text"
std::string partsOf(FrameId id, Bytes payload) {
    const ReadableFrame frame = readableFrame(id, payload);
    EXPECT_EQ(readableText(id, payload), frame.text);
    return frame.language + '|' + frame.description + '|' + frame.text;
}

class ReadableTextInEveryEncoding : public testing::TestWithParam<Encoding> {
protected:
    static std::string foreign() { return GetParam() == Encoding::CodePage ? "caf\u00E9" : "\u65E5\u672C"; }
};

TEST_P(ReadableTextInEveryEncoding, TextFrames) {
    for (const FrameId id : {FrameId("TIT2"), FrameId("TT2"), FrameId("TZZZ")}) {
        EXPECT_EQ(partsOf(id, textFrame(foreign(), GetParam())), "||" + foreign());
    }
    EXPECT_EQ(partsOf("TPE1", valuesFrame({"a", "b"}, GetParam())), "||a; b");
    EXPECT_EQ(partsOf("TIPL", valuesFrame({"producer", "p", "mix", "m"}, GetParam())), "||producer; p; mix; m");
    EXPECT_EQ(partsOf("IPLS", valuesFrame({"producer", "p"}, GetParam())), "||producer; p");
}

TEST_P(ReadableTextInEveryEncoding, Genres) {
    EXPECT_EQ(partsOf("TCON", textFrame("(17)", GetParam())), "||Rock");
    EXPECT_EQ(partsOf("TCO", textFrame("17", GetParam())), "||Rock");
    EXPECT_EQ(partsOf("TCON", valuesFrame({"17", "39"}, GetParam())), "||Rock; Noise");
}

TEST_P(ReadableTextInEveryEncoding, CommentsAndLyrics) {
    for (const FrameId id : {FrameId("COMM"), FrameId("USLT"), FrameId("COM"), FrameId("ULT")}) {
        EXPECT_EQ(partsOf(id, commentFrame("about", foreign(), GetParam(), "deu")), "deu|about|" + foreign());
        EXPECT_EQ(partsOf(id, commentFrame("", "text", GetParam())), "eng||text");
        EXPECT_EQ(partsOf(id, commentFrame("about", "", GetParam())), "eng|about|");
    }
}

TEST_P(ReadableTextInEveryEncoding, SyncedLyrics) {
    EXPECT_EQ(partsOf("SYLT", syncedLyricsFrame("about", {"one", foreign()}, GetParam())),
              "eng|about|one\n" + foreign());
    EXPECT_EQ(partsOf("SLT", syncedLyricsFrame("", {"\nSyl", "la", "bles", "\nNext"}, GetParam())),
              "eng||Syllables\nNext");
    EXPECT_EQ(partsOf("SYLT", syncedLyricsFrame("about", {}, GetParam())), "eng|about|");
}

TEST_P(ReadableTextInEveryEncoding, UserTextAndUserAddress) {
    EXPECT_EQ(partsOf("TXXX", userTextFrame("about", foreign(), GetParam())), "|about|" + foreign());
    EXPECT_EQ(partsOf("TXX", userTextFrame("", "text", GetParam())), "||text");
    EXPECT_EQ(partsOf("WXXX", userUrlFrame("about", "http://a/", GetParam())), "|about|http://a/");
    EXPECT_EQ(partsOf("WXX", userUrlFrame("", "http://a/", GetParam())), "||http://a/");
}

INSTANTIATE_TEST_SUITE_P(All, ReadableTextInEveryEncoding,
                         testing::Values(Encoding::CodePage, Encoding::Utf16, Encoding::Utf16BigEndian,
                                         Encoding::Utf8));

TEST(ReadableText, AnAddressEndsAtItsFirstZero) {
    EXPECT_EQ(partsOf("WOAR", bytesOf(std::string_view("http://a\0junk", 13))), "||http://a");
    EXPECT_EQ(partsOf("WAR", bytesOf("http://a")), "||http://a");
}

TEST(ReadableText, AUserAddressInUtf16IsReadAllTheSame) {
    const ByteArray url = ByteBuilder().byte(1).repeat(0, 2).bytes(encoded(Encoding::Utf16, "http://a")).done();
    EXPECT_EQ(partsOf("WXXX", url), "||http://a");
}

TEST(ReadableText, ACommentWithoutTheEndOfItsDescriptionIsAllText) {
    EXPECT_EQ(partsOf("COMM", bytesOf(std::string_view("\0engjust text", 13))), "eng||just text");
}

TEST(ReadableText, ALanguageOfZerosIsNone) {
    EXPECT_EQ(partsOf("COMM", bytesOf(std::string_view("\0\0\0\0d\0t", 7))), "|d|t");
}

TEST(ReadableText, TermsOfUseHaveALanguage) {
    EXPECT_EQ(partsOf("USER", bytesOf(std::string_view("\0engfree", 8))), "eng||free");
}

struct PayloadCase {
    const char* name;
    FrameId id;
    ByteArray payload;
    std::string expected;
};
class ReadablePayload : public testing::TestWithParam<PayloadCase> {};
TEST_P(ReadablePayload, IsReadAsItsFormatSays) {
    EXPECT_EQ(partsOf(GetParam().id, GetParam().payload), GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(
    Frames, ReadablePayload,
    testing::Values(PayloadCase{"CounterOf4Bytes", "PCNT", {0, 0, 1, 0}, "||256"},
                    PayloadCase{"CounterOf5Bytes", "CNT", {1, 0, 0, 0, 0}, "||4294967296"},
                    PayloadCase{"LargestCounter", "PCNT", ByteArray(8, 0xFF), "||18446744073709551615"},
                    PayloadCase{"CounterThatFitsNoNumber", "PCNT", ByteArray(9, 0xFF), "||"},
                    PayloadCase{"LongCounterOfZeros", "PCNT", ByteArray(20), "||0"},
                    PayloadCase{"CounterOfNoByte", "PCNT", {}, "||"},
                    PayloadCase{"Rating", "POPM", bytesOf(std::string_view("a@b\0\xC4\0\0\0\1", 9)), "|a@b|196"},
                    PayloadCase{"RatingWithoutAByte", "POP", bytesOf("a@b"), "|a@b|"},
                    PayloadCase{"Identifier", "UFID", bytesOf(std::string_view("http://o\0id-7", 13)),
                                "|http://o|id-7"},
                    PayloadCase{"BinaryIdentifier", "UFI", bytesOf(std::string_view("o\0\1\2", 4)), "|o|"},
                    PayloadCase{"Picture", "APIC", pictureFrame(bytesOf("x")), "||"},
                    PayloadCase{"Private", "PRIV", bytesOf("text"), "||"},
                    PayloadCase{"EncodingWithoutMeaning", "TIT2", {4, 'a'}, "||"},
                    PayloadCase{"EncodingWithoutMeaningOfAComment", "COMM", {9, 'e', 'n', 'g', 0, 'a'}, "||"},
                    PayloadCase{"NoByte", "TIT2", {}, "||"}),
    [](const auto& tested) { return tested.param.name; });

TEST(ReadableText, EveryPrefixOfAPayloadIsRead) {
    for (const FrameId id :
         {FrameId("TIT2"), FrameId("TCON"), FrameId("TXXX"), FrameId("WXXX"), FrameId("WOAR"), FrameId("COMM"),
          FrameId("SYLT"), FrameId("USER"), FrameId("PCNT"), FrameId("POPM"), FrameId("UFID"), FrameId("APIC")}) {
        for (unsigned encoding = 0; encoding < 5; ++encoding) {
            const ByteArray payload = ByteBuilder()
                                          .byte(encoding)
                                          .text("engde")
                                          .repeat(0, 2)
                                          .text("(17)ab")
                                          .repeat(0, 3)
                                          .text("cd")
                                          .repeat(0, 6)
                                          .done();
            for (std::size_t size = 0; size <= payload.size(); ++size) {
                const ReadableFrame frame = readableFrame(id, Bytes(payload).first(size));
                EXPECT_LE(frame.text.size() + frame.description.size() + frame.language.size(), 4 * size);
            }
        }
    }
}

TEST(ReadableText, OfAnEncryptedFrameIsNothing) {
    const auto frames = loadedFrames(Id3v2Builder(3).frame("TIT2", joined({bytesOf("M"), textFrame("t")}), 0x40));
    EXPECT_EQ(readableFrame(*frames, frames->all().front()).text, "");
}

TEST(ReadableText, IsReadFromTheFileOnlyWhereThereIsSomethingToRead) {
    const auto frames = loadedFrames(Id3v2Builder(3)
                                         .frame("APIC", pictureFrame(ByteArray(10'000, 7)))
                                         .text("TIT2", std::string(100'000, 'x'))); // from a file that is gone
    EXPECT_EQ(readableFrame(*frames, *frames->find("APIC")).text, "");
    EXPECT_THROW(readableFrame(*frames, *frames->find("TIT2")), RuntimeFailure);
}

} // namespace
} // namespace corvane::readabletext_test
