// The compressed frames of one tag share one limit, whichever way the tag is read.
#include "tests/support/InflationLimit.h"

#include "corvane/id3v2/ID3V23TagInternals.h"
#include "corvane/id3v2/ReadableTag.h"
#include "corvane/platform/RuntimeFailure.h"

#include "tests/id3v2/LoadedFrames.h"
#include "tests/id3v2/TagOnDisk.h"
#include "tests/support/Failures.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace corvane::inflationlimit_test {
namespace {

using namespace test;

constexpr std::size_t kLimit = 25'000;
// Three comments of which two fit the limit, and a title behind them that fits what is left.
Id3v2Builder tagAboveTheLimit() {
    Id3v2Builder tag(3);
    for (const char* name : {"one", "two", "three"}) {
        tag.compressedFrame("COMM", commentFrame(name, std::string(10'000, name[0])));
    }
    return tag.compressedFrame("TIT2", textFrame("title")).text("TALB", "album");
}

TEST(InflationLimit, FramesBeyondItStayInAParsedTagAndCannotBeRead) {
    const ScopedInflationLimit limit(kLimit);
    const ScratchFolder folder;
    for (const bool isUnsynchronised : {false, true}) {
        Id3v2Builder tag = tagAboveTheLimit();
        if (isUnsynchronised) tag.unsynchronise();
        const auto frames = loadedFrames(folder.write("f", tag.done()));
        ASSERT_NE(frames, nullptr);
        ASSERT_EQ(frames->list(), "COMM;COMM;COMM;TIT2;TALB;");
        const auto all = frames->all();
        EXPECT_EQ(frames->payload(all[1]).bytes().size(), commentFrame("two", std::string(10'000, 't')).size());
        EXPECT_EQ(failureNumberOf([&] { frames->payload(all[2]); }), EFBIG);
        EXPECT_EQ(textOf(*frames, all[3]), "title") << "a frame that is too large uses nothing up";
        EXPECT_EQ(readableTag(*frames).title, "title");
    }
}

TEST(InflationLimit, IsThatOfTheProcessUntilAHostSetsAnother) {
    EXPECT_EQ(inflationLimit(), 64U * 1024 * 1024);
    const Id3v2Builder tag = tagAboveTheLimit();
    const ScratchFolder folder;
    const std::string path = folder.write("f", Id3v2Builder(tag).done());
    const auto frames = loadedFrames(path);
    EXPECT_EQ(failureNumberOf([&] { frames->payload(frames->all()[2]); }), 0);
}

TEST(InflationLimit, AFrameBeyondItIsARecordedFailureOfAParsedTag) {
    const ScopedInflationLimit limit(5'000);
    TagOnDisk file(Id3v2Builder(3).compressedFrame("TIT2", textFrame(std::string(10'000, 'x'))).text("TALB", "album"));
    ASSERT_TRUE(Internals<ID3V2Tag>::parse(file.tag));
    EXPECT_EQ(file.tag.Album(), "album");
    EXPECT_EQ(file.tag.Title(), "");
    EXPECT_EQ(lastErrorOf(*file.tag.ID3V23Tag()),
              std::to_string(EFBIG) + ", ID3v2 frame, The compressed frames of a tag may not make more than 5000 bytes "
                                      "beyond those of its file");
    EXPECT_EQ(failureNumberOf([&] { file.tag.xml(); }), EFBIG);
}

} // namespace
} // namespace corvane::inflationlimit_test
