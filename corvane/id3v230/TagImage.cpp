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

constexpr const char* kUncovered =
    "another ID3v2 tag follows the one that was removed; it can be changed when the file is opened again";

} // namespace

TagImage::TagImage(std::string path, const FileIdentity& identity) : path_(std::move(path)) { file_.set(identity); }

std::shared_ptr<TagImage> TagImage::none(const std::string& path, const FileIdentity& identity) {
    return TagGatherer(path, identity, 0).done();
}

std::shared_ptr<TagImage> TagImage::uncovered(const std::string& path, const FileIdentity& identity) {
    TagGatherer image(path, identity, 0);
    image.refuse(kUncovered, Id3libError::NoFile);
    return image.done();
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

bool TagImage::isTooLarge(const RawFrame& frame) const {
    return std::binary_search(tooLarge_.begin(), tooLarge_.end(), frame.offset);
}

ByteArray TagImage::data(const RawFrame& frame) const {
    const Bytes gathered = head(frame);
    if (gathered.size() == frame.dataSize) return {gathered.begin(), gathered.end()};
    const std::size_t index = indexOf(frame);
    if (auto kept = large_.keptData(index)) return std::move(*kept);
    ByteArray data = readUnchanged(frame.offset + RawFrame::kHeaderSize, frame.dataSize);
    large_.wasRead(index, LargeFrames::fingerprintOf(data));
    return data;
}

ByteArray TagImage::bytes(const RawFrame& frame) const {
    const auto header = encodedFrameHeader(frame);
    ByteArray bytes(header.begin(), header.end());
    const ByteArray rest = data(frame);
    bytes.insert(bytes.end(), rest.begin(), rest.end());
    return bytes;
}

ByteArray TagImage::readUnchanged(std::uint64_t offset, std::size_t count) const {
    FileReader file(path_);
    requireUnchanged(file);
    ByteArray bytes = file.read(offset, count);
    if (bytes.size() != count || !file.isUnchanged()) throw changedFailure();
    return bytes;
}

void TagImage::requireUnchanged(const FileIdentity& now) const {
    if (now == identity()) return;
    FileReader file(path_);
    if (file.identity() != now) throw changedFailure();
    requireUnchanged(file);
}

void TagImage::requireUnchanged(FileReader& file) const {
    const FileIdentity known = identity();
    if (file.identity() == known) return;
    if (!hasSameContent(file.identity(), known) || !hasSameTag(file) || !file.isUnchanged()) throw changedFailure();
    follow({known, file.identity()});
}

bool TagImage::hasSameTag(FileReader& file) const {
    const auto found = read(file, path_);
    if (found->head_ != head_ || found->frames_ != frames_ || found->padding_ != padding_) return false;
    return hasFileOffsets() ? hasSameFrames(file) : found->memory_ == memory_;
}

// Of data as far as they are known.
bool TagImage::hasSameFrames(FileReader& file) const {
    const auto dataOf = [](const RawFrame& frame) { return frame.offset + RawFrame::kHeaderSize; };
    for (const RawFrame& frame : frames_) {
        const Bytes known = head(frame);
        if (!std::ranges::equal(file.view(dataOf(frame), known.size()), known)) return false;
    }
    const auto isTheSame = [&](const auto& known) {
        const RawFrame& frame = frames_.at(known.first);
        return LargeFrames::fingerprintOf(file.read(dataOf(frame), frame.dataSize)) == known.second;
    };
    return std::ranges::all_of(large_.fingerprints(), isTheSame);
}

std::shared_ptr<const KeptFrames> TagImage::readForKeeping(std::span<const std::size_t> indices) const {
    std::uint64_t size = 0;
    for (const std::size_t index : indices) size += isInMemory(frames_.at(index)) ? 0 : frames_[index].dataSize;
    if (size == 0) return nullptr;
    FileReader file(path_);
    requireUnchanged(file);
    const auto kept = std::make_shared<KeptFrames>(size);
    for (const std::size_t index : indices) {
        if (!isInMemory(frames_[index])) kept->keep(index, frames_[index], file);
    }
    if (!file.isUnchanged()) throw changedFailure();
    return kept;
}

TagImage::Refusal TagImage::paddingRefusal() {
    return {static_cast<std::int32_t>(Id3libError::BadData), "the padding behind the frames is not empty"};
}

std::optional<TagImage::Refusal> TagImage::refusal() const {
    if (refusal_ || padding_.size == 0) return refusal_;
    FileReader file(path_);
    requireUnchanged(file);
    for (std::uint64_t done = 0; done < padding_.size; done += kPaddingBlock) {
        const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(kPaddingBlock, padding_.size - done));
        const Bytes block = file.view(padding_.offset + done, count);
        if (block.size() != count) throw changedFailure();
        if (!isAllZero(block)) return paddingRefusal();
    }
    return std::nullopt;
}

} // namespace corvane
