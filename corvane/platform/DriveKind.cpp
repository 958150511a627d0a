#include "corvane/platform/DriveKind.h"

#include "corvane/platform/MountInfo.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace corvane {

namespace {

// Major numbers of devices (Linux allocated devices, admin-guide/devices.txt).
constexpr unsigned kMemoryDisk = 1;
constexpr unsigned kScsiCdRom = 11;

struct KnownFileSystem {
    std::string_view name;
    DriveKind kind;
};

// Kinds of file systems that tell more than their device, most of them because they have none.
constexpr std::array kKnown{
    KnownFileSystem{"9p", DriveKind::Network},
    KnownFileSystem{"afs", DriveKind::Network},
    KnownFileSystem{"bcachefs", DriveKind::Fixed},
    KnownFileSystem{"btrfs", DriveKind::Fixed},
    KnownFileSystem{"ceph", DriveKind::Network},
    KnownFileSystem{"cifs", DriveKind::Network},
    KnownFileSystem{"coda", DriveKind::Network},
    KnownFileSystem{"davfs", DriveKind::Network},
    KnownFileSystem{"devtmpfs", DriveKind::Memory},
    KnownFileSystem{"fuse.curlftpfs", DriveKind::Network},
    KnownFileSystem{"fuse.davfs", DriveKind::Network},
    KnownFileSystem{"fuse.glusterfs", DriveKind::Network},
    KnownFileSystem{"fuse.gvfsd-fuse", DriveKind::Network},
    KnownFileSystem{"fuse.rclone", DriveKind::Network},
    KnownFileSystem{"fuse.s3fs", DriveKind::Network},
    KnownFileSystem{"fuse.sshfs", DriveKind::Network},
    KnownFileSystem{"fuse.vmhgfs-fuse", DriveKind::Network},
    KnownFileSystem{"glusterfs", DriveKind::Network},
    KnownFileSystem{"lustre", DriveKind::Network},
    KnownFileSystem{"ncpfs", DriveKind::Network},
    KnownFileSystem{"nfs", DriveKind::Network},
    KnownFileSystem{"nfs4", DriveKind::Network},
    KnownFileSystem{"overlay", DriveKind::Fixed},
    KnownFileSystem{"ramfs", DriveKind::Memory},
    KnownFileSystem{"smb3", DriveKind::Network},
    KnownFileSystem{"smbfs", DriveKind::Network},
    KnownFileSystem{"tmpfs", DriveKind::Memory},
    KnownFileSystem{"vboxsf", DriveKind::Network},
    KnownFileSystem{"virtiofs", DriveKind::Network},
    KnownFileSystem{"zfs", DriveKind::Fixed},
};
static_assert(std::ranges::is_sorted(kKnown, {}, &KnownFileSystem::name));
static_assert(std::ranges::adjacent_find(kKnown, {}, &KnownFileSystem::name) == kKnown.end());

} // namespace

DriveKind driveKindOf(const Mount& mount, bool isRemovable) {
    if (mount.deviceMajor == kScsiCdRom) return DriveKind::Optical;
    if (mount.deviceMajor == kMemoryDisk) return DriveKind::Memory;
    if (isRemovable) return DriveKind::Removable;
    const auto known = std::ranges::lower_bound(kKnown, std::string_view(mount.fileSystem), {}, &KnownFileSystem::name);
    if (known != kKnown.end() && known->name == mount.fileSystem) return known->kind;
    return mount.deviceMajor != 0 ? DriveKind::Fixed : DriveKind::Unknown;
}

} // namespace corvane
