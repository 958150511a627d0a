#include "corvane/platform/MountInfo.h"

#include "corvane/platform/FileStatus.h"

#include <gtest/gtest.h>
#include <libmount.h>
#include <sys/sysmacros.h>

namespace corvane::mountinfo_test {
namespace {

constexpr std::string_view kTable = R"(21 27 0:21 / /proc rw,relatime - proc proc rw
27 1 254:0 / / rw,relatime shared:1 - ext4 /dev/vda rw,discard
28 27 8:17 / /media/my\040stick\134x rw - vfat /dev/sdb1 rw
29 27 0:50 / /mnt/music rw shared:5 master:2 propagate_from:1 - nfs4 server:/music\040files rw,addr=10.0.0.1
30 29 0:51 / /mnt/music rw - tmpfs tmpfs rw
31 27 0:52 / /srv rw - cifs //server/share rw
32 27 0:53 / /nosource rw - fuse  rw
)";

struct Case {
    const char* name;
    std::uint64_t number;
    unsigned deviceMajor;
    unsigned deviceMinor;
    const char* target;
    const char* fileSystem;
    const char* source;
};

class MountRow : public testing::TestWithParam<Case> {};

TEST_P(MountRow, IsFoundByItsNumber) {
    const auto mount = mountOfNumber(kTable, GetParam().number);
    ASSERT_TRUE(mount.has_value());
    EXPECT_EQ(mount->deviceMajor, GetParam().deviceMajor);
    EXPECT_EQ(mount->deviceMinor, GetParam().deviceMinor);
    EXPECT_EQ(mount->target, GetParam().target);
    EXPECT_EQ(mount->fileSystem, GetParam().fileSystem);
    EXPECT_EQ(mount->source, GetParam().source);
}

INSTANTIATE_TEST_SUITE_P(Rows, MountRow,
                         testing::Values(Case{"Root", 27, 254, 0, "/", "ext4", "/dev/vda"},
                                         Case{"WithoutOptionalFields", 21, 0, 21, "/proc", "proc", "proc"},
                                         Case{"EscapedNames", 28, 8, 17, "/media/my stick\\x", "vfat", "/dev/sdb1"},
                                         Case{"ThreeOptionalFields", 29, 0, 50, "/mnt/music", "nfs4",
                                              "server:/music files"},
                                         Case{"EmptySource", 32, 0, 53, "/nosource", "fuse", ""}),
                         [](const auto& tested) { return tested.param.name; });

struct PathCase {
    const char* name;
    const char* path;
    const char* fileSystem; // "" when nothing is found
};

class MountOfPath : public testing::TestWithParam<PathCase> {};

TEST_P(MountOfPath, IsTheInnermostAndLatestAboveThePath) {
    const auto mount = mountOfPath(kTable, GetParam().path);
    EXPECT_EQ(mount ? mount->fileSystem : "", GetParam().fileSystem);
}

INSTANTIATE_TEST_SUITE_P(Paths, MountOfPath,
                         testing::Values(PathCase{"InTheRoot", "/a.mp3", "ext4"}, PathCase{"TheRoot", "/", "ext4"},
                                         PathCase{"BelowAMount", "/media/my stick\\x/rock/a.mp3", "vfat"},
                                         PathCase{"AMountItself", "/srv", "cifs"},
                                         PathCase{"ANameThatOnlyBeginsLikeAMount", "/srv2/a.mp3", "ext4"},
                                         PathCase{"CoveredByALaterMount", "/mnt/music/a.mp3", "tmpfs"},
                                         PathCase{"Relative", "a.mp3", ""}, PathCase{"Nothing", "", ""}),
                         [](const auto& tested) { return tested.param.name; });

TEST(MountInfo, AnUnknownNumberIsNothing) {
    EXPECT_FALSE(mountOfNumber(kTable, 99).has_value());
    EXPECT_FALSE(mountOfNumber("", 27).has_value());
}

TEST(MountInfo, EveryShorterPrefixOfARowIsReadOrRefused) {
    constexpr std::string_view kRow = "29 27 0:50 / /mnt/music rw shared:5 - nfs4 server:/music rw";
    const std::size_t behindTheDash = kRow.find("nfs4");
    for (std::size_t size = 0; size <= kRow.size(); ++size) {
        const auto row = kRow.substr(0, size);
        EXPECT_EQ(mountOfNumber(row, 29).has_value(), size >= behindTheDash) << row;
        EXPECT_EQ(mountOfPath(row, "/mnt/music/a").has_value(), size >= behindTheDash) << row;
    }
}

TEST(MountInfo, AMalformedRowIsNothing) {
    EXPECT_FALSE(mountOfNumber("29 27 x:50 / /mnt rw - ext4 /dev/sda rw", 29).has_value());
    EXPECT_FALSE(mountOfNumber("29 27 8:-1 / /mnt rw - ext4 /dev/sda rw", 29).has_value());
    EXPECT_FALSE(mountOfNumber("29 27 8:99999999999 / /mnt rw - ext4 /dev/sda rw", 29).has_value());
    EXPECT_FALSE(mountOfNumber("29 27 8:1 / /mnt rw ext4 /dev/sda rw", 29).has_value());
}

TEST(MountInfo, AnIncompleteEscapeStaysAsItStands) {
    EXPECT_EQ(mountOfNumber(R"(1 1 8:1 / /a\04 rw - ext4 \ rw)", 1)->target, "/a\\04");
    EXPECT_EQ(mountOfNumber(R"(1 1 8:1 / /a\089 rw - ext4 \ rw)", 1)->source, "\\");
}

// libmount reads the same table of this machine; every row must come out the same.
TEST(MountInfo, AgreesWithLibmountOnEveryMountOfThisMachine) {
    libmnt_table* table = mnt_new_table_from_file("/proc/self/mountinfo");
    ASSERT_NE(table, nullptr);
    libmnt_iter* rows = mnt_new_iter(MNT_ITER_FORWARD);
    const std::string ours = mountTable();
    int count = 0;
    for (libmnt_fs* row = nullptr; mnt_table_next_fs(table, rows, &row) == 0; ++count) {
        const auto mount = mountOfNumber(ours, static_cast<std::uint64_t>(mnt_fs_get_id(row)));
        ASSERT_TRUE(mount.has_value()) << mnt_fs_get_target(row);
        EXPECT_EQ(mount->target, mnt_fs_get_target(row));
        EXPECT_EQ(mount->fileSystem, mnt_fs_get_fstype(row));
        EXPECT_EQ(makedev(mount->deviceMajor, mount->deviceMinor), mnt_fs_get_devno(row));
        const char* source = mnt_fs_get_source(row);
        EXPECT_EQ(mount->source, source == nullptr ? "none" : source) << mount->target;
    }
    EXPECT_GT(count, 0);
    mnt_free_iter(rows);
    mnt_unref_table(table);
}

TEST(MountInfo, BothWaysLeadToTheSameMountOfAFile) {
    const FileStatus status = fileStatusOf("/proc/self/status");
    if (!status.mountNumber) GTEST_SKIP() << "this system does not tell the mount of a file";
    const auto byNumber = mountOfNumber(mountTable(), *status.mountNumber);
    const auto byPath = mountOfPath(mountTable(), "/proc/1/status");
    ASSERT_TRUE(byNumber && byPath);
    EXPECT_EQ(byNumber->target, byPath->target);
    EXPECT_EQ(byNumber->fileSystem, "proc");
}

} // namespace
} // namespace corvane::mountinfo_test
