#include "corvane/platform/FileStatus.h"

#include "corvane/platform/Paths.h"
#include "corvane/platform/RuntimeFailure.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <cerrno>

namespace corvane {

FileStatus fileStatusOf(const std::string& path) {
    constexpr unsigned kWanted = STATX_BASIC_STATS | STATX_BTIME | STATX_MNT_ID;
    struct statx found {};
    if (::statx(AT_FDCWD, systemPath(path), 0, kWanted, &found) != 0) throw systemFailure(errno, "file");
    FileStatus status;
    status.size = found.stx_size;
    status.mode = found.stx_mode;
    status.device = makedev(found.stx_dev_major, found.stx_dev_minor);
    if ((found.stx_mask & STATX_BTIME) != 0) status.created = found.stx_btime.tv_sec;
    if ((found.stx_mask & STATX_ATIME) != 0) status.accessed = found.stx_atime.tv_sec;
    status.modified = found.stx_mtime.tv_sec;
    if ((found.stx_mask & STATX_MNT_ID) != 0) status.mountNumber = found.stx_mnt_id;
    return status;
}

} // namespace corvane
