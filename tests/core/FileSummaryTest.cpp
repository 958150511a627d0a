#include "corvane/core/FileSummary.h"

#include "corvane/platform/RuntimeFailure.h"

#include "tests/support/Failures.h"
#include "tests/support/Id3v1Builder.h"
#include "tests/support/Id3v2Builder.h"
#include "tests/support/LyricsBuilder.h"
#include "tests/support/MpegBuilder.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace corvane::filesummary_test {
namespace {

using test::Encoding;
using test::Id3v1Builder;
using test::Id3v2Builder;
using test::ScratchFolder;
using Names = std::vector<std::string>;

ByteArray audio() { return test::mpegStream({}, 20); }

Id3v1Builder record() {
    return Id3v1Builder().title("Old").artist("Artist").album("Album").year("1999").comment("Note").track(7).genre(17);
}

class FileSummaryTest : public testing::Test {
protected:
    FileSummary summaryOf(std::initializer_list<Bytes> parts) const {
        return summarize(folder_.write("a.mp3", test::joined(parts)));
    }
    const ScratchFolder folder_;
};

TEST_F(FileSummaryTest, TheTextsAreThoseOfTheId3v2TagWhenThereAreAnyElseOfTheRecord) {
    const FileSummary summary =
        summaryOf({Id3v2Builder(3).text("TIT2", "New").text("TRCK", "3/12").done(), audio(), record().done()});
    EXPECT_EQ(summary.title, "New");
    EXPECT_EQ(summary.track, "3/12");
    EXPECT_EQ(summary.artist, "Artist");
    EXPECT_EQ(summary.album, "Album");
    EXPECT_EQ(summary.year, "1999");
    EXPECT_EQ(summary.comment, "Note");
    EXPECT_EQ(summary.genre, "Rock");
}

TEST_F(FileSummaryTest, TheTextsAreReadAsTheirWriterMeantThem) {
    const FileSummary summary = summaryOf({Id3v2Builder(4)
                                               .text("TIT2", "日本語", Encoding::Utf8)
                                               .text("TPE1", "Привет", Encoding::Utf16BigEndian)
                                               .text("TDRC", "2004-05-06T07:08")
                                               .text("TCON", "17")
                                               .done(),
                                           audio(), record().done()});
    EXPECT_EQ(summary.title, "日本語");
    EXPECT_EQ(summary.artist, "Привет");
    EXPECT_EQ(summary.year, "2004");
    EXPECT_EQ(summary.genre, "Rock");
}

TEST_F(FileSummaryTest, WithoutTagsTheTextsAreEmpty) {
    const FileSummary summary = summaryOf({audio()});
    for (const std::string& text :
         {summary.title, summary.artist, summary.album, summary.year, summary.track, summary.genre, summary.comment}) {
        EXPECT_EQ(text, "");
    }
    EXPECT_TRUE(summary.tags.empty());
}

TEST_F(FileSummaryTest, NoTrackAndNoGenreOfARecordAreEmpty) {
    const FileSummary summary = summaryOf({audio(), Id3v1Builder().done()});
    EXPECT_EQ(summary.track, "");
    EXPECT_EQ(summary.genre, "");
    EXPECT_EQ(summary.tags, Names{"ID3v1"});
}

TEST_F(FileSummaryTest, TheTagsStandInTheOrderOfTheFile) {
    const auto lyrics = test::LyricsBuilder().field("LYR", "x").done();
    EXPECT_EQ(summaryOf({Id3v2Builder(3).text("TIT2", "a").done(), audio(), lyrics, record().done()}).tags,
              (Names{"ID3v2.3.0", "Lyrics3v2", "ID3v1.1"}));
    EXPECT_EQ(summaryOf({Id3v2Builder(4, 1).text("TIT2", "a").done(), audio(), lyrics}).tags,
              (Names{"ID3v2.4.1", "Lyrics3v2"}));
    EXPECT_EQ(summaryOf({audio(), test::lyricsV100("la"), record().done()}).tags, (Names{"Lyrics3v1", "ID3v1.1"}));
}

TEST_F(FileSummaryTest, TheAudioFactsAreThoseOfTheFirstFrame) {
    const FileSummary summary = summaryOf({audio()});
    EXPECT_EQ(summary.bitRateKbps, 128);
    EXPECT_EQ(summary.frequencyHz, 44100);
    EXPECT_EQ(summary.durationSeconds, 0);
    EXPECT_FALSE(summary.vbr);
}

TEST_F(FileSummaryTest, WithoutAFrameTheAudioFactsAreUnknown) {
    const FileSummary summary = summaryOf({ByteArray(500, 0), record().done()});
    EXPECT_EQ(summary.bitRateKbps, 0);
    EXPECT_EQ(summary.frequencyHz, 0);
    EXPECT_EQ(summary.durationSeconds, -1);
}

TEST_F(FileSummaryTest, AVbrFileThatTellsNoFrameCountHasAnUnknownBitRate) {
    const FileSummary summary = summaryOf({test::xingFrame({}, {.flags = 2, .frames = 0, .bytes = 9}), audio()});
    EXPECT_TRUE(summary.vbr);
    EXPECT_EQ(summary.bitRateKbps, -1);
    EXPECT_EQ(summary.durationSeconds, -1);
}

TEST_F(FileSummaryTest, WholeFramesOfATagThatCannotBeLoadedComeBeforeTheRecord) {
    const FileSummary summary =
        summaryOf({Id3v2Builder(3).text("TIT2", "New").claimedSize(1'000'000).done(), audio(), record().done()});
    EXPECT_EQ(summary.title, "New");
    EXPECT_EQ(summary.artist, "Artist");
    EXPECT_EQ(summary.tags, (Names{"ID3v2.3.0", "ID3v1.1"}));
}

TEST_F(FileSummaryTest, WholeFramesThatSayNothingLeaveTheirPlaceToTheRecord) {
    const FileSummary summary = summaryOf({Id3v2Builder(3)
                                               .frame("TIT2", test::bytesOf("no zlib stream"), 0x80)
                                               .frame("TPE1", test::bytesOf("\1secret"), 0x40)
                                               .claimedSize(1'000'000)
                                               .done(),
                                           audio(), record().done()});
    EXPECT_EQ(summary.title, "Old");
    EXPECT_EQ(summary.artist, "Artist");
}

TEST_F(FileSummaryTest, ADamagedTagOfAnotherVersionIsListedAndTheRecordTakesItsPlace) {
    const FileSummary summary =
        summaryOf({Id3v2Builder(4).text("TIT2", "New").claimedSize(1'000'000).done(), audio(), record().done()});
    EXPECT_EQ(summary.title, "Old");
    EXPECT_EQ(summary.tags, (Names{"ID3v2.4.0", "ID3v1.1"}));
}

TEST_F(FileSummaryTest, WhatIsNoMp3FileIsAFailure) {
    EXPECT_EQ(test::failureNumberOf([&] { summarize(folder_.path("none.mp3")); }), ENOENT);
    EXPECT_EQ(test::failureNumberOf([&] { summarize(folder_.path()); }), EISDIR);
    EXPECT_EQ(test::failureNumberOf([&] { summarize(folder_.write("a.mp3", test::bytesOf("PK\x03\x04"))); }),
              static_cast<std::int32_t>(FailureNumber::ObjectDefined));
}

} // namespace
} // namespace corvane::filesummary_test
