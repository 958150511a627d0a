#include "corvane/platform/ByteCopy.h"

#include "corvane/platform/RuntimeFailure.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>

namespace corvane {

namespace {

// Why the system may refuse to copy between two files although reading and writing them works: it cannot do it at all,
// not between these file systems, not for these files, or a sandbox forbids the call.
constexpr std::array kNotPossibleHere{ENOSYS, EXDEV, EINVAL, EOPNOTSUPP, EPERM, EACCES, ETXTBSY};

struct Range {
    std::uint64_t sourceOffset;
    std::uint64_t targetOffset;
    std::uint64_t count;

    void advance(std::uint64_t done) {
        sourceOffset += done;
        targetOffset += done;
        count -= done;
    }
};

// Copies as much as the system can on its own; what is left of the range has to go through a block.
Range copiedBySystem(int source, int target, Range range) {
    while (range.count > 0) {
        auto from = static_cast<off_t>(range.sourceOffset);
        auto to = static_cast<off_t>(range.targetOffset);
        const auto step = static_cast<std::size_t>(std::min<std::uint64_t>(range.count, PTRDIFF_MAX));
        const auto done = ::copy_file_range(source, &from, target, &to, step, 0);
        if (done < 0 && errno == EINTR) continue;
        if (done < 0 && std::find(kNotPossibleHere.begin(), kNotPossibleHere.end(), errno) == kNotPossibleHere.end())
            throw systemFailure(errno, "copy");
        // Some file systems copy nothing and report no error. Reading tells whether the source has really ended.
        if (done <= 0) break;
        range.advance(static_cast<std::uint64_t>(done));
    }
    return range;
}

RuntimeFailure shorterFailure() { return {EIO, "read", "The file became shorter while it was read"}; }

Bytes readBlock(int source, std::uint64_t offset, std::span<std::uint8_t> block) {
    for (;;) {
        const auto got = ::pread(source, block.data(), block.size(), static_cast<off_t>(offset));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) throw systemFailure(errno, "read");
        if (got == 0) throw shorterFailure();
        return block.first(static_cast<std::size_t>(got));
    }
}

std::uint64_t sizeOf(const struct stat& status) { return static_cast<std::uint64_t>(status.st_size); }

struct stat copyStatus(int file) {
    struct stat status {};
    if (::fstat(file, &status) != 0) throw systemFailure(errno, "copy");
    return status;
}

bool isLargeAndSparse(int file) {
    constexpr std::uint64_t kBlock = 512; // bytes, the unit of st_blocks
    const struct stat status = copyStatus(file);
    return sizeOf(status) >= kLargeSparseFile &&
           static_cast<std::uint64_t>(status.st_blocks) < sizeOf(status) / 2 / kBlock;
}

// Bytes from `offset` on to the next data (SEEK_DATA) or hole (SEEK_HOLE); nothing when there are none to the end of
// the file.
std::optional<std::uint64_t> distanceToNext(int kind, int file, std::uint64_t offset) {
    const off_t found = ::lseek(file, static_cast<off_t>(offset), kind);
    if (found < 0 && errno != ENXIO) throw systemFailure(errno, "copy");
    return found < 0 ? std::nullopt : std::optional(static_cast<std::uint64_t>(found) - offset);
}

void extendTo(int target, std::uint64_t size) {
    while (::ftruncate(target, static_cast<off_t>(size)) != 0) {
        if (errno != EINTR) throw systemFailure(errno, "copy");
    }
}

} // namespace

void writeAt(int target, std::uint64_t offset, Bytes bytes) {
    while (!bytes.empty()) {
        const auto written = ::pwrite(target, bytes.data(), bytes.size(), static_cast<off_t>(offset));
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) throw systemFailure(errno, "write");
        if (written == 0) throw systemFailure(ENOSPC, "write");
        offset += static_cast<std::uint64_t>(written);
        bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
}

void copyRange(int source, std::uint64_t sourceOffset, int target, std::uint64_t targetOffset, std::uint64_t count) {
    Range range = copiedBySystem(source, target, {sourceOffset, targetOffset, count});
    ByteArray block(static_cast<std::size_t>(std::min<std::uint64_t>(range.count, kCopyBlockSize)));
    while (range.count > 0) {
        const auto step = static_cast<std::size_t>(std::min<std::uint64_t>(range.count, block.size()));
        const Bytes bytes = readBlock(source, range.sourceOffset, std::span(block).first(step));
        writeAt(target, range.targetOffset, bytes);
        range.advance(bytes.size());
    }
}

void appendRange(int source, std::uint64_t sourceOffset, int target, std::uint64_t targetSize, std::uint64_t count) {
    if (!isLargeAndSparse(source)) return copyRange(source, sourceOffset, target, targetSize, count);
    const std::uint64_t end = targetSize + count;
    Range range{sourceOffset, targetSize, count};
    while (range.count > 0) {
        range.advance(
            std::min(distanceToNext(SEEK_DATA, source, range.sourceOffset).value_or(range.count), range.count));
        if (range.count == 0) break;
        const auto data = distanceToNext(SEEK_HOLE, source, range.sourceOffset).value_or(range.count);
        const Range piece{range.sourceOffset, range.targetOffset, std::min(data, range.count)};
        copyRange(source, piece.sourceOffset, target, piece.targetOffset, piece.count);
        range.advance(piece.count);
    }
    if (sizeOf(copyStatus(source)) < sourceOffset + count) throw shorterFailure();
    if (sizeOf(copyStatus(target)) < end) extendTo(target, end);
}

} // namespace corvane
