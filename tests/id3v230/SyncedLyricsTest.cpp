#include "corvane/id3v230/SyncedLyrics.h"

#include "tests/support/ByteBuilder.h"

#include <gtest/gtest.h>

namespace corvane::syncedlyrics_test {
namespace {

using namespace test;
using Entries = std::vector<std::pair<std::uint32_t, std::string>>;

SyncedLyrics lyricsOf(const Entries& entries, TimeStampFormat format = TimeStampFormat::Milliseconds) {
    SyncedLyrics lyrics{.format = format, .entries = {}};
    for (const auto& [time, text] : entries) lyrics.entries.push_back({time, text});
    return lyrics;
}

Entries entriesOf(const SyncedLyrics& lyrics) {
    Entries entries;
    for (const auto& entry : lyrics.entries) entries.emplace_back(entry.time, entry.text);
    return entries;
}

TEST(SyncedLyrics, AreALineForEachEntry) {
    EXPECT_EQ(textOfSyncedLyrics(lyricsOf({{0, "One"}, {83'456, "Two"}, {3'723'456, ""}})),
              "[00:00.0] One\n[01:23.4] Two\n[1:02:03.4]");
    EXPECT_EQ(textOfSyncedLyrics(lyricsOf({})), "");
}

TEST(SyncedLyrics, OfSeveralLinesHaveATimeForEach) {
    EXPECT_EQ(textOfSyncedLyrics(lyricsOf({{1000, "\nOne"}, {2000, "Two\r\nThree\n"}, {3000, "\n"}})),
              "[00:01.0] One\n[00:02.0] Two\n[00:02.0] Three\n[00:03.0]");
}

TEST(SyncedLyrics, ThatCountFramesHavePlainNumbers) {
    const SyncedLyrics lyrics = lyricsOf({{0, "One"}, {4'294'967'295, "Two"}}, TimeStampFormat::MpegFrames);
    EXPECT_EQ(textOfSyncedLyrics(lyrics), "[0] One\n[4294967295] Two");
    const auto parsed = parseSyncedLyrics("[0] One\n[4294967295] Two");
    ASSERT_TRUE(parsed);
    EXPECT_EQ(parsed->format, TimeStampFormat::MpegFrames);
    EXPECT_EQ(entriesOf(*parsed), entriesOf(lyrics));
}

TEST(SyncedLyrics, AreReadBackFromTheirText) {
    const Entries entries{
        {0, "One"}, {83'400, "[Two] \u65E5\u672C"}, {83'400, " blank in front"}, {3'723'400, ""}, {100, "back"}};
    const auto parsed = parseSyncedLyrics(textOfSyncedLyrics(lyricsOf(entries)));
    ASSERT_TRUE(parsed);
    EXPECT_EQ(parsed->format, TimeStampFormat::Milliseconds);
    EXPECT_EQ(entriesOf(*parsed), entries);
}

TEST(SyncedLyrics, TakeBothKindsOfLineEnds) {
    for (const char* text :
         {"[00:01.0] a\n[00:02.0] b", "[00:01.0] a\r\n[00:02.0] b\r\n", "\n[00:01.0] a\n\n[00:02.0] b"}) {
        const auto parsed = parseSyncedLyrics(text);
        ASSERT_TRUE(parsed) << text;
        EXPECT_EQ(entriesOf(*parsed), (Entries{{1000, "a"}, {2000, "b"}})) << text;
    }
}

TEST(SyncedLyrics, WithoutTimesAreOneEntryAtTheBeginning) {
    const auto parsed = parseSyncedLyrics("One\r\nTwo [00:01.0]");
    ASSERT_TRUE(parsed);
    EXPECT_EQ(entriesOf(*parsed), (Entries{{0, "One\r\nTwo [00:01.0]"}}));
}

TEST(SyncedLyrics, ThatCannotBeReadBackAreRefused) {
    for (const char* text : {"[00:01.0 a", "[]", "[Chorus]", "[00:60.0] a", "[60:00.0] a", "[00:01] a", "[00:01.00] a",
                             "[00:01.0]a", "[00:01.0] a\nb", "a\n[00:01.0] b", "[00:01.0] a\n[5] b", "[-1] a",
                             "[4294967296] a", " [00:01.0] a\n[Chorus]"}) {
        EXPECT_FALSE(parseSyncedLyrics(text)) << text;
    }
}

TEST(SyncedLyrics, StandInTheDataWithEndAndTime) {
    const SyncedLyrics lyrics = lyricsOf({{0x01020304, "a"}, {5, "\u00E9"}});
    EXPECT_EQ(syncedLyricsData(lyrics, TextEncoding::CodePage), (ByteArray{'a', 0, 1, 2, 3, 4, 0xE9, 0, 0, 0, 0, 5}));
    EXPECT_EQ(syncedLyricsData(lyrics, TextEncoding::Utf16),
              (ByteArray{0xFF, 0xFE, 'a', 0, 0, 0, 1, 2, 3, 4, 0xFF, 0xFE, 0xE9, 0, 0, 0, 0, 0, 0, 5}));
}

TEST(SyncedLyrics, AreTakenAsFarAsTheyAreWhole) {
    const SyncedLyrics lyrics = lyricsOf({{1, "ab"}, {2, ""}, {3, "\u65E5\u672C"}});
    ByteArray bytes{static_cast<std::uint8_t>(TextEncoding::Utf16)};
    const ByteArray data = syncedLyricsData(lyrics, TextEncoding::Utf16);
    bytes.insert(bytes.end(), data.begin(), data.end());
    std::size_t most = 0;
    for (std::size_t size = 1; size <= bytes.size(); ++size) {
        ByteReader reader(Bytes(bytes).first(size));
        auto text = EncodedTextReader::begin(reader);
        ASSERT_TRUE(text);
        const Entries taken = entriesOf(takeSyncedLyrics(TimeStampFormat::Milliseconds, *text, reader));
        const Entries all = entriesOf(lyrics);
        ASSERT_LE(taken.size(), all.size());
        ASSERT_GE(taken.size(), most);
        most = taken.size();
        EXPECT_EQ(taken, Entries(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(most))) << size;
    }
    EXPECT_EQ(most, 3U);
}

} // namespace
} // namespace corvane::syncedlyrics_test
