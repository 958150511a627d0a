#include "corvane/id3v230/LibraryFrames.h"

#include "tests/support/Failures.h"

#include <gtest/gtest.h>

namespace corvane::libraryframes_test {
namespace {

using namespace test;
using namespace std::string_literals;

WantedFrame commentOf(const std::string& text) {
    FrameToWrite frame;
    frame.frame = ID3_FrameID::ID3FID_COMMENT;
    frame.value = text;
    return wantedFrame(frame);
}

TEST(LibraryFrames, AreOneForEachThatIsWanted) {
    const std::vector<WantedFrame> wanted{commentOf("one"), commentOf("two"), commentOf("one")};
    const std::vector<ByteArray> made = libraryFrames(wanted);
    ASSERT_EQ(made.size(), 3U);
    EXPECT_EQ(made[0], made[2]);
    EXPECT_NE(made[0], made[1]);
}

// id3lib cuts a text at a zero and tells nothing of it.
TEST(LibraryFrames, ThatSayLessThanWasWantedAreRefused) {
    const std::vector<WantedFrame> wanted{commentOf("one"), commentOf("two\0three"s)};
    const auto failure = failureOf([&] { libraryFrames(wanted); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->number(), 4);
    EXPECT_TRUE(failure->description().starts_with("COMM: ")) << failure->description();
}

} // namespace
} // namespace corvane::libraryframes_test
