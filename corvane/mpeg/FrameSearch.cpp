#include "corvane/mpeg/FrameSearch.h"

#include "corvane/mpeg/XingHeader.h"
#include "corvane/platform/ByteReader.h"
#include "corvane/platform/FilePosition.h"
#include "corvane/platform/FileReader.h"
#include "corvane/platform/RuntimeFailure.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace corvane {

namespace {

constexpr std::uint8_t kSyncByte = 0xFF;
constexpr std::size_t kWindowSize = kExaminedPositions + kMpegHeaderBytes - 1;

// How far a plain loop goes on before memchr is asked again. memchr is fast over long runs, its call is dear where
// sync bytes are dense.
constexpr std::size_t kPlainSteps = 8;

// The first sync byte at or behind `from`; `bytes.size()` when there is none.
std::size_t nextSyncByte(Bytes bytes, std::size_t from) {
    const std::size_t plainEnd = std::min(bytes.size(), from + kPlainSteps);
    for (std::size_t at = from; at < plainEnd; ++at) {
        if (bytes[at] == kSyncByte) return at;
    }
    const Bytes rest = bytes.subspan(plainEnd);
    const void* const found = rest.empty() ? nullptr : std::memchr(rest.data(), kSyncByte, rest.size());
    if (found == nullptr) return bytes.size();
    return static_cast<std::size_t>(static_cast<const std::uint8_t*>(found) - bytes.data());
}

// The small block: what is at hand when it has room for a frame's Xing header, so that the usual frame, which stands
// right at the start, needs no other block; else a block of its own.
std::size_t firstBlockSize(const FileReader& file, std::uint64_t startOffset) {
    const std::size_t atHand = file.atHand(startOffset);
    if (atHand >= kXingReach) return atHand;
    // The file's first block is read as a whole whatever is wanted of it.
    const bool inFirstBlock = startOffset + kXingReach <= FileReader::kBlockSize;
    return inFirstBlock ? FileReader::kBlockSize - static_cast<std::size_t>(startOffset) : FileReader::kBlockSize;
}

std::optional<FoundFrame> findIn(FileReader& file, std::uint64_t offset, std::size_t count) {
    auto found = findFrameHeader(file.view(offset, count));
    if (found) found->offset += offset;
    return found;
}

} // namespace

std::size_t searchWindowSize(std::int64_t startOffset, std::uint64_t fileSize) {
    const std::int64_t end = static_cast<std::int64_t>(fileSize) - 2;
    if (startOffset >= end) return 0;
    return static_cast<std::size_t>(std::min<std::int64_t>(end - startOffset, kWindowSize));
}

std::optional<FoundFrame> findFrameHeader(Bytes window) {
    if (window.size() < kMpegHeaderBytes) return std::nullopt;
    const Bytes starts = window.first(window.size() - (kMpegHeaderBytes - 1));
    for (std::size_t at = nextSyncByte(starts, 0); at < starts.size(); at = nextSyncByte(starts, at + 1)) {
        const auto word = readerAt(window, at).number<kMpegHeaderBytes>();
        if (word && IsFrameHeader(*word)) return FoundFrame{at, HeaderWord(*word)};
    }
    return std::nullopt;
}

std::optional<FoundFrame> findFirstFrame(FileReader& file, std::int32_t startPosition) {
    const std::int64_t startOffset = offsetOf(startPosition);
    const std::size_t count = searchWindowSize(startOffset, file.size());
    if (count < kMpegHeaderBytes) return std::nullopt;
    if (startOffset < 0) throw systemFailure(EINVAL, "read");

    const auto start = static_cast<std::uint64_t>(startOffset);
    const std::size_t firstCount = std::min(count, firstBlockSize(file, start));
    const auto found = findIn(file, start, firstCount);
    if (found || firstCount == count) return found;
    // The words that begin in the last bytes of the first block end in the rest.
    const std::size_t examined = firstCount - (kMpegHeaderBytes - 1);
    return findIn(file, start + examined, count - examined);
}

} // namespace corvane
