#include "corvane/platform/TemporaryFile.h"

#include "corvane/platform/RuntimeFailure.h"
#include "corvane/platform/TemporaryNames.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <utility>

namespace corvane {

namespace {

bool isFileNamed(const struct stat& file, int folder, const std::string& name) {
    struct stat named {};
    return ::fstatat(folder, name.c_str(), &named, AT_SYMLINK_NOFOLLOW) == 0 && named.st_dev == file.st_dev &&
           named.st_ino == file.st_ino;
}

} // namespace

TemporaryFile::TemporaryFile(int folder, std::string_view extension, mode_t mode) : folder_(folder) {
    NewFile file = openNewFile(folder, {}, "tmp", extension, mode);
    name_ = std::move(file.path);
    file_ = std::move(file.descriptor);
}

TemporaryFile::TemporaryFile(TemporaryFile&& other) noexcept
    : folder_(other.folder_), name_(std::exchange(other.name_, {})), file_(std::move(other.file_)) {}

TemporaryFile::~TemporaryFile() {
    if (!name_.empty()) ::unlinkat(folder_, name_.c_str(), 0);
}

void TemporaryFile::flush() const {
    while (::fsync(file_.number()) != 0) {
        if (errno != EINTR) throw systemFailure(errno, "flush");
    }
}

void TemporaryFile::replace(const std::string& otherName) {
    struct stat status {};
    if (::fstat(file_.number(), &status) != 0) throw systemFailure(errno, "rename");
    if (const int problem = file_.close(); problem != 0) throw systemFailure(problem, "close");
    if (::renameat(folder_, name_.c_str(), folder_, otherName.c_str()) != 0) {
        const int problem = errno;
        if (!isFileNamed(status, folder_, otherName)) throw systemFailure(problem, "rename");
    }
    name_.clear();
}

} // namespace corvane
