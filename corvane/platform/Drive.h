// The drive that holds a file: here the mount through which the file is seen. What has no equivalent on this system is
// empty text.
#pragma once

#include "corvane/platform/Export.h"

#include <cstdint>
#include <memory>
#include <string>

namespace corvane {

class CORVANE_EXPORT Drive {
public:
    // The drive of a file, with the state at the time of the call. Fails with errno's number and text when there is no
    // such file. Where the system does not tell its mounts, the sizes are all that is known.
    static std::shared_ptr<Drive> ofFile(const std::string& path);

    // 0 unknown, 1 removable, 2 fixed, 3 network, 4 optical, 5 RAM disk.
    std::int32_t DriveType() const { return driveType_; }
    // The label of its file system, when the system shows it to everybody (/dev/disk/by-label).
    const std::string& VolumeName() const { return volumeName_; }
    // Bytes that this user can still write.
    std::uint64_t AvailableSpace() const { return availableSpace_; }
    // Always "": there are no drive letters here.
    std::string DriveLetter() const { return {}; }
    // Kind of its file system, "ext4".
    const std::string& FileSystem() const { return fileSystem_; }
    // Bytes that are not in use, those reserved for root included.
    std::uint64_t FreeSpace() const { return freeSpace_; }
    // The folder where it is mounted, "/" or "/media/stick".
    const std::string& Path() const { return path_; }
    // The same with its trailing separator.
    std::string RootFolder() const;
    // The UUID of its file system, when the system shows it to everybody (/dev/disk/by-uuid).
    const std::string& SerialNumber() const { return serialNumber_; }
    // What a network drive is mounted from, "server:/music"; "" for other drives.
    const std::string& ShareName() const { return shareName_; }
    // Bytes.
    std::uint64_t TotalSize() const { return totalSize_; }

private:
    Drive() = default;
    void readMount(const std::string& path);
    void readSpace(const std::string& path);

    std::int32_t driveType_ = 0;
    std::string volumeName_;
    std::string fileSystem_;
    std::string path_;
    std::string serialNumber_;
    std::string shareName_;
    std::uint64_t availableSpace_ = 0;
    std::uint64_t freeSpace_ = 0;
    std::uint64_t totalSize_ = 0;
};

} // namespace corvane
