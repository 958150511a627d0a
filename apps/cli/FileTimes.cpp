#include "apps/cli/FileTimes.h"

#include "corvane/platform/RuntimeFailure.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <utility>

namespace corvane::cli {

FileTimes::FileTimes(std::string path, bool isKept) : path_(std::move(path)), kept_(isKept) {
    if (!kept_) return;
    struct stat status {};
    if (::stat(path_.c_str(), &status) != 0) throw systemFailure(errno, "stat");
    modified_ = status.st_mtim;
}

void FileTimes::restore() const {
    if (!kept_) return;
    const std::array<timespec, 2> times{timespec{0, UTIME_OMIT}, modified_};
    if (::utimensat(AT_FDCWD, path_.c_str(), times.data(), 0) == 0) return;
    const RuntimeFailure failure = systemFailure(errno, "utimensat");
    throw RuntimeFailure(failure.number(), failure.source(),
                         "The change is made, but the time of modification could not be kept: " +
                             failure.description());
}

} // namespace corvane::cli
