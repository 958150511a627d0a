// An ID3v2.3 tag that is to be written, in pieces from front to back: the header, frames that are carried over from the
// tag that stands in the file, frames that are new, and padding of zeros. Large frames that are carried over stay where
// they are until they are copied.
#pragma once

#include "corvane/id3v230/RawFrame.h"
#include "corvane/platform/Bytes.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace corvane {

class TagImage;

// A frame for a tag that is to be written: one of the tag that stands in the file, byte for byte, or a new one.
struct TagFrame {
    RawFrame carried;
    ByteArray made; // header and data of a new frame; empty for one that is carried over

    static TagFrame carriedOver(const RawFrame& frame) { return {frame, {}}; }
    static TagFrame madeOf(ByteArray bytes) { return {{}, std::move(bytes)}; }

    bool isMade() const { return !made.empty(); }
    std::uint64_t size() const { return isMade() ? made.size() : carried.size(); }
};

class ComposedTag {
public:
    struct Piece {
        std::uint64_t offset = 0; // in the new file
        std::uint64_t size = 0;
        std::uint64_t source = 0; // offset in the old file where it is copied from there, else in the bytes in memory
        bool isCopied = false;
        bool isInPlace = false; // the old file has these bytes at this offset
        std::uint64_t end() const { return offset + size; }
    };
    // Bytes of the file, [begin, end).
    struct Range {
        std::uint64_t begin = 0;
        std::uint64_t end = 0;
        bool isEmpty() const { return begin >= end; }
    };

    // The frames in this order, and as much padding as makes the tag `size` bytes. `loaded` must outlive it. Fails when
    // a frame is none of the loaded tag, or the file is not the one it was.
    ComposedTag(const TagImage& loaded, std::span<const TagFrame> frames, std::uint64_t size);

    std::uint64_t size() const { return size_; }
    std::uint64_t paddingOffset() const { return pieces_.back().end(); }
    // Without the padding.
    std::span<const Piece> pieces() const { return pieces_; }
    // `size` bytes from the beginning of a piece that is not copied; such pieces follow one another without a gap.
    Bytes bytesFrom(const Piece& piece, std::uint64_t size) const;

    // What of the old tag has to be overwritten for the new one to stand there; the whole of it when it has another
    // size. That the old padding is empty is taken for granted.
    Range changedRange() const;

    // Reads the new tag back, as a source of a walk over frames. Of large frames that are carried over it knows no more
    // than the loaded tag does.
    Bytes view(std::uint64_t offset, std::size_t count);
    std::size_t atHand(std::uint64_t offset) const;
    // The image of the new tag, read by the same rules as one in a file. `wanted` are the frames that were given; when
    // the walk does not find exactly these and nothing else, the result is nullptr.
    std::shared_ptr<TagImage> image(std::span<const TagFrame> wanted);

private:
    void add(Piece piece);
    void add(const TagFrame& frame);
    void addBytes(Bytes bytes);
    const Piece* pieceAt(std::uint64_t offset) const;
    Bytes knownPart(const Piece& piece, std::uint64_t inside) const;

    const TagImage& loaded_;
    std::uint64_t size_;
    std::vector<Piece> pieces_;
    ByteArray memory_;                                              // the bytes of all pieces that are not copied
    std::array<std::uint8_t, RawFrame::kHeaderSize> frameHeader_{}; // the last one that was made for a view
};

} // namespace corvane
