#include "corvane/platform/TemporaryFile.h"

#include "corvane/platform/RuntimeFailure.h"

#include <fcntl.h>
#include <sys/random.h>
#include <sys/stat.h>

#include <array>
#include <cstdint>
#include <cstdio>

namespace corvane {

namespace {

constexpr int kNameAttempts = 100; // far more than chance can need for names of 64 random bits

std::uint64_t randomNumber() {
    std::uint64_t number = 0;
    for (;;) {
        const auto got = ::getrandom(&number, sizeof number, 0);
        if (got == static_cast<ssize_t>(sizeof number)) return number;
        if (got < 0 && errno != EINTR) throw systemFailure(errno, "create temporary file");
    }
}

bool isFileNamed(const struct stat& file, int folder, const std::string& name) {
    struct stat named {};
    return ::fstatat(folder, name.c_str(), &named, AT_SYMLINK_NOFOLLOW) == 0 && named.st_dev == file.st_dev &&
           named.st_ino == file.st_ino;
}

} // namespace

std::string unguessableName(std::string_view prefix, std::string_view extension) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string name(prefix);
    std::uint64_t number = randomNumber();
    for (int i = 0; i < 16; ++i, number >>= 4) name.push_back(kDigits[number & 0xF]);
    return name.append(".").append(extension);
}

TemporaryFile::TemporaryFile(int folder, std::string_view extension, mode_t mode) : folder_(folder) {
    for (int attempt = 0; attempt < kNameAttempts && !file_.isOpen(); ++attempt) {
        name_ = unguessableName("tmp", extension);
        file_ = Descriptor(
            ::openat(folder, name_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC | O_NOCTTY, mode));
        if (!file_.isOpen() && errno != EEXIST && errno != EINTR) throw systemFailure(errno, "create temporary file");
    }
    if (!file_.isOpen()) throw systemFailure(EEXIST, "create temporary file");
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
