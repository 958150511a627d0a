#include "corvane/id3v230/TagWriting.h"

#include "corvane/id3v230/ComposedTag.h"
#include "corvane/id3v230/TagImage.h"
#include "corvane/platform/ByteReader.h"
#include "corvane/platform/FileReader.h"
#include "corvane/platform/FileReplacement.h"
#include "corvane/platform/InPlaceFile.h"
#include "corvane/platform/RuntimeFailure.h"
#include "corvane/platform/Zeros.h"

#include <algorithm>
#include <cerrno>

namespace corvane {

namespace {

// Old bytes of the file between what changes and the padding that are rather read in vain than with a second call.
constexpr std::uint64_t kReadInVain = std::uint64_t{64} * 1024;

// Appends the new tag, with one call for pieces that follow one another where they come from.
void append(FileReplacement& replacement, const ComposedTag& tag) {
    const auto pieces = tag.pieces();
    for (auto piece = pieces.begin(); piece != pieces.end();) {
        const auto first = piece;
        std::uint64_t size = 0;
        do {
            size += (piece++)->size;
        } while (piece != pieces.end() && piece->isCopied == first->isCopied && piece->source == first->source + size);
        first->isCopied ? replacement.copy(first->source, size) : replacement.append(tag.bytesFrom(*first, size));
    }
    replacement.append(ByteArray(static_cast<std::size_t>(tag.size() - tag.paddingOffset())));
}

// Whether it is the same frame, as far as both are known.
bool isSameFrame(const TagImage& oneTag, const RawFrame& one, const TagImage& otherTag, const RawFrame& other) {
    const Bytes head = oneTag.head(one);
    const Bytes otherHead = otherTag.head(other);
    const std::size_t known = std::min(head.size(), otherHead.size());
    return one.offset == other.offset && encodedFrameHeader(one) == encodedFrameHeader(other) &&
           std::ranges::equal(head.first(known), otherHead.first(known));
}

// Reads what stands in the temporary file, before it becomes the user's.
void verify(const std::string& written, std::uint64_t size, const TagImage& expected) {
    FileReader file(written);
    const auto image = TagImage::read(file, written);
    const auto isSame = [&](const RawFrame& one, const RawFrame& other) {
        return isSameFrame(*image, one, expected, other);
    };
    const bool isRight = file.size() == size && image->size() == expected.size() && !image->refusal() &&
                         std::ranges::equal(image->frames(), expected.frames(), isSame);
    if (!isRight) throw RuntimeFailure(EIO, "save", "The new tag does not read back as it was written");
}

// The old bytes from the first that changes on: up to the last one, and the padding behind the frames.
class OldBytes {
public:
    OldBytes(const InPlaceFile& file, const TagImage& loaded, ComposedTag::Range changed) : file_(file) {
        const std::uint64_t padding = loaded.size() - loaded.padding().size;
        const bool atOnce = padding <= changed.end + kReadInVain;
        const std::uint64_t end = atOnce ? std::uint64_t{loaded.size()} : changed.end;
        begin_ = changed.begin;
        bytes_ = read(begin_, end - begin_);
        const Bytes old = bytes_;
        const ByteArray separate = atOnce ? ByteArray() : read(padding, loaded.padding().size);
        const Bytes rest = atOnce ? readerAt(old, static_cast<std::size_t>(padding - begin_)).takeRest() : separate;
        hasEmptyPadding_ = isAllZero(rest);
    }

    bool hasEmptyPadding() const { return hasEmptyPadding_; }
    ByteArray part(std::uint64_t offset, std::uint64_t size) const {
        if (offset < begin_ || offset + size > begin_ + bytes_.size()) return read(offset, size);
        const Bytes found =
            Bytes(bytes_).subspan(static_cast<std::size_t>(offset - begin_), static_cast<std::size_t>(size));
        return {found.begin(), found.end()};
    }

private:
    ByteArray read(std::uint64_t offset, std::uint64_t size) const {
        ByteArray bytes = file_.read(offset, static_cast<std::size_t>(size));
        if (bytes.size() != size) throw RuntimeFailure(EBUSY, "read", "The file became shorter while it was read");
        return bytes;
    }

    const InPlaceFile& file_;
    std::uint64_t begin_ = 0;
    ByteArray bytes_;
    bool hasEmptyPadding_ = false;
};

// The new bytes of a range that begins and ends with a piece, or in the padding.
ByteArray newBytes(const ComposedTag& tag, const OldBytes& old, ComposedTag::Range range) {
    ByteArray bytes;
    bytes.reserve(static_cast<std::size_t>(range.end - range.begin));
    for (const ComposedTag::Piece& piece : tag.pieces()) {
        if (piece.offset < range.begin || piece.end() > range.end) continue;
        const ByteArray copied = piece.isCopied ? old.part(piece.source, piece.size) : ByteArray();
        const Bytes part = piece.isCopied ? Bytes(copied) : tag.bytesFrom(piece, piece.size);
        bytes.insert(bytes.end(), part.begin(), part.end());
    }
    bytes.resize(static_cast<std::size_t>(range.end - range.begin));
    return bytes;
}

} // namespace

FileIdentity replaceTag(const TagImage& loaded, const ComposedTag& tag, const TagImage& image) {
    FileReplacement replacement(loaded.path());
    loaded.requireUnchanged(replacement.openedIdentity());
    append(replacement, tag);
    const std::uint64_t rest = replacement.originalSize() - loaded.size();
    replacement.copy(loaded.size(), rest);
    verify(replacement.temporaryName(), tag.size() + rest, image);
    replacement.commit();
    return replacement.committed();
}

FileIdentity removeTag(const TagImage& loaded) {
    FileReplacement replacement(loaded.path());
    loaded.requireUnchanged(replacement.openedIdentity());
    replacement.copy(loaded.size(), replacement.originalSize() - loaded.size());
    replacement.commit();
    return replacement.committed();
}

std::optional<FileIdentity> writeInPlace(const TagImage& loaded, const ComposedTag& tag) {
    InPlaceFile file(loaded.path());
    loaded.requireUnchanged(file.openedIdentity());
    const ComposedTag::Range changed = tag.changedRange();
    const OldBytes old(file, loaded, changed);
    if (!old.hasEmptyPadding()) return std::nullopt;
    const ByteArray bytes = newBytes(tag, old, changed);
    const ByteArray before = old.part(changed.begin, bytes.size());
    const auto first = std::ranges::mismatch(bytes, before);
    if (first.in1 == bytes.end()) return file.identity();
    const auto last = std::mismatch(bytes.rbegin(), bytes.rend(), before.rbegin()).first.base();
    const auto offset = static_cast<std::size_t>(first.in1 - bytes.begin());
    const auto count = static_cast<std::size_t>(last - first.in1);
    file.overwrite(changed.begin + offset, Bytes(bytes).subspan(offset, count), Bytes(before).subspan(offset, count));
    return file.identity();
}

} // namespace corvane
