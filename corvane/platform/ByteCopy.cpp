#include "corvane/platform/ByteCopy.h"

#include "corvane/platform/RuntimeFailure.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

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

Bytes readBlock(int source, std::uint64_t offset, std::span<std::uint8_t> block) {
    for (;;) {
        const auto got = ::pread(source, block.data(), block.size(), static_cast<off_t>(offset));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) throw systemFailure(errno, "read");
        if (got == 0) throw RuntimeFailure(EIO, "read", "The file became shorter while it was read");
        return block.first(static_cast<std::size_t>(got));
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

} // namespace corvane
