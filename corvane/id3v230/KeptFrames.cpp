#include "corvane/id3v230/KeptFrames.h"

#include "corvane/id3v230/RawFrame.h"
#include "corvane/platform/ByteCopy.h"
#include "corvane/platform/FileReader.h"
#include "corvane/platform/FileSizeLimitGuard.h"
#include "corvane/platform/RuntimeFailure.h"
#include "corvane/platform/TemporaryNames.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace corvane {

namespace {

constexpr const char* kKeepingSource = "keep frames";

// Where the file system cannot make files without a name, one with a name loses it at once.
Descriptor namelessFile() {
    Descriptor nameless(::open(temporaryFolder().c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600));
    if (nameless.isOpen()) return nameless;
    if (errno != EOPNOTSUPP && errno != EISDIR) throw systemFailure(errno, kKeepingSource);
    NewFile file = openNewFile(AT_FDCWD, temporaryFolder(), "tmp", "tmp", 0600);
    if (::unlink(file.path.c_str()) != 0) throw systemFailure(errno, kKeepingSource);
    return std::move(file.descriptor);
}

ByteArray bytesOf(int file, std::uint64_t offset, std::size_t size) {
    ByteArray bytes(size);
    std::size_t done = 0;
    while (done < size) {
        const auto got = ::pread(file, bytes.data() + done, size - done, static_cast<off_t>(offset + done));
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) throw systemFailure(got < 0 ? errno : EIO, kKeepingSource);
        done += static_cast<std::size_t>(got);
    }
    return bytes;
}

} // namespace

KeptFrames::KeptFrames(std::uint64_t size) {
    if (size > kMostInMemory) {
        file_ = namelessFile();
    } else {
        memory_.reserve(static_cast<std::size_t>(size));
    }
}

void KeptFrames::keep(std::size_t index, const RawFrame& frame, FileReader& file) {
    const Place place{size_, frame.dataSize};
    const std::uint64_t data = frame.offset + RawFrame::kHeaderSize;
    for (std::uint64_t done = 0; done < frame.dataSize;) {
        const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(kCopyBlockSize, frame.dataSize - done));
        const Bytes block = file.view(data + done, count);
        if (block.size() != count)
            throw RuntimeFailure(EIO, kKeepingSource, "The file became shorter while it was read");
        append(block);
        done += count;
    }
    places_.emplace(index, place);
}

void KeptFrames::append(Bytes block) {
    if (file_.isOpen()) {
        const FileSizeLimitGuard guard;
        writeAt(file_.number(), size_, block);
    } else {
        memory_.insert(memory_.end(), block.begin(), block.end());
    }
    size_ += block.size();
}

std::optional<ByteArray> KeptFrames::data(std::size_t index) const {
    const auto found = places_.find(index);
    if (found == places_.end()) return std::nullopt;
    const auto [offset, size] = found->second;
    if (file_.isOpen()) return bytesOf(file_.number(), offset, size);
    const Bytes bytes = Bytes(memory_).subspan(static_cast<std::size_t>(offset), size);
    return ByteArray(bytes.begin(), bytes.end());
}

} // namespace corvane
