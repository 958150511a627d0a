#include "corvane/id3v230/FrameContent.h"

#include "corvane/id3v230/FrameNames.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/Id3v2Builder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <ostream>
#include <random>

namespace corvane::framecontent_test {
namespace {

using namespace test;
using namespace std::string_literals;

// Number, texts and bytes of a field.
using Field = std::array<std::int32_t, 3>;
using Fields = std::vector<Field>;

Fields fieldsOf(const FrameContent& content) {
    Fields fields;
    for (const ID3V230Field& field : content.fields) {
        fields.push_back({static_cast<std::int32_t>(field.FieldID), field.NumTextItems, field.Size});
        EXPECT_EQ(field.FieldType, ID3_FieldType::ID3FTY_NONE);
    }
    return fields;
}

std::string textOf(const FrameContent& content) {
    const auto* const text = std::get_if<std::string>(&content.value);
    return text == nullptr ? "no text" : *text;
}

FrameContent contentOf(const char* letters, Bytes payload) { return contentOfFrame(frameNumberOf(letters), payload); }

struct Case {
    const char* name;
    const char* frame;
    ByteArray payload;
    FrameVariant value;
    std::string description;
    std::string language;
    Fields fields; // as id3lib counts them
};

std::ostream& operator<<(std::ostream& out, const Case& tested) { return out << tested.name; }

ByteArray utf16(std::string_view text) { return encoded(Encoding::Utf16, text); }
ByteArray operator+(const ByteArray& one, const ByteArray& other) { return joined({one, other}); }
ByteArray operator+(const ByteArray& one, const std::string& other) { return one + bytesOf(other); }

const FrameVariant kNothing;
const ByteArray kPng = bytesOf("image");

const std::vector<Case>& cases() {
    static const std::vector<Case> all{
        {"Text", "TIT2", bytesOf("\0abc"s), "abc", "", "", {{1, 0, 1}, {2, 1, 3}}},
        {"TextCodePage",
         "TIT2",
         bytesOf("\0\x93\x80\x94\xE9"s),
         "\u201C\u20AC\u201D\u00E9",
         "",
         "",
         {{1, 0, 1}, {2, 1, 4}}},
        {"TextOfNothing", "TIT2", bytesOf("\0"s), "", "", "", {{1, 0, 1}, {2, 0, 0}}},
        {"TextWithoutPayload", "TPE1", {}, "", "", "", {{1, 0, 1}, {2, 0, 0}}},
        {"TextWithEnd", "TALB", bytesOf("\0a\0\0"s), "a", "", "", {{1, 0, 1}, {2, 1, 3}}},
        {"TextOfSeveralValues", "TPE1", bytesOf("\0a\0\0b\0"s), "a\0\0b"s, "", "", {{1, 0, 1}, {2, 1, 5}}},
        {"TextUtf16",
         "TIT2",
         bytesOf("\1") + utf16("\u65E5\u672C\u8A9E"),
         "\u65E5\u672C\u8A9E",
         "",
         "",
         {{1, 0, 1}, {2, 1, 6}}},
        {"TextUtf16BigEndian", "TIT2", bytesOf("\1\xFE\xFF\0a\x20\xAC"s), "a\u20AC", "", "", {{1, 0, 1}, {2, 1, 4}}},
        {"TextUtf16WithoutMark", "TIT2", bytesOf("\1a\0b\0"s), "ab", "", "", {{1, 0, 1}, {2, 1, 4}}},
        {"TextUtf16OfOddLength", "TIT2", bytesOf("\1") + utf16("ab") + "c", "ab", "", "", {{1, 0, 1}, {2, 1, 4}}},
        {"TextUtf16OfSeveralValues",
         "TIT2",
         bytesOf("\1") + utf16("a") + "\0\0"s + utf16("bc"),
         "a\0bc"s,
         "",
         "",
         {{1, 0, 1}, {2, 1, 10}}},
        {"TextUtf16OfNothing", "TIT2", bytesOf("\1") + utf16(""), "", "", "", {{1, 0, 1}, {2, 0, 0}}},
        {"TextEncoding2", "TIT2", bytesOf("\2\0a\0b"s), "ab", "", "", {{1, 0, 1}, {2, 1, 4}}},
        {"TextUtf8", "TIT2", bytesOf("\3\u65E5"), "\u65E5", "", "", {{1, 0, 1}, {2, 1, 3}}},
        {"TextWithoutEncoding", "TIT2", bytesOf("Abc"), "Abc", "", "", {{1, 0, 1}, {2, 1, 3}}},
        {"TextOfUnknownEncoding", "TIT2", bytesOf("\4Abc"), "Abc", "", "", {{1, 0, 1}, {2, 1, 3}}},
        {"Year", "TYER", bytesOf("\0001999"s), "1999", "", "", {{1, 0, 1}, {2, 1, 4}}},
        {"UserText", "TXXX", userTextFrame("d", "text"), "text", "d", "", {{1, 0, 1}, {2, 1, 4}, {5, 1, 1}}},
        {"UserTextUtf16",
         "TXXX",
         userTextFrame("dd", "text", Encoding::Utf16),
         "text",
         "dd",
         "",
         {{1, 0, 1}, {2, 1, 8}, {5, 1, 4}}},
        {"UserTextWithoutDescription",
         "TXXX",
         userTextFrame("", "text"),
         "text",
         "",
         "",
         {{1, 0, 1}, {2, 1, 4}, {5, 0, 0}}},
        {"UserTextCutShort", "TXXX", bytesOf("\0abc"s), "abc", "", "", {{1, 0, 1}, {2, 1, 3}, {5, 0, 0}}},
        {"People", "IPLS", bytesOf("\0a\0bb\0ccc\0dd\0"s), "a\0bb\0ccc\0dd"s, "", "", {{1, 0, 1}, {2, 4, 11}}},
        {"PeopleWithoutEnd", "IPLS", bytesOf("\0a\0bb"s), "a\0bb"s, "", "", {{1, 0, 1}, {2, 2, 4}}},
        {"PeopleUtf16",
         "IPLS",
         bytesOf("\1") + terminated(Encoding::Utf16, "a") + terminated(Encoding::Utf16, "bb"),
         "a\0bb"s,
         "",
         "",
         {{1, 0, 1}, {2, 2, 8}}},
        {"PeopleOfNobody", "IPLS", bytesOf("\0"s), "", "", "", {{1, 0, 1}, {2, 0, 0}}},
        {"Comment",
         "COMM",
         commentFrame("d", "text"),
         "text",
         "d",
         "eng",
         {{1, 0, 1}, {2, 1, 4}, {5, 1, 1}, {10, 1, 3}}},
        {"CommentUtf16",
         "COMM",
         commentFrame("\u65E5", "\u041F\u20AC", Encoding::Utf16, "deu"),
         "\u041F\u20AC",
         "\u65E5",
         "deu",
         {{1, 0, 1}, {2, 1, 4}, {5, 1, 2}, {10, 1, 3}}},
        {"CommentWithZero",
         "COMM",
         bytesOf("\0engd\0text\0more"s),
         "text\0more"s,
         "d",
         "eng",
         {{1, 0, 1}, {2, 1, 9}, {5, 1, 1}, {10, 1, 3}}},
        {"CommentWithoutLanguage",
         "COMM",
         bytesOf("\0\0\0\0\0text"s),
         "text",
         "",
         "",
         {{1, 0, 1}, {2, 1, 4}, {5, 0, 0}, {10, 1, 3}}},
        {"CommentCutInItsLanguage",
         "COMM",
         bytesOf("\0en"s),
         "en",
         "",
         "",
         {{1, 0, 1}, {2, 1, 2}, {5, 0, 0}, {10, 0, 3}}},
        {"Lyrics",
         "USLT",
         commentFrame("d", "line\nline"),
         "line\nline",
         "d",
         "eng",
         {{1, 0, 1}, {2, 1, 9}, {5, 1, 1}, {10, 1, 3}}},
        {"Terms", "USER", bytesOf("\0engterms"s), "terms", "", "eng", {{1, 0, 1}, {2, 1, 5}, {10, 1, 3}}},
        {"SyncedLyrics",
         "SYLT",
         syncedLyricsFrame("d", {"One", "Two"}),
         "[00:00.0] One\n[00:01.0] Two",
         "d",
         "eng",
         {{1, 0, 1}, {4, 0, 16}, {5, 1, 1}, {10, 1, 3}, {22, 0, 1}, {23, 0, 1}}},
        {"SyncedLyricsUtf16",
         "SYLT",
         syncedLyricsFrame("", {"\u65E5"}, Encoding::Utf16),
         "[00:00.0] \u65E5",
         "",
         "eng",
         {{1, 0, 1}, {4, 0, 10}, {5, 0, 0}, {10, 1, 3}, {22, 0, 1}, {23, 0, 1}}},
        {"SyncedLyricsByFrames",
         "SYLT",
         bytesOf("\0eng\1\1\0a\0\0\0\0\7"s),
         "[7] a",
         "",
         "eng",
         {{1, 0, 1}, {4, 0, 6}, {5, 0, 0}, {10, 1, 3}, {22, 0, 1}, {23, 0, 1}}},
        {"Identifier", "UFID", bytesOf("owner\0a b "s), "ab", "", "", {{4, 0, 4}, {6, 1, 5}}},
        {"IdentifierOfOthers", "UFID", bytesOf("o\0data"s), "data", "", "", {{4, 0, 4}, {6, 1, 1}}},
        {"IdentifierWithoutOwner", "UFID", bytesOf("\0d "s), "d", "", "", {{4, 0, 2}, {6, 0, 0}}},
        {"Private", "PRIV", bytesOf("ow\0data"s), kNothing, "", "", {{4, 0, 4}, {6, 1, 2}}},
        {"Counter", "PCNT", bytesOf("\0\0\1\2"s), 258, "", "", {{14, 0, 4}}},
        {"ShortCounter", "PCNT", bytesOf("\0\5"s), 5, "", "", {{14, 0, 4}}},
        {"LongCounter", "PCNT", bytesOf("\0\0\0\0\7"s), 7, "", "", {{14, 0, 4}}},
        {"CounterOverItsWidth", "PCNT", bytesOf("\1\0\0\0\0"s), 2147483647, "", "", {{14, 0, 4}}},
        {"CounterOver31Bits", "PCNT", bytesOf("\x80\0\0\0"s), 2147483647, "", "", {{14, 0, 4}}},
        {"Popularimeter", "POPM", bytesOf("e@x\0\xC4\0\0\0\7"s), kNothing, "", "", {{7, 1, 3}, {8, 0, 1}, {14, 0, 4}}},
        {"PopularimeterWithoutCounter",
         "POPM",
         bytesOf("e@x\0\5"s),
         kNothing,
         "",
         "",
         {{7, 1, 3}, {8, 0, 1}, {14, 0, 4}}},
        {"Picture",
         "APIC",
         pictureFrame(kPng, "image/png", "d"),
         kNothing,
         "d",
         "",
         {{1, 0, 1}, {4, 0, 5}, {5, 1, 1}, {11, 0, 1}, {12, 0, 3}, {13, 1, 9}}},
        {"PictureUtf16",
         "APIC",
         pictureFrame(kPng, "image/png", "\u65E5", Encoding::Utf16),
         kNothing,
         "\u65E5",
         "",
         {{1, 0, 1}, {4, 0, 5}, {5, 1, 2}, {11, 0, 1}, {12, 0, 3}, {13, 1, 9}}},
        {"Object",
         "GEOB",
         bytesOf("\0mi/x\0fi\0des\0DATA"s),
         kNothing,
         "des",
         "",
         {{1, 0, 1}, {4, 0, 4}, {5, 1, 3}, {9, 1, 2}, {13, 1, 4}}},
        {"Link", "LINK", bytesOf("TIT2url\0more"s), "more", "", "", {{2, 1, 4}, {3, 1, 3}, {15, 0, 3}}},
        {"Encryption", "AENC", bytesOf("o\0abcd"s), kNothing, "", "", {{4, 0, 6}}},
        {"EncryptionMethod",
         "ENCR",
         bytesOf("ow\0\x80"
                 "data"s),
         kNothing,
         "",
         "",
         {{4, 0, 4}, {6, 1, 2}, {15, 0, 1}}},
        {"Group",
         "GRID",
         bytesOf("ow\0\x80"
                 "data"s),
         kNothing,
         "",
         "",
         {{4, 0, 4}, {6, 1, 2}, {15, 0, 1}}},
        {"Url", "WOAR", bytesOf("http://x"), "http://x", "", "", {{3, 1, 8}}},
        {"UrlWithEnd", "WOAF", bytesOf("http://x\0junk"s), "http://x", "", "", {{3, 1, 13}}},
        {"UrlOfShop", "WCOM", bytesOf("http://x"), "http://x", "", "", {{3, 1, 8}}},
        {"UserUrl", "WXXX", userUrlFrame("de", "http://x"), "http://x", "de", "", {{1, 0, 1}, {3, 1, 8}, {5, 1, 2}}},
        {"UserUrlUtf16",
         "WXXX",
         userUrlFrame("\u65E5", "http://x", Encoding::Utf16),
         "http://x",
         "\u65E5",
         "",
         {{1, 0, 1}, {3, 1, 8}, {5, 1, 2}}},
        {"UserUrlAllUtf16",
         "WXXX",
         bytesOf("\1") + terminated(Encoding::Utf16, "de") + terminated(Encoding::Utf16, "h:"),
         "h:",
         "de",
         "",
         {{1, 0, 1}, {3, 1, 8}, {5, 1, 4}}},
        {"CdIdentifier", "MCDI", bytesOf("12345"), kNothing, "", "", {{4, 0, 5}}},
        {"Ownership", "OWNE", bytesOf("\0abc"s), kNothing, "", "", {{4, 0, 4}}},
        {"Unknown", "ZZZZ", bytesOf("12345"), kNothing, "", "", {{4, 0, 5}}},
        {"UnknownOfNothing", "ZZZZ", {}, kNothing, "", "", {{4, 0, 0}}},
    };
    return all;
}

class FrameContentOf : public testing::TestWithParam<Case> {};

TEST_P(FrameContentOf, IsWhatItsDataSay) {
    const FrameContent content = contentOf(GetParam().frame, GetParam().payload);
    EXPECT_EQ(content.value, GetParam().value) << textOf(content);
    EXPECT_EQ(content.description, GetParam().description);
    EXPECT_EQ(content.language, GetParam().language);
    EXPECT_EQ(fieldsOf(content), GetParam().fields);
}

// Texts have a limit that shows when a read runs over it: each prefix stands in memory of its own.
TEST_P(FrameContentOf, EveryShorterPrefixIsRead) {
    const Case& tested = GetParam();
    for (std::size_t size = 0; size <= tested.payload.size(); ++size) {
        const ByteArray prefix(tested.payload.begin(), tested.payload.begin() + static_cast<std::ptrdiff_t>(size));
        const FrameContent content = contentOf(tested.frame, prefix);
        EXPECT_EQ(content.value.index(), tested.value.index()) << size;
        EXPECT_EQ(content.fields.size(), tested.fields.size()) << size;
        for (const ID3V230Field& field : content.fields) {
            EXPECT_LE(field.Size, std::max<std::int32_t>(static_cast<std::int32_t>(size), 4)) << size;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Frames, FrameContentOf, testing::ValuesIn(cases()),
                         [](const auto& tested) { return tested.param.name; });

TEST(FrameContent, OfAPictureTellsWhatStandsInFrontOfTheImage) {
    for (const Encoding encoding : {Encoding::CodePage, Encoding::Utf16, Encoding::Utf16BigEndian, Encoding::Utf8}) {
        const ByteArray payload = pictureFrame(kPng, "image/png", "front", encoding);
        const FrameContent content = contentOf("APIC", payload);
        EXPECT_EQ(content.picture.mimeType, "image/png");
        EXPECT_EQ(content.picture.type, 3);
        EXPECT_EQ(payload.size() - content.picture.imageOffset, kPng.size());
        const FrameContent head = contentOf("APIC", Bytes(payload).first(content.picture.imageOffset));
        EXPECT_EQ(head.picture.imageOffset, content.picture.imageOffset);
        EXPECT_EQ(head.description, "front");
    }
}

TEST(FrameContent, HasAPictureHeadForPicturesOnly) {
    const FrameContent content = contentOf("GEOB", bytesOf("\0mi/x\0fi\0des\0DATA"s));
    EXPECT_EQ(content.picture.mimeType, "");
    EXPECT_EQ(content.picture.imageOffset, 0U);
}

TEST(FrameContent, OfEveryFrameIsReadInEveryEncoding) {
    for (int number = 0; number <= 76; ++number) {
        for (unsigned encoding = 0; encoding < 256; ++encoding) {
            const ByteArray payload = ByteBuilder().byte(encoding).text("eng\2\1d\0\0a\0\0\0\0\1"s).done();
            EXPECT_FALSE(contentOfFrame(static_cast<ID3_FrameID>(number), payload).fields.empty());
        }
    }
}

TEST(FrameContent, OfRandomBytesIsRead) {
    std::mt19937 random(20261121);
    const auto below = [&random](unsigned limit) { return static_cast<std::uint8_t>(random() % limit); };
    for (int round = 0; round < 20'000; ++round) {
        ByteArray payload(random() % 64);
        for (std::uint8_t& byte : payload)
            byte = below(4) == 0 ? below(4) : below(2) == 0 ? 0xFF - below(2) : below(256);
        const FrameContent content = contentOfFrame(static_cast<ID3_FrameID>(random() % 77), payload);
        EXPECT_LE(content.picture.imageOffset, payload.size());
        const auto most = std::max<std::int32_t>(static_cast<std::int32_t>(payload.size()), 4);
        for (const ID3V230Field& field : content.fields) {
            EXPECT_GE(field.Size, 0);
            EXPECT_LE(field.Size, most);
            EXPECT_LE(field.NumTextItems, most);
        }
    }
}

} // namespace
} // namespace corvane::framecontent_test
