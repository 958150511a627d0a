#include "corvane/platform/Drive.h"

#include "corvane/platform/RuntimeFailure.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/Failures.h"
#include "tests/support/Process.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>
#include <libmount.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>

namespace corvane::drive_test {
namespace {

using test::bytesOf;
using test::ScratchFolder;

TEST(Drive, IsTheMountThatHoldsTheFile) {
    const ScratchFolder folder;
    const std::string path = folder.write("a.mp3", bytesOf("a"));
    libmnt_table* table = mnt_new_table_from_file("/proc/self/mountinfo");
    libmnt_fs* mount = mnt_table_find_devno(table, test::statusOf(path).st_dev, MNT_ITER_BACKWARD);
    if (mount == nullptr) GTEST_SKIP() << "the file system of the temporary folder has no device number of its own";
    const auto drive = Drive::ofFile(path);
    EXPECT_EQ(drive->Path(), mnt_fs_get_target(mount));
    EXPECT_EQ(drive->FileSystem(), mnt_fs_get_fstype(mount));
    mnt_unref_table(table);
}

TEST(Drive, TellsItsSpaceInBytes) {
    const ScratchFolder folder;
    struct statvfs space {};
    ASSERT_EQ(::statvfs(folder.path().c_str(), &space), 0);
    const auto drive = Drive::ofFile(folder.write("a.mp3", bytesOf("a")));
    EXPECT_EQ(drive->TotalSize(), std::uint64_t{space.f_blocks} * space.f_frsize);
    EXPECT_GT(drive->TotalSize(), 0U);
    EXPECT_LE(drive->FreeSpace(), drive->TotalSize());
    EXPECT_LE(drive->AvailableSpace(), drive->FreeSpace());
    // Others may write meanwhile, but hardly a tenth of the drive.
    const auto free = static_cast<double>(space.f_bfree) * static_cast<double>(space.f_frsize);
    EXPECT_NEAR(static_cast<double>(drive->FreeSpace()), free, static_cast<double>(drive->TotalSize()) / 10);
}

TEST(Drive, HasNoLetter) {
    const ScratchFolder folder;
    EXPECT_EQ(Drive::ofFile(folder.path())->DriveLetter(), "");
}

TEST(Drive, AMemoryFileSystemIsARamDiskWithoutNamesOfItsOwn) {
    const ScratchFolder folder;
    const std::string place = folder.path("my drive");
    ASSERT_EQ(::mkdir(place.c_str(), 0700), 0);
    const int result = test::withSmallFileSystem(place.c_str(), 1024 * 1024, [&] {
        const auto drive = Drive::ofFile(folder.write("my drive/a.mp3", bytesOf("a")));
        EXPECT_EQ(drive->DriveType(), 5);
        EXPECT_EQ(drive->FileSystem(), "tmpfs");
        EXPECT_EQ(drive->Path(), place);
        EXPECT_EQ(drive->RootFolder(), place + "/");
        EXPECT_EQ(drive->TotalSize(), 1024U * 1024U);
        EXPECT_EQ(drive->FreeSpace(), drive->TotalSize() - static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE)));
        EXPECT_EQ(drive->VolumeName(), "");
        EXPECT_EQ(drive->SerialNumber(), "");
        EXPECT_EQ(drive->ShareName(), "");
        return testing::Test::HasFailure() ? 1 : 0;
    });
    if (result == test::kNoMount) GTEST_SKIP() << "no file system can be mounted here";
    EXPECT_EQ(result, 0);
}

TEST(Drive, TheRootFolderOfTheRootIsTheRoot) {
    const auto drive = Drive::ofFile("/");
    EXPECT_EQ(drive->Path(), "/");
    EXPECT_EQ(drive->RootFolder(), "/");
}

TEST(Drive, AFileThatIsNotThereIsAFailure) {
    const ScratchFolder folder;
    EXPECT_EQ(test::failureNumberOf([&] { Drive::ofFile(folder.path("none")); }), ENOENT);
    EXPECT_EQ(test::failureNumberOf([&] { Drive::ofFile(folder.path() + std::string(1, '\0')); }), EINVAL);
}

TEST(Drive, WhereTheSystemTellsNoMountsTheSizesAreStillKnown) {
    if (!test::isRoot()) GTEST_SKIP() << "only root can change the root folder";
    const ScratchFolder folder;
    folder.write("a.mp3", bytesOf("a"));
    const int result = test::inChild([&] {
        if (::chroot(folder.path().c_str()) != 0) return 2; // there is no /proc any more
        const auto drive = Drive::ofFile("/a.mp3");
        EXPECT_EQ(drive->DriveType(), 0);
        EXPECT_EQ(drive->Path(), "");
        EXPECT_EQ(drive->RootFolder(), "");
        EXPECT_GT(drive->TotalSize(), 0U);
        return testing::Test::HasFailure() ? 1 : 0;
    });
    EXPECT_EQ(result, 0);
}

} // namespace
} // namespace corvane::drive_test
