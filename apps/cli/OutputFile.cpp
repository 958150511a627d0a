#include "apps/cli/OutputFile.h"

#include "corvane/platform/RuntimeFailure.h"

#include "apps/cli/WriteAll.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <utility>

namespace corvane::cli {

namespace {

constexpr mode_t kReadableByAll = 0666; // less what the user's mask takes away

std::optional<struct stat> statusOf(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? std::optional(status) : std::nullopt;
}

bool isSameFile(const struct stat& one, const struct stat& other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

class OpenDescriptor {
public:
    explicit OpenDescriptor(int descriptor, const char* source) : descriptor_(descriptor) {
        if (descriptor_ < 0) throw systemFailure(errno, source);
    }
    ~OpenDescriptor() {
        if (descriptor_ >= 0) ::close(descriptor_);
    }
    OpenDescriptor(const OpenDescriptor&) = delete;
    OpenDescriptor& operator=(const OpenDescriptor&) = delete;

    int number() const { return descriptor_; }
    void close() {
        if (::close(std::exchange(descriptor_, -1)) != 0) throw systemFailure(errno, "close");
    }

private:
    int descriptor_;
};

// A new file beside `path` that is gone with this object unless it has taken the place of `path`.
class UnfinishedFile {
public:
    explicit UnfinishedFile(const std::string& path)
        : name_(path + ".XXXXXX"), descriptor_(::mkostemp(name_.data(), O_CLOEXEC), "open") {}
    ~UnfinishedFile() {
        if (!finished_) ::unlink(name_.c_str());
    }
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;

    int descriptor() const { return descriptor_.number(); }
    void moveTo(const std::string& path) {
        if (::fsync(descriptor()) != 0) throw systemFailure(errno, "fsync");
        descriptor_.close();
        if (::rename(name_.c_str(), path.c_str()) != 0) throw systemFailure(errno, "rename");
        finished_ = true;
    }

private:
    std::string name_;
    OpenDescriptor descriptor_;
    bool finished_ = false;
};

mode_t usersMask() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return mask;
}

std::string withoutLinks(const std::string& path) {
    char* resolved = ::realpath(path.c_str(), nullptr);
    if (resolved == nullptr) return path;
    std::string real = resolved;
    std::free(resolved);
    return real;
}

void replaceFile(const std::string& path, std::string_view content, mode_t permissions) {
    UnfinishedFile file(path);
    writeAll(file.descriptor(), content);
    if (::fchmod(file.descriptor(), permissions) != 0) throw systemFailure(errno, "chmod");
    file.moveTo(path);
}

void writeInto(const std::string& path, std::string_view content) {
    OpenDescriptor file(::open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY), "open");
    writeAll(file.number(), content);
    file.close();
}

} // namespace

void writeOutputFile(const std::string& path, std::string_view content, const std::string& source) {
    const auto there = statusOf(path);
    if (!there) return replaceFile(path, content, kReadableByAll & ~usersMask());
    const auto read = statusOf(source);
    if (read && isSameFile(*there, *read)) {
        throw RuntimeFailure(EEXIST, "open", "This is the file that is read");
    }
    if (!S_ISREG(there->st_mode)) return writeInto(path, content);
    replaceFile(withoutLinks(path), content, there->st_mode & 07777);
}

} // namespace corvane::cli
