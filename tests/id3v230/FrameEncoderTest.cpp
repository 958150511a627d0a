#include "corvane/id3v230/FrameEncoder.h"

#include "corvane/id3v230/FrameContent.h"
#include "corvane/id3v230/FrameNames.h"
#include "corvane/platform/ByteReader.h"
#include "corvane/platform/Picture.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/Failures.h"
#include "tests/support/HostMessageBox.h"
#include "tests/support/ImageBuilder.h"
#include "tests/support/Process.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <ostream>
#include <thread>

namespace corvane::frameencoder_test {
namespace {

using namespace test;
using namespace std::string_literals;

constexpr std::size_t kHeaderSize = 10;

// The system's temporary folder while this lives.
class TemporaryFolderOfTest {
public:
    TemporaryFolderOfTest() {
        if (const char* folder = std::getenv("TMPDIR")) before_ = folder;
        set(folder_.path());
    }
    ~TemporaryFolderOfTest() { before_ ? set(*before_) : static_cast<void>(::unsetenv("TMPDIR")); }
    void set(const std::string& path) { ::setenv("TMPDIR", path.c_str(), 1); }
    const ScratchFolder& folder() const { return folder_; }

private:
    ScratchFolder folder_;
    std::optional<std::string> before_;
};

FrameToWrite frameOf(const char* letters, FrameVariant value, std::string description = {}, std::string language = {}) {
    FrameToWrite frame;
    frame.frame = frameNumberOf(letters);
    frame.value = std::move(value);
    frame.description = std::move(description);
    frame.language = std::move(language);
    return frame;
}

FrameToWrite pictureOf(ByteArray image, std::string description = {}, std::uint8_t type = 3) {
    FrameToWrite frame = frameOf("APIC", {}, std::move(description));
    frame.picture = Picture::fromBytes(std::move(image));
    frame.pictureType = type;
    return frame;
}

ByteArray encodedFrame(const FrameToWrite& frame) { return encodedFrames(std::span(&frame, 1)).at(0); }

// What stands behind the header, which must be right.
ByteArray payloadOf(const ByteArray& frame, std::string_view letters) {
    ByteReader reader(frame);
    EXPECT_EQ(test::textOf(reader.take(4).value_or(Bytes{})), letters);
    EXPECT_EQ(reader.number<4>(), frame.size() - kHeaderSize);
    reader.take(1);
    EXPECT_EQ(reader.number<1>(), 0U); // neither compressed nor encrypted nor grouped
    const Bytes rest = reader.takeRest();
    return {rest.begin(), rest.end()};
}

FrameContent contentOf(const FrameToWrite& frame) {
    const auto letters = FrameName(static_cast<std::int32_t>(frame.frame), enumShortOrLongText::eslSHORT).value();
    return contentOfFrame(frame.frame, payloadOf(encodedFrame(frame), letters));
}

struct BytesCase {
    const char* name;
    FrameToWrite frame;
    ByteArray payload;
};
std::ostream& operator<<(std::ostream& out, const BytesCase& tested) { return out << tested.name; }
class EncodedFrame : public testing::TestWithParam<BytesCase> {};
TEST_P(EncodedFrame, HasTheBytesOfTheFormat) {
    const auto letters = FrameName(static_cast<std::int32_t>(GetParam().frame.frame), enumShortOrLongText::eslSHORT);
    EXPECT_EQ(payloadOf(encodedFrame(GetParam().frame), letters.value()), GetParam().payload);
}

INSTANTIATE_TEST_SUITE_P(
    Frames, EncodedFrame,
    testing::Values(
        BytesCase{"Text", frameOf("TIT2", "caf\u00E9"), bytesOf("\0caf\xE9"s)},
        BytesCase{"TextUtf16", frameOf("TIT2", "a\u20AC"),
                  bytesOf("\1\xFF\xFE"
                          "a\0\xAC\x20"s)},
        BytesCase{"TextOfSeveralValues", frameOf("TPE1", "a\0b"s), bytesOf("\0a\0b"s)},
        BytesCase{"YearAsNumber", frameOf("TYER", std::int16_t{1999}), bytesOf("\0001999"s)},
        BytesCase{"YearZero", frameOf("TYER", std::int16_t{0}), bytesOf("\0000"s)},
        BytesCase{"People", frameOf("IPLS", "role\0name"s), bytesOf("\0role\0name"s)},
        BytesCase{"UserText", frameOf("TXXX", "text", "d"), bytesOf("\0d\0text"s)},
        BytesCase{"UserTextWithoutDescription", frameOf("TXXX", "text"), bytesOf("\0\0text"s)},
        BytesCase{"Comment", frameOf("COMM", "text", "MusicMatch_Mood"), bytesOf("\0engMusicMatch_Mood\0text"s)},
        BytesCase{"CommentInGerman", frameOf("COMM", "text", "", "deu"), bytesOf("\0deu\0text"s)},
        BytesCase{"CommentUtf16", frameOf("COMM", "\u20AC", "d"),
                  bytesOf("\1eng\xFF\xFE"
                          "d\0\0\0\xFF\xFE\xAC\x20"s)},
        BytesCase{"CommentUtf16WithoutDescription", frameOf("COMM", "\u20AC"),
                  bytesOf("\1eng\xFF\xFE\0\0\xFF\xFE\xAC\x20"s)},
        BytesCase{"UserTextUtf16WithoutDescription", frameOf("TXXX", "\u20AC"),
                  bytesOf("\1\xFF\xFE\0\0\xFF\xFE\xAC\x20"s)},
        BytesCase{"CommentOfSeveralValues", frameOf("COMM", "a\0b"s, "d"), bytesOf("\0engd\0a\0b"s)},
        BytesCase{"Lyrics", frameOf("USLT", "a\r\nb"), bytesOf("\0eng\0a\r\nb"s)},
        BytesCase{"Terms", frameOf("USER", "text"), bytesOf("\0engtext"s)},
        BytesCase{"SyncedLyrics", frameOf("SYLT", "[00:01.0] a\n[00:01.5] b"),
                  bytesOf("\0eng\2\1\0a\0\0\0\x03\xE8"
                          "b\0\0\0\x05\xDC"s)},
        BytesCase{"SyncedLyricsWithoutTimes", frameOf("SYLT", "a"), bytesOf("\0eng\2\1\0a\0\0\0\0\0"s)},
        BytesCase{"SyncedLyricsByFrames", frameOf("SYLT", "[7] a"), bytesOf("\0eng\1\1\0a\0\0\0\0\7"s)},
        BytesCase{"SyncedLyricsUtf16", frameOf("SYLT", "[00:01.0] \u20AC", "d"),
                  bytesOf("\1eng\2\1\xFF\xFE"
                          "d\0\0\0\xFF\xFE\xAC\x20\0\0\0\0\x03\xE8"s)},
        BytesCase{"Identifier", frameOf("UFID", "ab"), bytesOf("\0a b "s)},
        BytesCase{"Counter", frameOf("PCNT", 258), bytesOf("\0\0\1\2"s)},
        BytesCase{"CounterAsText", frameOf("PCNT", "7"), bytesOf("\0\0\0\7"s)},
        BytesCase{"Url", frameOf("WOAR", "http://x/\u00E9\u65E5"), bytesOf("http://x/\xE9%E6%97%A5")},
        BytesCase{"UrlOfShop", frameOf("WCOM", "http://x"), bytesOf("http://x")},
        BytesCase{"UserUrl", frameOf("WXXX", "http://x", "d"), bytesOf("\0d\0http://x"s)},
        BytesCase{"UserUrlUtf16", frameOf("WXXX", "http://x", "\u20AC"), bytesOf("\1\xFF\xFE\xAC\x20\0\0http://x"s)}),
    [](const auto& tested) { return tested.param.name; });

// The frames behind the properties of a tag, and texts that are hard in one way or another.
constexpr const char* kTextFrames[] = {"TIT2", "TPE1", "TALB", "TRCK", "TCOM", "TOPE", "TCOP",
                                       "TENC", "TCON", "COMM", "TXXX", "USLT", "UFID", "USER"};
const std::string kTexts[] = {"Title",
                              "3/12",
                              "caf\u00E9 \u00FF\u00A0",
                              "\u65E5\u672C\u8A9E",
                              "\u041F\u0440\u0438\u0432\u0435\u0442",
                              "\u20AC 5",
                              "\u201Cquotes\u201D \"and\" 'more'",
                              "\u0080\u009F",
                              "\u0100\u0001\uFEFF",
                              "\uFEFFmark",
                              "\U0001F600\U0010FFFF",
                              " blanks ",
                              "lines\nand\r\nmore",
                              "several\0values"s,
                              "several\0\u65E5\0values"s,
                              std::string(5000, 'x'),
                              std::string(3000, 'x') + "\u65E5"};

TEST(FrameEncoder, TextsOfEveryKindAreReadBack) {
    for (const char* letters : kTextFrames) {
        for (const std::string& text : kTexts) {
            EXPECT_EQ(contentOf(frameOf(letters, text)).value, FrameVariant(text)) << letters << ": " << text;
        }
    }
}

TEST(FrameEncoder, DescriptionsAndLanguagesAreReadBack) {
    for (const char* letters : {"COMM", "USLT", "TXXX", "WXXX", "SYLT"}) {
        for (const char* description : {"", "d", "caf\u00E9", "\u65E5\u672C\u8A9E", "\u20AC"}) {
            for (const char* text : {"[00:01.0] text", "[00:01.0] \u041F\u0440"}) {
                const bool speaks = letters != std::string_view("TXXX") && letters != std::string_view("WXXX");
                const FrameContent content = contentOf(frameOf(letters, text, description, speaks ? "rus" : ""));
                EXPECT_EQ(content.description, description) << letters;
                EXPECT_EQ(content.language, speaks ? "rus" : "") << letters;
                const bool isUrl = letters == std::string_view("WXXX");
                EXPECT_EQ(
                    content.value,
                    FrameVariant(isUrl && text != std::string_view("[00:01.0] text") ? "[00:01.0] %D0%9F%D1%80" : text))
                    << letters;
            }
        }
    }
}

TEST(FrameEncoder, EveryFrameOfTextIsWrittenAndReadBack) {
    for (int number = static_cast<int>(ID3_FrameID::ID3FID_ALBUM); number <= 62; ++number) {
        FrameToWrite frame;
        frame.frame = static_cast<ID3_FrameID>(number);
        frame.value = "text \u20AC";
        EXPECT_EQ(contentOf(frame).value, frame.value) << number;
    }
}

struct ImageCase {
    const char* mimeType;
    ByteArray image;
};
TEST(FrameEncoder, PicturesAreWrittenAsTheyStand) {
    const std::vector<ImageCase> images{{"image/jpeg", jpegImage(8, 8)},
                                        {"image/png", pngImage(300, 200)},
                                        {"image/gif", gifImage(5, 7)},
                                        {"image/bmp", bmpImage(16, 16)},
                                        {"image/png", joined({pngImage(1, 1), countedBytes(100'000)})}};
    for (const auto& [mimeType, image] : images) {
        for (const char* description : {"", "front", "\u65E5\u672C"}) {
            const ByteArray payload = payloadOf(encodedFrame(pictureOf(image, description, 4)), "APIC");
            const FrameContent content = contentOfFrame(ID3_FrameID::ID3FID_PICTURE, payload);
            EXPECT_EQ(content.picture.mimeType, mimeType);
            EXPECT_EQ(content.picture.type, 4);
            EXPECT_EQ(content.description, description);
            EXPECT_TRUE(std::ranges::equal(Bytes(payload).subspan(content.picture.imageOffset), image)) << mimeType;
        }
    }
}

TEST(FrameEncoder, KeepsTheOrderOfAllFrames) {
    const std::vector<FrameToWrite> frames{frameOf("COMM", "one"),    frameOf("TIT2", "two"), pictureOf(pngImage(3, 3)),
                                           frameOf("COMM", "\u65E5"), frameOf("PCNT", 5),     frameOf("TIT2", "two"),
                                           frameOf("COMM", "one")};
    const std::vector<ByteArray> together = encodedFrames(frames);
    ASSERT_EQ(together.size(), frames.size());
    for (std::size_t i = 0; i < frames.size(); ++i) EXPECT_EQ(together[i], encodedFrame(frames[i])) << i;
    EXPECT_TRUE(encodedFrames({}).empty());
}

struct LanguageCase {
    const char* given;
    const char* written;
};
TEST(FrameEncoder, WritesALanguageOfThreeLetters) {
    for (const auto& [given, written] :
         {LanguageCase{"", "eng"}, LanguageCase{"deu", "deu"}, LanguageCase{"XXX", "XXX"},
          LanguageCase{"\u00E9\u00E9\u00E9", "\u00E9\u00E9\u00E9"}, LanguageCase{"de", "XXX"},
          LanguageCase{"deut", "XXX"}, LanguageCase{"\u65E5\u672C\u8A9E", "XXX"}, LanguageCase{"a\nb", "XXX"},
          LanguageCase{"\xFF\xFF\xFF", "XXX"}}) {
        EXPECT_EQ(contentOf(frameOf("COMM", "text", "", given)).language, written) << given;
    }
}

TEST(FrameEncoder, TakesMalformedTextForReplacementCharacters) {
    EXPECT_EQ(contentOf(frameOf("TIT2", "a\xFF")).value, FrameVariant("a\uFFFD"));
    EXPECT_EQ(contentOf(frameOf("COMM", "a\xFF", "\xFF")).description, "\uFFFD");
}

TEST(FrameEncoder, DropsZerosAtTheEndOfAText) {
    EXPECT_EQ(payloadOf(encodedFrame(frameOf("TIT2", "a\0\0"s)), "TIT2"), bytesOf("\0a"s));
    EXPECT_EQ(payloadOf(encodedFrame(frameOf("COMM", "a\0\0"s)), "COMM"), bytesOf("\0eng\0a"s));
}

FrameToWrite numbered(std::int32_t number) {
    FrameToWrite frame = frameOf("TIT2", "text");
    frame.frame = static_cast<ID3_FrameID>(number);
    return frame;
}

TEST(FrameEncoder, TakesTheSecondNumberOfTheLeadPerformer) {
    EXPECT_EQ(encodedFrame(numbered(-1)), encodedFrame(frameOf("TPE1", "text")));
}

struct RefusalCase {
    const char* name;
    FrameToWrite frame;
    std::int32_t number;
};
std::ostream& operator<<(std::ostream& out, const RefusalCase& tested) { return out << tested.name; }
class RefusedFrame : public testing::TestWithParam<RefusalCase> {};
TEST_P(RefusedFrame, FailsWithItsNumberAndMakesNothing) {
    const HostMessageBox host;
    const TemporaryFolderOfTest temporary;
    const std::vector<FrameToWrite> frames{frameOf("TIT2", "title"), frameOf("COMM", "comment"), GetParam().frame};
    EXPECT_EQ(failureNumberOf([&] { encodedFrames(frames); }), GetParam().number);
    EXPECT_EQ(temporary.folder().names(), std::vector<std::string>());
}

INSTANTIATE_TEST_SUITE_P(
    Frames, RefusedFrame,
    testing::Values(
        RefusalCase{"NoValue", frameOf("TIT2", {}), 3}, RefusalCase{"EmptyText", frameOf("TIT2", ""), 3},
        RefusalCase{"OnlyZeros", frameOf("COMM", "\0"s), 3}, RefusalCase{"NoPicture", frameOf("APIC", "text"), 3},
        RefusalCase{"PictureAsText", frameOf("TIT2", Picture::fromBytes(pngImage(1, 1))), 3},
        RefusalCase{"CounterThatIsNone", frameOf("PCNT", "many"), 3},
        RefusalCase{"NegativeCounter", frameOf("PCNT", -1), 3},
        RefusalCase{"LyricsOfABadTime", frameOf("SYLT", "[00:60.0] a"), 3},
        RefusalCase{"LyricsWithAZero", frameOf("SYLT", "[00:01.0] a\0b"s), 3},
        RefusalCase{"UrlWithAZero", frameOf("WOAR", "a\0b"s), 3},
        RefusalCase{"DescriptionWithAZero", frameOf("COMM", "text", "a\0b"s), 3},
        RefusalCase{"Link", frameOf("LINK", "text"), 3}, RefusalCase{"NoFrame", numbered(0), 6},
        RefusalCase{"Encrypted", numbered(75), 6}, RefusalCase{"Compressed", numbered(76), 6},
        RefusalCase{"FrameBeyondTheTable", numbered(77), 6}, RefusalCase{"NegativeFrame", numbered(-2), 6},
        RefusalCase{"Private", frameOf("PRIV", "text"), 7}, RefusalCase{"Object", frameOf("GEOB", "text", "d"), 7},
        RefusalCase{"Popularimeter", frameOf("POPM", 5), 7}, RefusalCase{"CdIdentifier", frameOf("MCDI", "text"), 7}),
    [](const auto& tested) { return tested.param.name; });

TEST(FrameEncoder, TellsTheUserOfAMissingFieldAndWritesTheRest) {
    for (const char* letters : {"TIT2", "WOAR", "PCNT", "UFID"}) {
        const HostMessageBox host;
        const FrameToWrite plain = frameOf(letters, "5");
        EXPECT_EQ(encodedFrame(frameOf(letters, "5", "a description", "deu")), encodedFrame(plain));
        ASSERT_EQ(host.shown.size(), 2U) << letters;
        EXPECT_EQ(host.shown[0].text, "Unable to write data to field.\r\nID3V230::id3SetField()\r\n"
                                      "Field '5' doesn't exist.\r\nData: a description");
        EXPECT_EQ(host.shown[1].text, "Unable to write data to field.\r\nID3V230::id3SetField()\r\n"
                                      "Field '10' doesn't exist.\r\nData: deu");
        EXPECT_EQ(host.shown[0].caption, "the host - Store ID3v2 Field");
        EXPECT_EQ(host.shown[0].icon, MessageBoxIcon::Stop);
    }
}

TEST(FrameEncoder, TellsTheUserOfAValueWithoutAPlace) {
    const HostMessageBox host;
    EXPECT_EQ(failureNumberOf([] { encodedFrame(frameOf("PRIV", "text")); }), 7);
    ASSERT_EQ(host.shown.size(), 1U);
    EXPECT_EQ(host.shown[0].text, "Unable to write data to field.\r\nID3V230::id3SetField()\r\n"
                                  "Field '2' doesn't exist.\r\nData: text");
}

TEST(FrameEncoder, LeavesNothingBehind) {
    const TemporaryFolderOfTest temporary;
    encodedFrame(frameOf("COMM", "comment"));
    encodedFrame(pictureOf(pngImage(10, 10)));
    EXPECT_EQ(temporary.folder().names(), std::vector<std::string>());
}

TEST(FrameEncoder, NeedsNoFileForPlainTexts) {
    TemporaryFolderOfTest temporary;
    temporary.set("/proc/self"); // a folder in which nobody can make files
    EXPECT_EQ(payloadOf(encodedFrame(frameOf("TIT2", "title")), "TIT2"), bytesOf("\0title"s));
    EXPECT_EQ(failureNumberOf([] { encodedFrame(frameOf("COMM", "comment")); }), 4);
}

// id3lib does not tell of a full disk.
TEST(FrameEncoder, FindsOutThatThereIsNoRoomForTemporaryFiles) {
    const ScratchFolder folder;
    TemporaryFolderOfTest temporary;
    const FrameToWrite large = pictureOf(joined({pngImage(1, 1), countedBytes(100'000)}));
    const int result = withSmallFileSystem(folder.path().c_str(), 64 * 1024, [&] {
        temporary.set(folder.path());
        EXPECT_EQ(failureNumberOf([&] { encodedFrame(large); }), 4);
        EXPECT_EQ(namesIn(folder.path()), std::vector<std::string>());
        EXPECT_EQ(failureNumberOf([&] { encodedFrame(pictureOf(pngImage(1, 1))); }), 0);
        return testing::Test::HasFailure() ? 1 : 0;
    });
    if (result == kNoMount) GTEST_SKIP() << "no file system can be mounted here";
    EXPECT_EQ(result, 0);
}

TEST(FrameEncoder, FindsOutThatAFileMayNotGrow) {
    const TemporaryFolderOfTest temporary;
    const FrameToWrite large = pictureOf(joined({pngImage(1, 1), countedBytes(100'000)}));
    for (const rlim_t limit : {rlim_t{0}, rlim_t{1}, rlim_t{5000}, rlim_t{99'000}}) {
        const LoweredFileSizeLimit lowered(limit);
        const auto failure = failureOf([&] { encodedFrame(large); });
        ASSERT_TRUE(failure) << limit;
        EXPECT_EQ(failure->number(), 4) << limit;
    }
    EXPECT_EQ(temporary.folder().names(), std::vector<std::string>());
    EXPECT_FALSE(encodedFrame(large).empty());
}

TEST(FrameEncoder, WorksInSeveralThreads) {
    std::vector<std::vector<ByteArray>> made(6);
    {
        std::vector<std::thread> threads;
        for (std::size_t i = 0; i < made.size(); ++i) {
            threads.emplace_back([&made, i] {
                for (int round = 0; round < 20; ++round) {
                    made[i].push_back(encodedFrame(frameOf("COMM", "comment " + std::to_string(i))));
                }
            });
        }
        for (std::thread& thread : threads) thread.join();
    }
    for (std::size_t i = 0; i < made.size(); ++i) {
        const ByteArray expected = bytesOf("\0eng\0comment "s + std::to_string(i));
        for (const ByteArray& frame : made[i]) EXPECT_EQ(payloadOf(frame, "COMM"), expected);
    }
}

} // namespace
} // namespace corvane::frameencoder_test
