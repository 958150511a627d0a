#include "corvane/platform/FileReader.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/Failures.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <vector>

namespace corvane::filereader_test {
namespace {

using test::ScratchFolder;

std::int32_t failureOfOpening(const std::string& path) {
    return test::failureNumberOf([&] { FileReader reader(path); });
}

TEST(FileReader, EveryViewEqualsTheFile) {
    const ScratchFolder folder;
    const ByteArray content = test::countedBytes(20'000);
    FileReader reader(folder.write("f", content));
    EXPECT_EQ(reader.size(), content.size());
    for (const std::size_t offset : {0U, 1U, 4090U, 4096U, 10'000U, 19'999U, 100U}) {
        for (const std::size_t count : {0U, 1U, 10U, 4096U, 9'000U}) {
            const std::size_t expected = std::min(count, content.size() - offset);
            const Bytes view = reader.view(offset, count);
            ASSERT_EQ(view.size(), expected);
            EXPECT_TRUE(std::equal(view.begin(), view.end(), content.begin() + static_cast<std::ptrdiff_t>(offset)));
            EXPECT_EQ(reader.read(offset, count), ByteArray(view.begin(), view.end()));
        }
    }
}

struct StepCase {
    const char* name;
    std::vector<std::uint64_t> viewed; // ten bytes at each of these offsets, in this order
    std::size_t atHand;                // bytes from the last of them on
};
class FileReaderStep : public testing::TestWithParam<StepCase> {};
TEST_P(FileReaderStep, ReadsWhatIsLikelyToBeUsed) {
    const ScratchFolder folder;
    FileReader reader(folder.write("f", test::countedBytes(50'000)));
    for (const std::uint64_t offset : GetParam().viewed) reader.view(offset, 10);
    EXPECT_EQ(reader.atHand(GetParam().viewed.back()), GetParam().atHand);
}
INSTANTIATE_TEST_SUITE_P(Steps, FileReaderStep,
                         testing::Values(StepCase{"First", {0}, 4096}, StepCase{"Jump", {20'000}, 1024},
                                         StepCase{"BehindTheFirstBlock", {0, 4096}, 4096},
                                         StepCase{"BehindAJump", {20'000, 21'024}, 4096},
                                         StepCase{"OverTheEndOfABlock", {20'000, 21'020}, 4096},
                                         StepCase{"JumpNearTheEnd", {47'000}, 3'000},
                                         StepCase{"LastRecord", {49'872}, 128}),
                         [](const auto& tested) { return tested.param.name; });

TEST(FileReader, TheRecordsThatEndAFileComeAtOnceAndAlone) {
    const ScratchFolder folder;
    FileReader reader(folder.write("f", test::countedBytes(50'000)));
    reader.view(49'872, 128);
    EXPECT_EQ(reader.atHand(49'744), 256U);
    EXPECT_EQ(reader.atHand(49'743), 0U);
}

TEST(FileReader, NothingIsReadPastTheEnd) {
    const ScratchFolder folder;
    FileReader reader(folder.write("f", test::countedBytes(100)));
    EXPECT_EQ(reader.view(90, 100).size(), 10U);
    EXPECT_TRUE(reader.view(100, 1).empty());
    EXPECT_TRUE(reader.view(UINT64_MAX, 1).empty());
    EXPECT_TRUE(reader.read(UINT64_MAX, 1).empty());
}

TEST(FileReader, AFileThatIsCutWhileItIsReadGivesWhatIsLeft) {
    const ScratchFolder folder;
    const ByteArray content = test::countedBytes(20'000);
    const std::string path = folder.write("f", content);
    FileReader reader(path);
    ASSERT_EQ(::truncate(path.c_str(), 10'010), 0);
    EXPECT_EQ(reader.view(10'000, 100).size(), 10U);
    EXPECT_TRUE(reader.view(19'990, 10).empty());
    EXPECT_TRUE(reader.view(12'000, 8'000).empty());
    EXPECT_EQ(reader.read(10'000, 100).size(), 10U);
}

TEST(FileReader, AnEmptyFileGivesNothing) {
    const ScratchFolder folder;
    FileReader reader(folder.write("f", {}));
    EXPECT_TRUE(reader.view(0, 10).empty());
}

TEST(FileReader, TellsWhetherTheFileWasChangedSinceItWasOpened) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", ByteArray(100));
    const FileReader reader(path);
    EXPECT_TRUE(reader.isUnchanged());
    folder.write("f", ByteArray(101));
    EXPECT_FALSE(reader.isUnchanged());
}

TEST(FileReader, AMissingFileFailsWithTheNumberOfTheSystem) {
    const ScratchFolder folder;
    EXPECT_EQ(failureOfOpening(folder.path("none")), ENOENT);
}

TEST(FileReader, ANameIsNotCutAtANulByte) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", ByteArray(10, 7));
    EXPECT_EQ(test::failureNumberOf([&] { FileReader file(path + std::string("\0x", 2)); }), EINVAL);
}

TEST(FileReader, WhatIsNoRegularFileIsRefusedAtOnce) {
    const ScratchFolder folder;
    ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(failureOfOpening(folder.path()), EISDIR);
    EXPECT_EQ(failureOfOpening(folder.path("pipe")), EINVAL);
    EXPECT_EQ(failureOfOpening("/dev/null"), EINVAL);
}

} // namespace
} // namespace corvane::filereader_test
