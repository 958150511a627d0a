#include "corvane/mpeg/FrameSearch.h"

#include "corvane/platform/FilePosition.h"
#include "corvane/platform/FileReader.h"
#include "corvane/platform/RuntimeFailure.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/MpegBuilder.h"
#include "tests/support/MpegSearchReference.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <random>

namespace corvane::framesearch_test {
namespace {

using test::ByteBuilder;
using test::referenceFirstFrame;
using test::ScratchFolder;

const ByteArray kHeader = test::mpegHeaderBytes({});

// The search in a file that lies in memory, as a 1-based position.
std::optional<std::int64_t> positionInMemory(Bytes file, std::int64_t startPosition) {
    const std::int64_t startOffset = offsetOf(startPosition);
    const std::size_t size = searchWindowSize(startOffset, file.size());
    if (size == 0) return std::nullopt;
    const auto found = findFrameHeader(file.subspan(static_cast<std::size_t>(startOffset), size));
    if (!found) return std::nullopt;
    return startPosition + static_cast<std::int64_t>(found->offset);
}

// The search in a file on disk, as a 1-based position.
std::optional<std::int64_t> positionOnDisk(const std::string& path, std::int32_t startPosition) {
    FileReader file(path);
    const auto found = findFirstFrame(file, startPosition);
    if (!found) return std::nullopt;
    return filePositionOf(static_cast<std::int64_t>(found->offset));
}

ByteArray zerosWith(std::size_t size, std::size_t headerOffset) {
    ByteArray file(size);
    for (std::size_t i = 0; i < kHeader.size() && headerOffset + i < size; ++i) file[headerOffset + i] = kHeader[i];
    return file;
}

TEST(SearchWindowSize, EndsTwoBytesBeforeTheEndOfTheFile) {
    EXPECT_EQ(searchWindowSize(0, 0), 0U);
    EXPECT_EQ(searchWindowSize(0, 2), 0U);
    EXPECT_EQ(searchWindowSize(0, 6), 4U);
    EXPECT_EQ(searchWindowSize(10, 16), 4U);
    EXPECT_EQ(searchWindowSize(14, 16), 0U);
    EXPECT_EQ(searchWindowSize(1000, 16), 0U);
    EXPECT_EQ(searchWindowSize(INT32_MAX, 16), 0U);
}

TEST(SearchWindowSize, HoldsAtMost15001Words) {
    EXPECT_EQ(searchWindowSize(0, 15'006), 15'004U);
    EXPECT_EQ(searchWindowSize(0, 15'007), 15'004U);
    EXPECT_EQ(searchWindowSize(5, UINT32_MAX), 15'004U);
    EXPECT_EQ(searchWindowSize(-1, 16), 15U);
}

TEST(FrameSearch, FindsTheHeaderAndItsWord) {
    const ByteArray window = test::joined({ByteArray(100), kHeader});
    EXPECT_EQ(findFrameHeader(window), (FoundFrame{100, HeaderWord(0xFFFB'9000)}));
}

TEST(FrameSearch, FindsTheFirstOfSeveral) {
    const ByteArray other = test::mpegHeaderBytes({.version = 2, .bitRateIndex = 5});
    EXPECT_EQ(findFrameHeader(test::joined({ByteArray(3), other, kHeader})),
              (FoundFrame{3, HeaderWord(test::headerWord({.version = 2, .bitRateIndex = 5}))}));
}

TEST(FrameSearch, AWindowSmallerThanAWordHasNone) {
    for (std::size_t size = 0; size < kHeader.size(); ++size) EXPECT_FALSE(findFrameHeader(Bytes(kHeader).first(size)));
}

TEST(FrameSearch, AHeaderMayOverlapTheWordsThatAreRefused) {
    for (std::size_t before = 0; before < 40; ++before) {
        const ByteArray window = test::joined({ByteArray(before, 0xFF), kHeader});
        ASSERT_EQ(findFrameHeader(window), (FoundFrame{before, HeaderWord(0xFFFB'9000)})) << before;
    }
}

TEST(FrameSearch, ThePositionStartPlus15000IsTheLastOne) {
    for (const std::size_t start : {std::size_t{1}, std::size_t{2}, std::size_t{4097}, std::size_t{70'001}}) {
        const std::size_t last = start - 1 + 15'000;
        EXPECT_EQ(positionInMemory(zerosWith(last + 100, last), static_cast<std::int64_t>(start)), start + 15'000);
        EXPECT_EQ(positionInMemory(zerosWith(last + 100, last + 1), static_cast<std::int64_t>(start)), std::nullopt);
    }
}

TEST(FrameSearch, TwoBytesMustFollowTheWord) {
    for (const std::size_t offset : {0U, 1U, 50U, 14'999U, 15'000U}) {
        EXPECT_EQ(positionInMemory(zerosWith(offset + 6, offset), 1), offset + 1);
        EXPECT_EQ(positionInMemory(zerosWith(offset + 5, offset), 1), std::nullopt);
        EXPECT_EQ(positionInMemory(zerosWith(offset + 4, offset), 1), std::nullopt);
    }
}

struct Case {
    const char* name;
    ByteArray alphabet; // bytes that are drawn from; empty for all 256
};

class FrameSearchTest : public testing::TestWithParam<Case> {
protected:
    ByteArray drawn(std::size_t size) {
        const ByteArray& alphabet = GetParam().alphabet;
        ByteArray bytes(size);
        for (auto& byte : bytes) {
            byte = alphabet.empty() ? static_cast<std::uint8_t>(random_()) : alphabet[random_() % alphabet.size()];
        }
        return bytes;
    }
    std::size_t below(std::size_t limit) { return random_() % limit; }

private:
    std::mt19937 random_{2026};
};

TEST_P(FrameSearchTest, GivesTheResultsOfTheStatedSearch) {
    for (int round = 0; round < 400; ++round) {
        const ByteArray file = drawn(below(round % 2 == 0 ? 64 : 20'000));
        const auto start = static_cast<std::int64_t>(1 + below(file.size() + 10));
        ASSERT_EQ(positionInMemory(file, start), referenceFirstFrame(file, start))
            << file.size() << " bytes from " << start << ", round " << round;
    }
}

TEST_P(FrameSearchTest, GivesTheResultsOfTheStatedSearchWithAFrameAtTheLimits) {
    for (int round = 0; round < 200; ++round) {
        const std::size_t startOffset = below(5000);
        ByteArray file = drawn(startOffset + 15'000 + below(12));
        const std::size_t at = std::min(startOffset + 14'990 + below(20), file.size() - 4);
        std::copy(kHeader.begin(), kHeader.end(), file.begin() + static_cast<std::ptrdiff_t>(at));
        const auto start = static_cast<std::int64_t>(startOffset + 1);
        ASSERT_EQ(positionInMemory(file, start), referenceFirstFrame(file, start)) << "round " << round;
    }
}

TEST_P(FrameSearchTest, GivesTheSameResultsOverBlocksOfAFile) {
    const ScratchFolder folder;
    for (int round = 0; round < 40; ++round) {
        ByteArray file = drawn(8000 + below(20'000));
        const std::size_t at = below(file.size() - 4);
        std::copy(kHeader.begin(), kHeader.end(), file.begin() + static_cast<std::ptrdiff_t>(at));
        const std::string path = folder.write("f", file);
        for (const std::size_t startOffset : {std::size_t{0}, below(4096), below(file.size())}) {
            const auto start = static_cast<std::int32_t>(startOffset + 1);
            ASSERT_EQ(positionOnDisk(path, start), referenceFirstFrame(file, start)) << start << ", round " << round;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Junk, FrameSearchTest,
                         testing::Values(Case{"AnyBytes", {}}, Case{"Zeros", {0}}, Case{"All0xFF", {0xFF}},
                                         Case{"Dense0xFF", {0xFF, 0xFF, 0xFF, 0xFF, 0xE0, 0xF0}},
                                         Case{"Sparse0xFF", {0xFF, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}},
                                         Case{"RefusedFrames", {0xFF, 0xFB, 0xE0, 0xF0, 0x20, 0x0F}},
                                         Case{"NearlyFrames", {0xFF, 0xFB, 0xEB, 0x90, 0x02, 0x0C}}),
                         [](const auto& tested) { return tested.param.name; });

// A search over a file reads blocks; a word may lie across two of them.
TEST(FirstFrameOfAFile, IsFoundAcrossTheEdgesOfBlocks) {
    const ScratchFolder folder;
    for (const std::int32_t start : {1, 2, 1000, 4040, 4044, 4045, 4046, 4090, 4093, 4094, 4096, 4097, 5000}) {
        const auto startOffset = static_cast<std::size_t>(start - 1);
        for (const std::size_t edge : {std::size_t{4096}, startOffset + 4096}) {
            for (std::size_t at = std::max(edge - 6, startOffset); at < edge + 3; ++at) {
                const std::string path = folder.write("f", zerosWith(30'000, at));
                ASSERT_EQ(positionOnDisk(path, start), at + 1) << "from " << start;
            }
        }
    }
}

TEST(FirstFrameOfAFile, EveryShorterPrefixFollowsTheRule) {
    const ScratchFolder folder;
    const ByteArray file = zerosWith(60, 40);
    for (std::size_t size = 0; size <= file.size(); ++size) {
        const Bytes prefix = Bytes(file).first(size);
        const auto found = positionOnDisk(folder.write("f", prefix), 1);
        EXPECT_EQ(found, size >= 46 ? std::optional<std::int64_t>(41) : std::nullopt) << size;
    }
}

TEST(FirstFrameOfAFile, AStartPastTheEndFindsNothing) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", test::mpegStream({}, 2));
    for (const std::int32_t start : {831, 834, 835, 100'000, INT32_MAX}) {
        EXPECT_EQ(positionOnDisk(path, start), std::nullopt) << start;
    }
}

TEST(FirstFrameOfAFile, AStartBeforeTheFileFails) {
    const ScratchFolder folder;
    for (const std::int32_t start : {0, -1, -20'000, INT32_MIN}) {
        FileReader file(folder.write("f", test::mpegStream({}, 2)));
        try {
            findFirstFrame(file, start);
            FAIL() << "the search did not fail from " << start;
        } catch (const RuntimeFailure& failure) {
            EXPECT_EQ(failure.number(), EINVAL);
            EXPECT_EQ(failure.source(), "read");
        }
    }
}

TEST(FirstFrameOfAFile, AStartBeforeTheFileFindsNothingInAFileThatIsTooShort) {
    const ScratchFolder folder;
    FileReader file(folder.write("f", Bytes(kHeader)));
    EXPECT_FALSE(findFirstFrame(file, 0));
}

TEST(FirstFrameOfAFile, AFileThatIsCutMeanwhileHasNoneInWhatIsGone) {
    const ScratchFolder folder;
    for (const std::size_t at : {2000U, 5000U}) {
        const std::string path = folder.write("f", zerosWith(30'000, at));
        FileReader file(path);
        std::filesystem::resize_file(path, at + 3);
        EXPECT_FALSE(findFirstFrame(file, 1));
    }
}

} // namespace
} // namespace corvane::framesearch_test
