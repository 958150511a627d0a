#include "corvane/platform/FileReader.h"

#include "corvane/platform/Paths.h"
#include "corvane/platform/RuntimeFailure.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace corvane {

namespace {

constexpr std::int64_t nanoseconds(const timespec& time) {
    return static_cast<std::int64_t>(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

} // namespace

FileIdentity identityOf(const struct stat& status) {
    return {status.st_dev, status.st_ino, static_cast<std::uint64_t>(status.st_size), nanoseconds(status.st_mtim),
            nanoseconds(status.st_ctim)};
}

FileReader::FileReader(const std::string& path)
    // Without O_NONBLOCK the opening of a pipe would wait for a writer.
    : descriptor_(::open(systemPath(path), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY)) {
    if (descriptor_ < 0) throw systemFailure(errno, "open");
    struct stat status {};
    int problem = ::fstat(descriptor_, &status) == 0 ? 0 : errno;
    if (problem == 0 && S_ISDIR(status.st_mode)) problem = EISDIR;
    if (problem != 0) {
        ::close(descriptor_);
        throw systemFailure(problem, "open");
    }
    if (!S_ISREG(status.st_mode)) {
        ::close(descriptor_);
        throw RuntimeFailure(EINVAL, "open", "Not a regular file");
    }
    identity_ = identityOf(status);
}

FileReader::~FileReader() { ::close(descriptor_); }

bool FileReader::isUnchanged() const {
    struct stat status {};
    return ::fstat(descriptor_, &status) == 0 && identityOf(status) == identity_;
}

Bytes FileReader::view(std::uint64_t offset, std::size_t count) {
    count = clipped(offset, count);
    if (count == 0) return {};
    if (head_.bytes.empty() && offset + count <= kBlockSize) {
        head_ = {0, Bytes(headBytes_).first(readInto(0, headBytes_))};
    }
    if (head_.holds(offset, count)) return head_.part(offset, count);
    if (moving_.holds(offset, count)) return moving_.part(offset, count);

    std::span<std::uint8_t> target = movingBytes_;
    std::uint64_t start = offset;
    if (count > kBlockSize) {
        large_.resize(std::max(large_.size(), count));
        target = std::span(large_).first(count);
    } else {
        const Range range = rangeToRead(offset, count);
        start = range.offset;
        target = target.first(range.count);
    }
    target = target.first(clipped(start, target.size()));
    moving_ = {};
    moving_ = {start, target.first(readInto(start, target))};
    return moving_.partFrom(offset, count);
}

FileReader::Range FileReader::rangeToRead(std::uint64_t offset, std::size_t count) const {
    if (size() - offset <= kTailSize && size() >= kTailSize) return {size() - kTailSize, kTailSize};
    // The block that reaches the end is the file's last one, so that everything that stands there comes at once.
    if (size() - offset <= kBlockSize && size() >= kBlockSize) return {size() - kBlockSize, kBlockSize};
    const bool goesOn = head_.touches(offset) || moving_.touches(offset);
    return {offset, goesOn ? kBlockSize : std::max(count, kJumpSize)};
}

ByteArray FileReader::read(std::uint64_t offset, std::size_t count) {
    ByteArray bytes(clipped(offset, count));
    bytes.resize(readInto(offset, bytes));
    return bytes;
}

std::size_t FileReader::clipped(std::uint64_t offset, std::size_t count) const {
    const std::uint64_t left = offset < size() ? size() - offset : 0;
    return static_cast<std::size_t>(std::min<std::uint64_t>(left, count));
}

std::size_t FileReader::readInto(std::uint64_t offset, std::span<std::uint8_t> target) const {
    std::size_t done = 0;
    while (done < target.size() && offset + done < size()) {
        const auto got =
            ::pread(descriptor_, target.data() + done, target.size() - done, static_cast<off_t>(offset + done));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) throw systemFailure(errno, "read");
        if (got == 0) break; // the file was cut while it is being read
        done += static_cast<std::size_t>(got);
    }
    return done;
}

} // namespace corvane
