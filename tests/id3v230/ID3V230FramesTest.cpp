#include "corvane/id3v230/ID3V230Frames.h"

#include "corvane/id3v230/ID3V230.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

namespace corvane::id3v230frames_test {
namespace {

ID3V230& withTitle(ID3V230& tag) {
    tag.Title("a title");
    return tag;
}

// So many that no room which the list happens to have is enough for them.
void addRecords(ID3V230& tag) {
    tag.Artist("an artist");
    tag.Album("an album");
    tag.Genre("Rock");
    tag.Composer("a composer");
    tag.Comments("a comment");
    tag.Copyright("somebody");
    tag.EncodedBy("somebody");
    tag.UserText("text");
    tag.UserURL("http://a");
}

TEST(ID3V230Frames, AreIteratedInOrder) {
    ID3V230 tag;
    EXPECT_EQ(tag.Frames()->begin(), tag.Frames()->end());
    addRecords(tag);
    std::int32_t position = 0;
    for (const auto& record : *tag.Frames()) EXPECT_EQ(record, tag.Frames()->Item(++position));
    EXPECT_EQ(position, 9);
    static_assert(std::forward_iterator<decltype(tag.Frames()->begin())>);
    EXPECT_EQ(std::distance(tag.Frames()->begin(), tag.Frames()->end()), 9);
}

TEST(ID3V230Frames, MayGetMoreRecordsWhileTheyAreIterated) {
    ID3V230 tag;
    withTitle(tag);
    std::vector<std::string> met;
    for (const auto& record : *tag.Frames()) {
        addRecords(tag);
        met.push_back(record->FrameAbbr());
    }
    EXPECT_EQ(met, std::vector<std::string>{"TIT2"}) << "those that were there at the beginning";
    EXPECT_EQ(tag.Frames()->Count(), 10);
}

TEST(ID3V230Frames, KeepTheirIteratorsWhenTheyGetMoreRecords) {
    ID3V230 tag;
    withTitle(tag);
    const auto frames = tag.Frames();
    auto at = frames->begin();
    const auto& first = *at;
    addRecords(tag);
    EXPECT_EQ(first->FrameAbbr(), "TIT2");
    EXPECT_EQ((*at)->FrameAbbr(), "TIT2");
    EXPECT_EQ((*++at)->FrameAbbr(), "TPE1");
    EXPECT_EQ(std::distance(at, frames->end()), 9);
}

} // namespace
} // namespace corvane::id3v230frames_test
