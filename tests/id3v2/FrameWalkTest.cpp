#include "corvane/id3v2/FrameWalk.h"

#include "tests/support/Id3v2Builder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace corvane::framewalk_test {
namespace {

using namespace test;

// Bytes that can be viewed up to `available`, as those of a file that is cut while it is read.
struct Source {
    Bytes bytes;
    std::size_t available = std::numeric_limits<std::size_t>::max();

    Bytes view(std::uint64_t position, std::size_t count) const {
        const Bytes all = bytes.first(std::min(available, bytes.size()));
        ByteReader rest = readerAt(all, static_cast<std::size_t>(position));
        return *rest.take(std::min(count, rest.left()));
    }
};

struct Walked {
    WalkEnd end;
    std::string frames; // "ID@position of the data+size" of each
};

template <class Layout>
Walked walk(Source source, std::uint64_t begin, std::uint64_t end, std::size_t refuseAt = 1000) {
    Walked walked;
    std::size_t count = 0;
    walked.end = walkFrames(Layout{}, source, begin, end, [&](const FrameHeader& header, std::uint64_t data) {
        walked.frames += header.id.text() + '@' + std::to_string(data) + '+' + std::to_string(header.size) + ' ';
        return count++ != refuseAt;
    });
    return walked;
}

ByteArray body() { return Id3v2Builder(3).text("TIT2", "title").text("TALB", "al").padding(20).body(); }

TEST(FrameWalk, GivesEveryFrameAndThePadding) {
    const ByteArray bytes = body();
    const auto walked = walk<Layout23>({bytes}, 0, bytes.size());
    EXPECT_EQ(walked.frames, "TIT2@10+6 TALB@26+3 ");
    EXPECT_TRUE(walked.end.isComplete);
    EXPECT_EQ(walked.end.position, 29U);
    EXPECT_EQ(walked.end.paddingSize, 19U);
}

TEST(FrameWalk, BeginsAndEndsWhereItIsTold) {
    const ByteArray bytes = body();
    const auto walked = walk<Layout23>({bytes}, 16, 29);
    EXPECT_EQ(walked.frames, "TALB@26+3 ");
    EXPECT_TRUE(walked.end.isComplete);
    EXPECT_EQ(walked.end.paddingSize, 0U);
    for (const std::uint64_t begin : {28U, 29U, 30U, 1000U}) {
        EXPECT_TRUE(walk<Layout23>({bytes}, begin, 29).end.isComplete);
        EXPECT_EQ(walk<Layout23>({bytes}, begin, 29).frames, "");
    }
}

TEST(FrameWalk, TellsWhereTheFirstFaultIs) {
    const ByteArray bytes = body();
    const auto cut = walk<Layout23>({bytes}, 0, 28);
    EXPECT_EQ(cut.frames, "TIT2@10+6 ");
    EXPECT_FALSE(cut.end.isComplete);
    EXPECT_EQ(cut.end.position, 16U);
    const auto refused = walk<Layout23>({bytes}, 0, bytes.size(), 1);
    EXPECT_FALSE(refused.end.isComplete);
    EXPECT_EQ(refused.end.position, 16U);
}

TEST(FrameWalk, EndsWhereTheSourceEnds) {
    const ByteArray bytes = body();
    for (std::size_t available = 0; available < 26; ++available) {
        const auto walked = walk<Layout23>({bytes, available}, 0, bytes.size());
        EXPECT_FALSE(walked.end.isComplete);
        EXPECT_EQ(walked.frames, available < 10 ? "" : "TIT2@10+6 ");
    }
}

TEST(FrameWalk, PositionsAreThoseOfTheSourceHoweverLarge) {
    struct Far { // a frame without data after each other, at the far end of a file
        Bytes view(std::uint64_t, std::size_t count) const { return Bytes(zeros).first(count); }
        ByteArray zeros = ByteArray(10, 1);
    } source;
    constexpr std::uint64_t kEnd = std::numeric_limits<std::uint64_t>::max() - 1;
    const auto end = walkFrames(Layout23{}, source, kEnd - 100, kEnd, [](const auto&, auto) { return true; });
    EXPECT_FALSE(end.isComplete); // the size 01010101 does not fit
    EXPECT_EQ(end.position, kEnd - 100);
}

// Every value of the size field that matters: the frame is taken when it fits, or else the tag is refused.
struct SizeCase {
    const char* name;
    std::uint32_t size;
    std::string frames;
    bool complete;
};
class FrameSize : public testing::TestWithParam<SizeCase> {};
TEST_P(FrameSize, MustFitTheBody) {
    const ByteArray bytes = ByteBuilder().text("TIT2").bigEndian(GetParam().size, 4).repeat(0, 2).repeat(0, 30).done();
    const auto walked = walk<Layout23>({bytes}, 0, bytes.size());
    EXPECT_EQ(walked.frames, GetParam().frames);
    EXPECT_EQ(walked.end.isComplete, GetParam().complete);
}
INSTANTIATE_TEST_SUITE_P(Sizes, FrameSize,
                         testing::Values(SizeCase{"Zero", 0, "", true}, SizeCase{"One", 1, "TIT2@10+1 ", true},
                                         SizeCase{"LeavesAFrameHeader", 20, "TIT2@10+20 ", true},
                                         SizeCase{"LeavesLessThanAFrameHeader", 21, "TIT2@10+21 ", false},
                                         SizeCase{"LeavesTwoBytes", 28, "TIT2@10+28 ", false},
                                         SizeCase{"LeavesOneByte", 29, "TIT2@10+29 ", true},
                                         SizeCase{"AllThatThereIs", 30, "TIT2@10+30 ", true},
                                         SizeCase{"OneMore", 31, "", false}, SizeCase{"Largest", 0x7FFFFFFF, "", false},
                                         SizeCase{"OverflowToZero", 0x80000000, "", true},
                                         SizeCase{"OverflowToTheLastByte", 0xFFFFFF05, "TIT2@10+5 ", true},
                                         SizeCase{"AllBitsSet", 0xFFFFFFFF, "", false}),
                         [](const auto& tested) { return tested.param.name; });

} // namespace
} // namespace corvane::framewalk_test
