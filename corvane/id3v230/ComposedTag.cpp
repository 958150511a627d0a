#include "corvane/id3v230/ComposedTag.h"

#include "corvane/id3v230/TagGatherer.h"
#include "corvane/id3v230/TagImage.h"
#include "corvane/platform/ByteReader.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace corvane {

namespace {

constexpr std::size_t kUsualMemory = 2000; // bytes; room for most tags without their pictures

std::uint8_t keptFlags(const TagImage& loaded) { return loaded.flags() & TagHead::kExperimental; }

bool hasHeader(const TagImage& loaded, Bytes header) {
    if (!loaded.exists() || loaded.size() == 0) return false;
    const auto& old = *loaded.header();
    const auto same = encodedTagHead(old.flags, *old.bodySize);
    return old.majorVersion == 3 && old.revision == 0 && std::ranges::equal(same, header);
}

const RawFrame* frameAt(const TagImage& loaded, std::uint64_t offset) {
    const auto frames = loaded.frames();
    const auto found = std::ranges::lower_bound(frames, offset, {}, &RawFrame::offset);
    return found != frames.end() && found->offset == offset ? &*found : nullptr;
}

// Whether the old file has this frame at this offset, as far as that is known without reading.
bool isInPlace(const TagImage& loaded, const TagFrame& frame, std::uint64_t offset) {
    if (!loaded.hasFileOffsets()) return false;
    if (!frame.isMade()) return frame.carried.offset == offset;
    const RawFrame* old = frameAt(loaded, offset);
    return old != nullptr && old->size() == frame.size() && loaded.isInMemory(*old) && loaded.bytes(*old) == frame.made;
}

bool isTheSame(const RawFrame& found, const TagFrame& wanted) {
    const auto made = decodeFrameHeader(wanted.made, 0);
    if (wanted.isMade() && !made) return false;
    const RawFrame& expected = wanted.isMade() ? *made : wanted.carried;
    return found.id == expected.id && found.statusFlags == expected.statusFlags &&
           found.formatFlags == expected.formatFlags && found.size() == wanted.size();
}

} // namespace

ComposedTag::ComposedTag(const TagImage& loaded, std::span<const TagFrame> frames, std::uint64_t size)
    : loaded_(loaded), size_(size) {
    pieces_.reserve(frames.size() + 1);
    memory_.reserve(kUsualMemory);
    const auto header = encodedTagHead(keptFlags(loaded), static_cast<std::uint32_t>(size - TagHead::kByteCount));
    Piece piece;
    piece.size = header.size();
    piece.isInPlace = hasHeader(loaded, header);
    add(piece);
    addBytes(header);
    for (const TagFrame& frame : frames) add(frame);
}

void ComposedTag::add(Piece piece) {
    piece.offset = pieces_.empty() ? 0 : paddingOffset();
    if (!piece.isCopied) piece.source = memory_.size();
    pieces_.push_back(piece);
}

void ComposedTag::add(const TagFrame& frame) {
    Piece piece;
    piece.size = frame.size();
    piece.isInPlace = isInPlace(loaded_, frame, paddingOffset());
    piece.isCopied = !frame.isMade() && !loaded_.isInMemory(frame.carried);
    piece.source = frame.carried.offset;
    add(piece);
    if (piece.isCopied) return;
    if (frame.isMade()) return addBytes(frame.made);
    addBytes(encodedFrameHeader(frame.carried));
    addBytes(loaded_.head(frame.carried));
}

void ComposedTag::addBytes(Bytes bytes) { memory_.insert(memory_.end(), bytes.begin(), bytes.end()); }

Bytes ComposedTag::bytesFrom(const Piece& piece, std::uint64_t size) const {
    return Bytes(memory_).subspan(static_cast<std::size_t>(piece.source), static_cast<std::size_t>(size));
}

ComposedTag::Range ComposedTag::changedRange() const {
    if (loaded_.size() != size_) return {0, size_};
    const auto isChanged = [](const Piece& piece) { return !piece.isInPlace; };
    const auto first = std::ranges::find_if(pieces_, isChanged);
    const auto last = std::find_if(pieces_.rbegin(), pieces_.rend(), isChanged);
    Range changed{size_, 0};
    if (first != pieces_.end()) changed = {first->offset, last->end()};
    const std::uint64_t oldFramesEnd = size_ - loaded_.padding().size;
    if (paddingOffset() < oldFramesEnd) {
        changed.begin = std::min(changed.begin, paddingOffset());
        changed.end = std::max(changed.end, oldFramesEnd);
    }
    return changed;
}

const ComposedTag::Piece* ComposedTag::pieceAt(std::uint64_t offset) const {
    const auto behind = std::ranges::upper_bound(pieces_, offset, {}, &Piece::offset);
    if (behind == pieces_.begin() || offset >= std::prev(behind)->end()) return nullptr;
    return &*std::prev(behind);
}

// The bytes of a piece from `inside` on that are in memory. A copied piece is a frame of the loaded tag.
Bytes ComposedTag::knownPart(const Piece& piece, std::uint64_t inside) const {
    if (!piece.isCopied) return bytesFrom(piece, piece.size).subspan(static_cast<std::size_t>(inside));
    if (inside < RawFrame::kHeaderSize) return Bytes(frameHeader_).subspan(static_cast<std::size_t>(inside));
    const Bytes head = loaded_.head(*frameAt(loaded_, piece.source));
    return readerAt(head, static_cast<std::size_t>(inside) - RawFrame::kHeaderSize).takeRest();
}

Bytes ComposedTag::view(std::uint64_t offset, std::size_t count) {
    static constexpr std::array<std::uint8_t, RawFrame::kHeaderSize> kPadding{};
    const Piece* piece = pieceAt(offset);
    if (piece == nullptr) return Bytes(kPadding).first(std::min(count, kPadding.size()));
    if (piece->isCopied) frameHeader_ = encodedFrameHeader(*frameAt(loaded_, piece->source));
    const Bytes known = knownPart(*piece, offset - piece->offset);
    return known.first(std::min(count, known.size()));
}

std::size_t ComposedTag::atHand(std::uint64_t offset) const {
    const Piece* piece = pieceAt(offset);
    return piece == nullptr ? 0 : knownPart(*piece, offset - piece->offset).size();
}

std::shared_ptr<TagImage> ComposedTag::image(std::span<const TagFrame> wanted) {
    TagGatherer gatherer(loaded_.path(), FileIdentity(), loaded_.identity().size);
    const auto head = decodeTagHead(view(0, TagHead::kByteCount));
    if (!head || head->tagSize() != size_) return nullptr;
    gatherer.setHead(*head);
    gatherer.walk(*this, TagHead::kByteCount, size_);
    auto image = gatherer.done();
    const bool isRight = !image->refusalButForPadding() && image->padding().offset == paddingOffset() &&
                         std::ranges::equal(image->frames(), wanted, isTheSame);
    return isRight ? image : nullptr;
}

} // namespace corvane
