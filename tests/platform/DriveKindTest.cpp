#include "corvane/platform/DriveKind.h"

#include "corvane/platform/MountInfo.h"

#include <gtest/gtest.h>

namespace corvane::drivekind_test {
namespace {

struct Case {
    const char* name;
    const char* fileSystem;
    unsigned deviceMajor;
    bool isRemovable;
    int kind;
};

class KindOfDrive : public testing::TestWithParam<Case> {};

TEST_P(KindOfDrive, IsThatOfItsDeviceAndFileSystem) {
    Mount mount;
    mount.fileSystem = GetParam().fileSystem;
    mount.deviceMajor = GetParam().deviceMajor;
    EXPECT_EQ(static_cast<int>(driveKindOf(mount, GetParam().isRemovable)), GetParam().kind);
}

INSTANTIATE_TEST_SUITE_P(Mounts, KindOfDrive,
                         testing::Values(Case{"Nothing", "", 0, false, 0}, Case{"Proc", "proc", 0, false, 0},
                                         Case{"UnknownFuse", "fuse.unheardof", 0, false, 0},
                                         Case{"Stick", "vfat", 8, true, 1}, Case{"Disk", "ext4", 8, false, 2},
                                         Case{"DiskOfAnUnknownKind", "newfs", 259, false, 2},
                                         Case{"Btrfs", "btrfs", 0, false, 2},
                                         Case{"BtrfsOnAStick", "btrfs", 0, true, 1},
                                         Case{"Overlay", "overlay", 0, false, 2}, Case{"Zfs", "zfs", 0, false, 2},
                                         Case{"Nfs", "nfs", 0, false, 3}, Case{"Nfs4", "nfs4", 0, false, 3},
                                         Case{"Cifs", "cifs", 0, false, 3}, Case{"Sshfs", "fuse.sshfs", 0, false, 3},
                                         Case{"Plan9", "9p", 0, false, 3}, Case{"CompactDisc", "iso9660", 11, true, 4},
                                         Case{"Dvd", "udf", 11, false, 4}, Case{"ImageOfADisc", "iso9660", 7, false, 2},
                                         Case{"Tmpfs", "tmpfs", 0, false, 5}, Case{"Ramfs", "ramfs", 0, false, 5},
                                         Case{"MemoryDisk", "ext4", 1, false, 5}),
                         [](const auto& tested) { return tested.param.name; });

} // namespace
} // namespace corvane::drivekind_test
