#include "corvane/platform/Drive.h"

#include "corvane/platform/BlockDevice.h"
#include "corvane/platform/DriveKind.h"
#include "corvane/platform/FileStatus.h"
#include "corvane/platform/MountInfo.h"
#include "corvane/platform/Paths.h"
#include "corvane/platform/RuntimeFailure.h"

#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/sysmacros.h>

#include <cerrno>
#include <limits>
#include <optional>

namespace corvane {

namespace {

std::optional<Mount> mountOf(const std::string& path) {
    const FileStatus status = fileStatusOf(path);
    const std::string table = mountTable();
    return status.mountNumber ? mountOfNumber(table, *status.mountNumber) : mountOfPath(table, resolvedPath(path));
}

// The block device of a mount. A file system that may lie on several devices tells a number of its own and names one
// of the devices as its source.
std::optional<dev_t> blockDeviceOf(const Mount& mount) {
    if (mount.deviceMajor != 0) return makedev(mount.deviceMajor, mount.deviceMinor);
    struct stat status {};
    if (!mount.source.starts_with('/') || ::stat(mount.source.c_str(), &status) != 0) return std::nullopt;
    return S_ISBLK(status.st_mode) ? std::optional(status.st_rdev) : std::nullopt;
}

std::uint64_t bytesOf(std::uint64_t blocks, std::uint64_t blockSize) {
    constexpr auto kMost = std::numeric_limits<std::uint64_t>::max();
    return blockSize != 0 && blocks > kMost / blockSize ? kMost : blocks * blockSize;
}

} // namespace

std::shared_ptr<Drive> Drive::ofFile(const std::string& path) {
    std::shared_ptr<Drive> drive(new Drive);
    drive->readMount(path);
    drive->readSpace(path);
    return drive;
}

std::string Drive::RootFolder() const { return path_.ends_with('/') || path_.empty() ? path_ : path_ + '/'; }

void Drive::readMount(const std::string& path) {
    const auto mount = mountOf(path);
    if (!mount) return;
    path_ = mount->target;
    fileSystem_ = mount->fileSystem;
    const auto device = blockDeviceOf(*mount);
    const DriveKind kind = driveKindOf(*mount, device && isRemovable(*device));
    driveType_ = static_cast<std::int32_t>(kind);
    if (kind == DriveKind::Network) shareName_ = mount->source;
    if (!device) return;
    volumeName_ = diskName("/dev/disk/by-label", *device);
    serialNumber_ = diskName("/dev/disk/by-uuid", *device);
}

void Drive::readSpace(const std::string& path) {
    struct statvfs space {};
    while (::statvfs(systemPath(path), &space) != 0) {
        if (errno != EINTR) throw systemFailure(errno, "drive");
    }
    availableSpace_ = bytesOf(space.f_bavail, space.f_frsize);
    freeSpace_ = bytesOf(space.f_bfree, space.f_frsize);
    totalSize_ = bytesOf(space.f_blocks, space.f_frsize);
}

} // namespace corvane
