#include "corvane/id3v2/TagLoad.h"

#include "corvane/id3v2/ByteHelpers.h"
#include "corvane/id3v2/FrameGatherer.h"
#include "corvane/platform/FilePosition.h"
#include "corvane/platform/FileReader.h"
#include "corvane/platform/Unsynchronisation.h"

#include <string_view>

namespace corvane {

namespace {

constexpr std::uint8_t kUnsynchronised = 0x80, kExtendedHeader = 0x20, kFooter = 0x10;
constexpr std::size_t kExtendedSizeLength = 4;
constexpr std::string_view kFooterIdentifier = "3DI";

bool has(const ID3V2Header& header, std::uint8_t flags) { return (header.Flags & flags) != 0; }

std::uint64_t bodySize(const TagInFile& tag) { return static_cast<std::uint64_t>(SynchsafeToLong(tag.header.Size)); }

std::uint64_t bodyOffset(const TagInFile& tag) {
    return static_cast<std::uint64_t>(offsetOf(tag.startPosition)) + ID3V2Header::kByteCount;
}

bool fitsFile(const TagInFile& tag) {
    return tag.startPosition >= 1 && tag.fileLength >= 0 &&
           bodyOffset(tag) + bodySize(tag) <= static_cast<std::uint64_t>(tag.fileLength);
}

// The whole body with its unsynchronisation undone; an empty one when the file has fewer bytes than it had.
ByteArray synchronisedBody(const TagInFile& tag) {
    ByteArray body = tag.file.read(bodyOffset(tag), bodySize(tag));
    if (body.size() < bodySize(tag)) return {};
    undoUnsynchronisation(body);
    return body;
}

// ID3v2.3: whether the size bytes that begin the body may stand there. Only an extended header that claims no size is
// understood.
bool isAcceptedExtendedHeader(Bytes body) {
    const auto size = readerAt(body, 0).take(kExtendedSizeLength);
    return size && BytesToLong(*size, 0, kExtendedSizeLength) <= 0;
}

template <class Layout>
std::shared_ptr<const TagFrames> walked(FrameGatherer frames, const Layout& layout, std::uint64_t begin,
                                        std::uint64_t end) {
    return frames.walk(layout, begin, end).isComplete ? frames.done() : nullptr;
}

// ID3v2.2 and ID3v2.3: walks the body, whole in memory when it is unsynchronised, else in the file.
template <class Layout>
std::shared_ptr<const TagFrames> loadBody(const TagInFile& tag, const Layout& layout, bool extended) {
    const std::size_t skipped = extended ? kExtendedSizeLength : 0;
    if (has(tag.header, kUnsynchronised)) {
        ByteArray body = synchronisedBody(tag);
        if (body.empty() || (extended && !isAcceptedExtendedHeader(body))) return nullptr;
        const std::size_t end = body.size();
        return walked(FrameGatherer(std::move(body), tag.file.size()), layout, skipped, end);
    }
    const std::uint64_t begin = bodyOffset(tag);
    const std::size_t headLength = std::min<std::uint64_t>(bodySize(tag), kExtendedSizeLength);
    if (extended && !isAcceptedExtendedHeader(tag.file.view(begin, headLength))) return nullptr;
    return walked(FrameGatherer(tag.file, tag.path), layout, begin + skipped, begin + bodySize(tag));
}

// The size bytes of ID3v2.4's extended header; bytes that the file does not have count as 0.
std::uint64_t extendedHeaderSize(const TagInFile& tag) {
    std::array<std::uint8_t, kExtendedSizeLength> size{};
    const Bytes found = tag.file.view(bodyOffset(tag), kExtendedSizeLength);
    std::copy(found.begin(), found.end(), size.begin());
    return static_cast<std::uint64_t>(SynchsafeToLong(size));
}

bool hasMatchingFooter(const TagInFile& tag) {
    const auto footer = decodeHeader(tag.file.view(bodyOffset(tag) + bodySize(tag), ID3V2Header::kByteCount));
    return footer && footer->ID == kFooterIdentifier && footer->Version == tag.header.Version &&
           footer->Flags == tag.header.Flags && SynchsafeToLong(footer->Size) == SynchsafeToLong(tag.header.Size);
}

} // namespace

std::shared_ptr<const TagFrames> loadFrames(const TagInFile& tag) {
    switch (tag.header.Version[0]) {
    case 2:
        return loadVersion22(tag);
    case 3:
        return loadVersion23(tag);
    case 4:
        return loadVersion24(tag);
    default:
        return nullptr;
    }
}

std::shared_ptr<const TagFrames> loadVersion22(const TagInFile& tag) {
    constexpr std::uint8_t kReserved = 0x0C;
    if (has(tag.header, kReserved) || !fitsFile(tag) || bodySize(tag) == 0) return nullptr;
    return loadBody(tag, Layout22{}, false);
}

std::shared_ptr<const TagFrames> loadVersion23(const TagInFile& tag) {
    constexpr std::uint8_t kReserved = 0x0E;
    if (has(tag.header, kReserved) || !fitsFile(tag) || bodySize(tag) == 0) return nullptr;
    return loadBody(tag, Layout23{}, has(tag.header, kExtendedHeader));
}

std::shared_ptr<const TagFrames> loadVersion24(const TagInFile& tag) {
    constexpr std::uint8_t kReserved = 0x0F;
    if (has(tag.header, kReserved) || !fitsFile(tag)) return nullptr;
    const std::uint64_t begin = bodyOffset(tag);
    const std::uint64_t skipped = has(tag.header, kExtendedHeader) ? extendedHeaderSize(tag) : 0;
    auto frames = walked(FrameGatherer(tag.file, tag.path), Layout24{has(tag.header, kUnsynchronised)}, begin + skipped,
                         begin + bodySize(tag));
    return !has(tag.header, kFooter) || hasMatchingFooter(tag) ? frames : nullptr;
}

} // namespace corvane
