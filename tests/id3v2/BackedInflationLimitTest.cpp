// The limit for what compressed frames make, in tags that can be changed.
#include "corvane/id3v2/ID3V23TagInternals.h"
#include "corvane/platform/RuntimeFailure.h"

#include "tests/id3v2/TagOnDisk.h"
#include "tests/support/Failures.h"
#include "tests/support/InflationLimit.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace corvane::backedinflationlimit_test {
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

TEST(BackedInflationLimit, AFrameBeyondItIsARecordedFailureOfATagThatCanBeChanged) {
    const ScopedInflationLimit limit(kLimit);
    TagOnDisk file(tagAboveTheLimit().compressedFrame("TPE1", textFrame(std::string(10'000, 'x'))));
    EXPECT_EQ(file.tag.Title(), "title");
    const auto reader = file.tag.ID3V23Tag();
    EXPECT_EQ(lastErrorOf(*reader), "0, , ");
    EXPECT_EQ(reader->FrameList(), "COMM;COMM;COMM;TIT2;TALB;TPE1;");
    EXPECT_EQ(reader->GetFrameByIndex(2)->Description(), "two");
    EXPECT_EQ(reader->GetFrameByIndex(3)->TextData(), "");
    EXPECT_TRUE(reader->GetFrameByIndex(3)->RawData().empty());
    EXPECT_EQ(file.tag.Artist(), "");
    EXPECT_EQ(lastErrorOf(*reader), std::to_string(EFBIG) +
                                        ", ID3v2 frame, The compressed frames of a tag may not make more than 25000 "
                                        "bytes beyond those of its file");
    EXPECT_EQ(failureNumberOf([&] { file.tag.xml(); }), EFBIG);
    TagOnDisk other(tagAboveTheLimit().compressedFrame("TPE1", textFrame(std::string(10'000, 'x'))));
    EXPECT_EQ(other.tag.ID3V23Tag()->GetText("TPE1"), "");
    EXPECT_TRUE(lastErrorOf(*other.tag.ID3V23Tag()).starts_with(std::to_string(EFBIG)));
}

TEST(BackedInflationLimit, AValueThatIsThereIsFoundBesideAFrameBeyondIt) {
    const ScopedInflationLimit limit(5'000);
    TagOnDisk file(Id3v2Builder(3)
                       .compressedFrame("COMM", commentFrame("", std::string(10'000, 'x')))
                       .frame("COMM", commentFrame("", "mine")));
    EXPECT_EQ(file.tag.Comment(), "mine");
    EXPECT_EQ(lastErrorOf(*file.tag.ID3V23Tag()), "0, , ");
}

TEST(BackedInflationLimit, FramesBeyondItAreCarriedOverByteForByte) {
    const ScopedInflationLimit limit(kLimit);
    TagOnDisk file(tagAboveTheLimit().padding(100));
    EXPECT_EQ(file.tag.Title(), "title");
    file.tag.Album("another");
    ASSERT_TRUE(file.tag.saveTag());
    EXPECT_TRUE(file.audioIsUntouched());
    const ScopedInflationLimit none(1'000'000);
    TagOnDisk again(contentOf(file.path()));
    EXPECT_EQ(again.tag.Album(), "another");
    EXPECT_EQ(again.tag.ID3V23Tag()->GetFrameByIndex(3)->TextData(), std::string(10'000, 't'));
}

} // namespace
} // namespace corvane::backedinflationlimit_test
