#include "corvane/platform/InPlaceFile.h"

#include "corvane/platform/FileSizeLimitGuard.h"
#include "corvane/platform/Paths.h"
#include "corvane/platform/RuntimeFailure.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

namespace corvane {

namespace {

constexpr const char* kInPlaceSource = "write";

} // namespace

InPlaceFile::InPlaceFile(const std::string& path)
    : descriptor_(::open(systemPath(path), O_RDWR | O_CLOEXEC | O_NONBLOCK | O_NOCTTY)) {
    if (descriptor_ < 0) throw systemFailure(errno, "open");
    struct stat status {};
    const int problem = ::fstat(descriptor_, &status) == 0 ? 0 : errno;
    if (problem != 0 || !S_ISREG(status.st_mode)) {
        ::close(descriptor_);
        if (problem != 0) throw systemFailure(problem, "open");
        throw RuntimeFailure(EINVAL, "open", "Not a regular file");
    }
    opened_ = identityOf(status);
}

InPlaceFile::~InPlaceFile() { ::close(descriptor_); }

FileIdentity InPlaceFile::identity() const {
    struct stat status {};
    return ::fstat(descriptor_, &status) == 0 ? identityOf(status) : FileIdentity{};
}

ByteArray InPlaceFile::read(std::uint64_t offset, std::size_t count) const {
    if (offset >= size()) return {};
    ByteArray bytes(static_cast<std::size_t>(std::min<std::uint64_t>(count, size() - offset)));
    std::size_t done = 0;
    while (done < bytes.size()) {
        const auto got =
            ::pread(descriptor_, bytes.data() + done, bytes.size() - done, static_cast<off_t>(offset + done));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) throw systemFailure(errno, "read");
        if (got == 0) break;
        done += static_cast<std::size_t>(got);
    }
    bytes.resize(done);
    return bytes;
}

void InPlaceFile::write(std::uint64_t offset, Bytes bytes) { overwrite(offset, bytes, read(offset, bytes.size())); }

void InPlaceFile::overwrite(std::uint64_t offset, Bytes bytes, Bytes old) {
    const FileSizeLimitGuard guard;
    auto [written, problem] = put(offset, bytes);
    if (problem == 0 && ::fdatasync(descriptor_) != 0) problem = errno;
    if (problem == 0) return;
    const int second = takeBack(offset, old.first(std::min(written, old.size())), written > old.size());
    if (second == 0) throw systemFailure(problem, kInPlaceSource);
    throw DamageFailure(problem, kInPlaceSource,
                        std::generic_category().message(problem) +
                            "; the change could not be taken back: " + std::generic_category().message(second));
}

InPlaceFile::Written InPlaceFile::put(std::uint64_t offset, Bytes bytes) const {
    Written done;
    while (done.count < bytes.size()) {
        const Bytes rest = bytes.subspan(done.count);
        const auto written = ::pwrite(descriptor_, rest.data(), rest.size(), static_cast<off_t>(offset + done.count));
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) {
            done.problem = written < 0 ? errno : ENOSPC;
            break;
        }
        done.count += static_cast<std::size_t>(written);
    }
    return done;
}

// `old`: what stood where something has been written. 0, or the errno value of what went wrong.
int InPlaceFile::takeBack(std::uint64_t offset, Bytes old, bool hasGrown) const {
    if (const int problem = put(offset, old).problem; problem != 0) return problem;
    return !hasGrown || ::ftruncate(descriptor_, static_cast<off_t>(size())) == 0 ? 0 : errno;
}

} // namespace corvane
