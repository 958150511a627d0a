#include "corvane/platform/ByteCopy.h"

#include "corvane/platform/Descriptor.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/Failures.h"
#include "tests/support/Process.h"
#include "tests/support/ScratchFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>

namespace corvane::bytecopy_test {
namespace {

using test::bytesOf;
using test::contentOf;
using test::ScratchFolder;

Descriptor opened(const std::string& path) { return Descriptor(::open(path.c_str(), O_RDWR | O_CREAT, 0600)); }

struct Case {
    const char* name;
    std::uint64_t sourceOffset;
    std::uint64_t targetOffset;
    std::uint64_t count;
};

class CopyRange : public testing::TestWithParam<Case> {
protected:
    // What stands in the target afterwards; it held ten bytes "t" before.
    ByteArray expected() const {
        const auto& [name, sourceOffset, targetOffset, count] = GetParam();
        ByteArray bytes(10, 't');
        const auto from = content.begin() + static_cast<std::ptrdiff_t>(sourceOffset);
        if (count > 0) bytes.resize(std::max<std::size_t>(bytes.size(), targetOffset + count));
        std::copy(from, from + static_cast<std::ptrdiff_t>(count),
                  bytes.begin() + static_cast<std::ptrdiff_t>(targetOffset));
        return bytes;
    }

    ScratchFolder folder;
    ByteArray content = test::countedBytes(350'000);
    std::string path = folder.write("source", content);
};

TEST_P(CopyRange, CopiesExactlyTheRange) {
    const std::string target = folder.write("target", ByteArray(10, 't'));
    const auto& tested = GetParam();
    copyRange(opened(path).number(), tested.sourceOffset, opened(target).number(), tested.targetOffset, tested.count);
    EXPECT_EQ(contentOf(target), expected());
}

// The system cannot copy into a file of another kind of file system; the bytes then go through a block of memory.
TEST_P(CopyRange, CopiesTheSameWhereTheSystemCannotDoIt) {
    const Descriptor memory(::memfd_create("target", 0));
    ASSERT_TRUE(memory.isOpen());
    writeAt(memory.number(), 0, ByteArray(10, 't'));
    const auto& tested = GetParam();
    copyRange(opened(path).number(), tested.sourceOffset, memory.number(), tested.targetOffset, tested.count);
    EXPECT_EQ(contentOf("/proc/self/fd/" + std::to_string(memory.number())), expected());
}

INSTANTIATE_TEST_SUITE_P(Ranges, CopyRange,
                         testing::Values(Case{"Nothing", 5, 5, 0}, Case{"OneByte", 349'999, 3, 1},
                                         Case{"ExactlyABlock", 0, 10, kCopyBlockSize},
                                         Case{"OneMoreThanABlock", 7, 10, kCopyBlockSize + 1},
                                         Case{"TheWholeFile", 0, 0, 350'000}, Case{"BehindAGap", 100'000, 20'000, 7}),
                         [](const auto& tested) { return tested.param.name; });

TEST(ByteCopy, ASourceThatEndsTooEarlyIsAFailure) {
    const ScratchFolder folder;
    const Descriptor source = opened(folder.write("source", ByteArray(1000, 1)));
    const Descriptor target = opened(folder.path("target"));
    EXPECT_EQ(test::failureNumberOf([&] { copyRange(source.number(), 0, target.number(), 0, 1001); }), EIO);
    EXPECT_EQ(test::failureNumberOf([&] { copyRange(source.number(), 2000, target.number(), 0, 1); }), EIO);
}

TEST(ByteCopy, AFileMayBeCopiedBehindItself) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", test::countedBytes(300'000));
    const Descriptor file = opened(path);
    copyRange(file.number(), 0, file.number(), 300'000, 300'000);
    EXPECT_EQ(contentOf(path), test::joined({test::countedBytes(300'000), test::countedBytes(300'000)}));
}

TEST(ByteCopy, WritingMoreThanFitsIsAFailure) {
    const Descriptor full(::open("/dev/full", O_WRONLY));
    EXPECT_EQ(test::failureNumberOf([&] { writeAt(full.number(), 0, bytesOf("x")); }), ENOSPC);
    const ScratchFolder folder;
    const Descriptor source = opened(folder.write("source", ByteArray(1000, 1)));
    EXPECT_EQ(test::failureNumberOf([&] { copyRange(source.number(), 0, full.number(), 0, 1000); }), ENOSPC);
}

// A file of `size` bytes that has data only where it is written to.
class SparseFile {
public:
    SparseFile(const ScratchFolder& folder, std::uint64_t size) : file_(opened(folder.path("sparse"))) {
        EXPECT_EQ(::ftruncate(file_.number(), static_cast<off_t>(size)), 0);
    }
    void write(std::uint64_t offset, std::string_view text) const { writeAt(file_.number(), offset, bytesOf(text)); }
    int number() const { return file_.number(); }

private:
    Descriptor file_;
};

std::string textAt(int file, std::uint64_t offset, std::size_t size) {
    std::string text(size, '?');
    const auto got = ::pread(file, text.data(), size, static_cast<off_t>(offset));
    text.resize(got < 0 ? 0 : static_cast<std::size_t>(got));
    return text;
}

constexpr std::uint64_t kHuge = 4'500'000'000;

TEST(AppendRange, LeavesTheHolesOfALargeFileHoles) {
    const ScratchFolder folder;
    const SparseFile source(folder, kHuge);
    source.write(0, "front");
    source.write(3'000'000'000, "middle");
    const Descriptor target = opened(folder.write("target", bytesOf("old")));
    appendRange(source.number(), 2, target.number(), 3, kHuge - 2);
    EXPECT_EQ(textAt(target.number(), 0, 6), "oldont");
    EXPECT_EQ(textAt(target.number(), 3'000'000'000 + 1, 6), "middle");
    EXPECT_EQ(textAt(target.number(), kHuge, 10), std::string(1, '\0')) << "it ends with a hole";
    EXPECT_LT(test::statusOf(folder.path("target")).st_blocks, 10'000);
}

TEST(AppendRange, CopiesARangeThatBeginsAndEndsInHoles) {
    const ScratchFolder folder;
    const SparseFile source(folder, kHuge);
    source.write(1'000'000'000, "data");
    const Descriptor target = opened(folder.path("target"));
    appendRange(source.number(), 999'999'990, target.number(), 0, 24);
    EXPECT_EQ(textAt(target.number(), 0, 99), std::string(10, '\0') + "data" + std::string(10, '\0'));
}

TEST(AppendRange, ALargeFileThatEndsBeforeTheRangeDoesIsAFailure) {
    const ScratchFolder folder;
    const SparseFile source(folder, kHuge);
    const Descriptor target = opened(folder.path("target"));
    EXPECT_EQ(test::failureNumberOf([&] { appendRange(source.number(), 0, target.number(), 0, kHuge + 1); }), EIO);
}

TEST(AppendRange, CopiesASmallFileByteForByte) {
    const ScratchFolder folder;
    const ByteArray content = test::countedBytes(350'000);
    const Descriptor source = opened(folder.write("source", content));
    const Descriptor target = opened(folder.write("target", bytesOf("old")));
    appendRange(source.number(), 5, target.number(), 3, content.size() - 5);
    EXPECT_EQ(contentOf(folder.path("target")), test::joined({bytesOf("old"), Bytes(content).subspan(5)}));
    EXPECT_EQ(test::failureNumberOf([&] { appendRange(source.number(), 1, target.number(), 0, content.size()); }), EIO);
}

} // namespace
} // namespace corvane::bytecopy_test
