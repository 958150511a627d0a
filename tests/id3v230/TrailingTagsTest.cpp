#include "corvane/id3v230/TrailingTags.h"

#include "corvane/platform/FileReader.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/Id3v1Builder.h"
#include "tests/support/LyricsBuilder.h"
#include "tests/support/Mp3File.h"
#include "tests/support/MusicMatchBuilder.h"

#include <gtest/gtest.h>

namespace corvane::trailingtags_test {
namespace {

using test::bytesOf;
using test::joined;
using test::LyricsBuilder;
using test::musicMatch;
using test::ScratchFolder;
using enum ID3_TagType;

ByteArray record() { return test::Id3v1Builder().title("Title").done(); }
ByteArray lyricsV2() { return LyricsBuilder().field("LYR", "la la").done(); }
ByteArray lyricsV1(std::string_view text = "la la") { return test::lyricsV100(text); }

FoundTrailingTag foundIn(const ByteArray& content, ID3_TagType kind) {
    const ScratchFolder folder;
    FileReader file(folder.write("f", content));
    return findTrailingTag(file, kind);
}

struct Case {
    const char* name;
    ID3_TagType kind;
    ByteArray front, tag, behind;
};

class ATrailingTag : public testing::TestWithParam<Case> {};

TEST_P(ATrailingTag, IsFoundWithItsWholeSize) {
    const auto& [name, kind, front, tag, behind] = GetParam();
    const FoundTrailingTag found = foundIn(joined({front, tag, behind}), kind);
    EXPECT_FALSE(found.isDamaged);
    ASSERT_TRUE(found.tag);
    EXPECT_EQ(found.tag->offset, front.size());
    EXPECT_EQ(found.tag->size, tag.size());
}

const ByteArray kAudio = test::Mp3File::audio();
const std::string kLongestLyrics(5100, 'l');

INSTANTIATE_TEST_SUITE_P(
    Places, ATrailingTag,
    testing::Values(
        Case{"Record", ID3TT_ID3V1, kAudio, record(), {}}, Case{"RecordAlone", ID3TT_ID3V1, {}, record(), {}},
        Case{"OnlyTheLastOfTwoRecords", ID3TT_ID3V1, joined({kAudio, record()}), record(), {}},
        Case{"LyricsV2AtTheEnd", ID3TT_LYRICS3V2, kAudio, lyricsV2(), {}},
        Case{"LyricsV2BeforeTheRecord", ID3TT_LYRICS3V2, kAudio, lyricsV2(), record()},
        Case{"LyricsV2Alone", ID3TT_LYRICS3V2, {}, lyricsV2(), {}},
        Case{"LyricsV1AtTheEnd", ID3TT_LYRICS3, kAudio, lyricsV1(), {}},
        Case{"LyricsV1BeforeTheRecord", ID3TT_LYRICS3, kAudio, lyricsV1(), record()},
        Case{"LyricsV1WithoutText", ID3TT_LYRICS3, kAudio, lyricsV1(""), record()},
        Case{"LongestLyricsV1", ID3TT_LYRICS3, kAudio, lyricsV1(kLongestLyrics), record()},
        Case{"LyricsV1BehindItsOwnBeginning", ID3TT_LYRICS3, joined({kAudio, bytesOf("LYRICSBEGIN")}), lyricsV1(), {}},
        Case{"LyricsV1BeforeLyricsV2", ID3TT_LYRICS3, kAudio, lyricsV1(), joined({lyricsV2(), record()})},
        Case{"MusicMatchAtTheEnd", ID3TT_MUSICMATCH, kAudio, musicMatch({}), {}},
        Case{"MusicMatchBeforeTheRecord", ID3TT_MUSICMATCH, kAudio, musicMatch({}), record()},
        Case{"MusicMatchWithHeader", ID3TT_MUSICMATCH, kAudio, musicMatch({.hasHeader = true}), record()},
        Case{"MusicMatchWithImage", ID3TT_MUSICMATCH, kAudio, musicMatch({.hasHeader = true, .imageSize = 9'999}), {}},
        Case{"MusicMatchThatHasMoved", ID3TT_MUSICMATCH, kAudio, musicMatch({.writtenAt = 4'000'000}), record()},
        Case{"MusicMatch7936", ID3TT_MUSICMATCH, kAudio, musicMatch({.metadataSize = 7936}), record()},
        Case{"MusicMatch8004", ID3TT_MUSICMATCH, kAudio, musicMatch({.metadataSize = 8004}), record()},
        Case{"MusicMatch8132", ID3TT_MUSICMATCH, kAudio, musicMatch({.metadataSize = 8132}), record()},
        Case{"MusicMatchBeforeLyrics", ID3TT_MUSICMATCH, kAudio, musicMatch({}), joined({lyricsV2(), record()})},
        Case{"LyricsBeforeMusicMatch", ID3TT_LYRICS3V2, kAudio, lyricsV2(), joined({musicMatch({}), record()})}),
    [](const auto& tested) { return tested.param.name; });

struct Absent {
    const char* name;
    ByteArray content;
    ID3_TagType kind;
    bool isDamaged;
};

class AnAbsentOrDamagedTrailingTag : public testing::TestWithParam<Absent> {};

TEST_P(AnAbsentOrDamagedTrailingTag, HasNoPlace) {
    const FoundTrailingTag found = foundIn(GetParam().content, GetParam().kind);
    EXPECT_FALSE(found.tag);
    EXPECT_EQ(found.isDamaged, GetParam().isDamaged);
}

ByteArray lastBytes(ByteArray bytes, std::size_t count) {
    bytes.erase(bytes.begin(), bytes.end() - static_cast<std::ptrdiff_t>(count));
    return bytes;
}
ByteArray withoutFirstByte(const ByteArray& bytes) { return lastBytes(bytes, bytes.size() - 1); }

INSTANTIATE_TEST_SUITE_P(
    Contents, AnAbsentOrDamagedTrailingTag,
    testing::Values(
        Absent{"NothingAtAll", {}, ID3TT_ID3V1, false}, Absent{"AudioOnly", kAudio, ID3TT_LYRICS3, false},
        Absent{"RecordNotAtTheEnd", joined({record(), kAudio}), ID3TT_ID3V1, false},
        Absent{"RecordIsCut", withoutFirstByte(record()), ID3TT_ID3V1, false},
        Absent{"OtherLyrics", joined({kAudio, lyricsV2()}), ID3TT_LYRICS3, false},
        Absent{"LyricsBeforeOtherBytes", joined({kAudio, lyricsV2(), bytesOf("x")}), ID3TT_LYRICS3V2, false},
        Absent{"LyricsV1WithoutBeginning", joined({kAudio, bytesOf("la la LYRICSEND")}), ID3TT_LYRICS3, true},
        Absent{"LyricsV1TooLong", joined({kAudio, lyricsV1(kLongestLyrics + "l")}), ID3TT_LYRICS3, true},
        Absent{"LyricsV2LargerThanTheFile", LyricsBuilder().field("LYR", "la").done("000100"), ID3TT_LYRICS3V2, true},
        Absent{"LyricsV2WithAWrongSize", joined({kAudio, LyricsBuilder().field("LYR", "la").done("000020")}),
               ID3TT_LYRICS3V2, true},
        Absent{"LyricsV2WithoutASize", joined({kAudio, LyricsBuilder().field("LYR", "la").done("00002x")}),
               ID3TT_LYRICS3V2, true},
        Absent{"DamagedLyricsBehindTheRest", joined({kAudio, musicMatch({}), bytesOf("la la la LYRICSEND")}),
               ID3TT_MUSICMATCH, false},
        Absent{"MusicMatchFooterOnly", joined({kAudio, lastBytes(musicMatch({}), 48)}), ID3TT_MUSICMATCH, true},
        Absent{"MusicMatchCut", withoutFirstByte(musicMatch({})), ID3TT_MUSICMATCH, true},
        Absent{"MusicMatchOfAnotherSize", joined({kAudio, musicMatch({.metadataSize = 7900})}), ID3TT_MUSICMATCH, true},
        Absent{"MusicMatchWithWrongOffsets", joined({kAudio, musicMatch({.versionOffset = 1})}), ID3TT_MUSICMATCH,
               true},
        Absent{"MusicMatchThatTellsMoreThanTheFile", joined({kAudio, musicMatch({.versionOffset = 0x7FFF'FFFF})}),
               ID3TT_MUSICMATCH, true},
        Absent{"MusicMatchWithoutVersion", joined({kAudio, musicMatch({.versionInfo = "---------- 3.05"})}),
               ID3TT_MUSICMATCH, true}),
    [](const auto& tested) { return tested.param.name; });

TEST(TrailingTags, NoByteThatIsChangedOrMissingLeadsOutOfTheFile) {
    const ByteArray whole =
        joined({musicMatch({.hasHeader = true, .imageSize = 50}), lyricsV1(), lyricsV2(), record()});
    const ScratchFolder folder;
    // Every byte of what the tags tell of themselves, and some of what they hold.
    for (std::size_t at = 0; at < whole.size(); at += at + 330 < whole.size() ? 61 : 1) {
        ByteArray mutated = whole;
        mutated[at] = static_cast<std::uint8_t>(mutated[at] ^ 0x31U);
        for (const ByteArray& content :
             {mutated, ByteArray(whole.begin() + static_cast<std::ptrdiff_t>(at), whole.end())}) {
            FileReader file(folder.write("f", content));
            for (const ID3_TagType kind : {ID3TT_ID3V1, ID3TT_LYRICS3, ID3TT_LYRICS3V2, ID3TT_MUSICMATCH}) {
                const auto found = findTrailingTag(file, kind);
                EXPECT_TRUE(!found.tag || found.tag->offset + found.tag->size <= content.size()) << at;
            }
        }
    }
}

} // namespace
} // namespace corvane::trailingtags_test
