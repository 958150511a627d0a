#include "corvane/id3v230/TagImage.h"

#include "corvane/id3v230/TagGatherer.h"
#include "corvane/platform/ByteReader.h"
#include "corvane/platform/FileReader.h"
#include "corvane/platform/RuntimeFailure.h"
#include "corvane/platform/Zeros.h"

#include <algorithm>
#include <cerrno>
#include <stdexcept>

namespace corvane {

namespace {

constexpr std::size_t kPaddingBlock = std::size_t{64} * 1024;

RuntimeFailure changedFailure() { return {ESTALE, "ID3v2 tag", "The file was changed since it was read"}; }

// The bytes [offset, offset + count) of a file that is still in the known state.
ByteArray readUnchanged(const TagImage& image, std::uint64_t offset, std::size_t count) {
    FileReader file(image.path());
    const FileIdentity known = image.identity();
    ByteArray bytes = file.identity() == known ? file.read(offset, count) : ByteArray();
    if (bytes.size() != count || file.identity() != known || !file.isUnchanged()) throw changedFailure();
    return bytes;
}

} // namespace

TagImage::TagImage(std::string path, const FileIdentity& identity) : path_(std::move(path)) { file_.set(identity); }

std::shared_ptr<TagImage> TagImage::none(const std::string& path, const FileIdentity& identity) {
    return TagGatherer(path, identity).done();
}

std::uint32_t TagImage::size() const {
    return head_ && head_->bodySize ? static_cast<std::uint32_t>(head_->tagSize()) : 0;
}

std::size_t TagImage::indexOf(const RawFrame& frame) const {
    const auto found = std::lower_bound(frames_.begin(), frames_.end(), frame.offset,
                                        [](const RawFrame& one, std::uint64_t offset) { return one.offset < offset; });
    if (found == frames_.end() || found->offset != frame.offset || found->dataSize != frame.dataSize)
        throw std::logic_error("The frame is none of this tag");
    return static_cast<std::size_t>(found - frames_.begin());
}

Bytes TagImage::head(const RawFrame& frame) const {
    const Gathered& place = gathered_[indexOf(frame)];
    return readerAt(memory_, place.offset).take(place.size).value_or(Bytes{});
}

ByteArray TagImage::data(const RawFrame& frame) const {
    const Bytes gathered = head(frame);
    if (gathered.size() == frame.dataSize) return {gathered.begin(), gathered.end()};
    return readUnchanged(*this, frame.offset + RawFrame::kHeaderSize, frame.dataSize);
}

ByteArray TagImage::bytes(const RawFrame& frame) const {
    const Bytes gathered = head(frame);
    if (gathered.size() != frame.dataSize)
        return readUnchanged(*this, frame.offset, static_cast<std::size_t>(frame.size()));
    const auto header = encodedFrameHeader(frame);
    ByteArray bytes(header.begin(), header.end());
    bytes.insert(bytes.end(), gathered.begin(), gathered.end());
    return bytes;
}

TagImage::Refusal TagImage::paddingRefusal() {
    return {static_cast<std::int32_t>(Id3libError::BadData), "the padding behind the frames is not empty"};
}

std::optional<TagImage::Refusal> TagImage::refusal() const {
    if (refusal_ || padding_.size == 0) return refusal_;
    FileReader file(path_);
    if (!hasSameContent(file.identity(), identity())) throw changedFailure();
    for (std::uint64_t done = 0; done < padding_.size; done += kPaddingBlock) {
        const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(kPaddingBlock, padding_.size - done));
        const Bytes block = file.view(padding_.offset + done, count);
        if (block.size() != count) throw changedFailure();
        if (!isAllZero(block)) return paddingRefusal();
    }
    return std::nullopt;
}

} // namespace corvane
