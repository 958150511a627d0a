#include "corvane/id3v230/KeptFrames.h"

#include "corvane/id3v230/RawFrame.h"
#include "corvane/platform/FileReader.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/Failures.h"
#include "tests/support/Process.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

namespace corvane::keptframes_test {
namespace {

using test::ScratchFolder;

RawFrame frameAt(std::uint64_t offset, std::uint32_t dataSize) {
    RawFrame frame;
    frame.offset = offset;
    frame.dataSize = dataSize;
    return frame;
}

// announced: bytes for which a place is asked.
class FramesKept : public testing::TestWithParam<std::uint64_t> {
protected:
    FramesKept() { ::setenv("TMPDIR", temporary.path().c_str(), 1); }
    ~FramesKept() override { ::unsetenv("TMPDIR"); }

    const ScratchFolder temporary;
    const ScratchFolder folder;
    const ByteArray content = test::countedBytes(300'000);
    const std::string path = folder.write("f", content);
};

TEST_P(FramesKept, AreThereWhenTheirFileIsGone) {
    KeptFrames kept(GetParam());
    {
        FileReader file(path);
        kept.keep(7, frameAt(20, 250'000), file);
        kept.keep(2, frameAt(0, 0), file);
        kept.keep(3, frameAt(100, 50), file);
    }
    ASSERT_EQ(::unlink(path.c_str()), 0);
    EXPECT_EQ(kept.data(7), ByteArray(content.begin() + 30, content.begin() + 250'030));
    EXPECT_EQ(kept.data(2), ByteArray());
    EXPECT_EQ(kept.data(3), ByteArray(content.begin() + 110, content.begin() + 160));
    EXPECT_EQ(kept.data(4), std::nullopt);
    EXPECT_TRUE(temporary.names().empty()) << "no name that could stay";
}

TEST_P(FramesKept, ThatTheFileDoesNotHoldWholeAreAFailure) {
    KeptFrames kept(GetParam());
    FileReader file(path);
    EXPECT_EQ(test::failureNumberOf([&] { kept.keep(1, frameAt(299'000, 5'000), file); }), EIO);
    EXPECT_EQ(kept.data(1), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Places, FramesKept, testing::Values(KeptFrames::kMostInMemory, KeptFrames::kMostInMemory + 1),
                         [](const auto& tested) {
                             return tested.param > KeptFrames::kMostInMemory ? "InAFile" : "InMemory";
                         });

TEST(KeptFrames, WithoutRoomAreAFailure) {
    const ScratchFolder folder;
    FileReader file(folder.write("f", ByteArray(300'000, 1)));
    KeptFrames kept(KeptFrames::kMostInMemory + 1);
    const test::LoweredFileSizeLimit limit(1000);
    EXPECT_EQ(test::failureNumberOf([&] { kept.keep(1, frameAt(0, 200'000), file); }), EFBIG);
}

} // namespace
} // namespace corvane::keptframes_test
