#include "corvane/platform/OwnInode.h"

#include "corvane/platform/FileReplacement.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/Failures.h"
#include "tests/support/Process.h"
#include "tests/support/ScratchFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace corvane::owninode_test {
namespace {

using test::bytesOf;
using test::contentOf;
using test::failureNumberOf;
using test::ScratchFolder;
using test::statusOf;
using Names = std::vector<std::string>;

// How a file with several names is changed: every name shows the new content.
struct LinkCase {
    const char* name;
    const char* oldContent;
    std::uint64_t keptPrefix;
    const char* appended;
    const char* newContent;
};

class HardLinks : public testing::TestWithParam<LinkCase> {};

TEST_P(HardLinks, AllShowTheNewContent) {
    const ScratchFolder folder;
    const ScratchFolder other;
    const std::string path = folder.write("f", bytesOf(GetParam().oldContent));
    ASSERT_EQ(::link(path.c_str(), other.path("second").c_str()), 0);
    ASSERT_EQ(::chmod(path.c_str(), 0640), 0);
    const struct stat before = statusOf(path);
    FileReplacement replacement(path);
    replacement.copy(0, GetParam().keptPrefix);
    replacement.append(bytesOf(GetParam().appended));
    replacement.commit();
    EXPECT_EQ(contentOf(path), bytesOf(GetParam().newContent));
    EXPECT_EQ(contentOf(other.path("second")), bytesOf(GetParam().newContent));
    EXPECT_EQ(statusOf(path).st_ino, before.st_ino);
    EXPECT_EQ(statusOf(path).st_mode, before.st_mode);
    EXPECT_EQ(folder.names(), Names{"f"});
    EXPECT_EQ(other.names(), Names{"second"});
}

INSTANTIATE_TEST_SUITE_P(Changes, HardLinks,
                         testing::Values(LinkCase{"Cut", "0123456789", 6, "", "012345"},
                                         LinkCase{"CutToNothing", "0123456789", 0, "", ""},
                                         LinkCase{"Same", "0123", 4, "", "0123"},
                                         LinkCase{"Grown", "0123", 4, "4567", "01234567"},
                                         LinkCase{"NewTail", "0123456789", 4, "xyz", "0123xyz"},
                                         LinkCase{"AllNewAndShorter", "0123456789", 0, "xyz", "xyz"},
                                         LinkCase{"AllNewAndLonger", "0123", 0, "uvwxyz", "uvwxyz"},
                                         LinkCase{"OutOfNothing", "", 0, "xyz", "xyz"}),
                         [](const auto& tested) { return tested.param.name; });

TEST(OwnInode, TheFileMayKeepItsModificationTime) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", bytesOf("0123"));
    ASSERT_EQ(::link(path.c_str(), folder.path("g").c_str()), 0);
    const timespec old[2] = {{1'000'000'000, 5}, {1'000'000'000, 5}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), old, 0), 0);
    FileReplacement replacement(path);
    replacement.append(bytesOf("xyz"));
    replacement.keepModificationTime();
    replacement.commit();
    EXPECT_EQ(statusOf(path).st_mtim.tv_sec, 1'000'000'000);
    EXPECT_EQ(contentOf(folder.path("g")), bytesOf("xyz"));
}

TEST(OwnInode, TheOldContentComesBackWhenTheNewDoesNotFit) {
    const ScratchFolder folder;
    const ByteArray content = test::countedBytes(200'000);
    const std::string path = folder.write("f", content);
    ASSERT_EQ(::link(path.c_str(), folder.path("g").c_str()), 0);
    const auto status = statusOf(path);
    FileReplacement replacement(path);
    replacement.append(ByteArray(100, 'x'));
    replacement.copy(0, content.size());
    {
        // The copy beside the file is whole; the file itself cannot grow.
        const test::LoweredFileSizeLimit limit(200'050);
        EXPECT_EQ(failureNumberOf([&] { replacement.commit(); }), EFBIG);
    }
    EXPECT_EQ(contentOf(path), content);
    EXPECT_EQ(statusOf(path).st_mtim.tv_nsec, status.st_mtim.tv_nsec);
    EXPECT_EQ(folder.names(), (Names{"f", "g"}));
}

TEST(OwnInode, AFullDiskDoesNotHurtAFileThatGrows) {
    const ScratchFolder folder;
    const std::string place = folder.path("small");
    ASSERT_EQ(::mkdir(place.c_str(), 0700), 0);
    const int result = test::withSmallFileSystem(place.c_str(), 256 * 1024, [&] {
        // The copy fits, the backup fits, and then there is no room for the file to grow.
        const ByteArray content = test::countedBytes(40'000);
        const std::string path = folder.write("small/f", content);
        if (::link(path.c_str(), (path + "2").c_str()) != 0) return 1;
        FileReplacement replacement(path);
        replacement.append(ByteArray(140'000, 'x'));
        if (failureNumberOf([&] { replacement.commit(); }) != ENOSPC) return 2;
        if (contentOf(path) != content || contentOf(path + "2") != content) return 3;
        return test::namesIn(place).size() == 2 ? 0 : 4;
    });
    if (result == test::kNoMount) GTEST_SKIP() << "no file system can be mounted here";
    EXPECT_EQ(result, 0);
}

} // namespace
} // namespace corvane::owninode_test
