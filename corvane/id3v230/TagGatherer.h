// Fills the image of a tag while its bytes are walked.
#pragma once

#include "corvane/id3v230/Id3libError.h"
#include "corvane/id3v230/RawWalk.h"
#include "corvane/id3v230/TagImage.h"
#include "corvane/platform/Inflate.h"

#include <memory>
#include <string>
#include <utility>

namespace corvane {

class TagGatherer {
public:
    TagGatherer(const std::string& path, const FileIdentity& identity, std::uint64_t fileSize)
        : image_(new TagImage(path, identity)), // NOLINT: the constructor is private
          budget_(fileSize) {}

    void setHead(const TagHead& head) { image_->head_ = head; }
    // Keeps the first reason only.
    void refuse(std::string reason, Id3libError error = Id3libError::BadData);

    // Walks the frames in [begin, end) of a source that also has `std::size_t atHand(std::uint64_t position)`: how many
    // bytes a view gives there at no cost.
    template <class Source>
    void walk(Source& source, std::uint64_t begin, std::uint64_t end) {
        image_->memory_.reserve(kUsualTextSize);
        image_->frames_.reserve(kUsualFrames);
        image_->gathered_.reserve(kUsualFrames);
        const auto take = [&](const RawFrame& frame) {
            const std::uint64_t data = frame.offset + RawFrame::kHeaderSize;
            const std::size_t size = gatheredSize(frame, source.atHand(data));
            const Bytes known = size == 0 ? Bytes{} : source.view(data, size);
            noteInflation(frame, known);
            keep(frame, known);
        };
        ended(walkRawFrames(source, begin, end, take), end);
    }
    // Walks a body whose unsynchronisation has been undone, from `begin` on, and keeps it.
    void walkBody(ByteArray body, std::uint64_t begin);

    std::shared_ptr<TagImage> done() { return std::move(image_); }

private:
    // Room for most tags.
    static constexpr std::size_t kUsualTextSize = 1000; // bytes
    static constexpr std::size_t kUsualFrames = 16;

    void noteInflation(const RawFrame& frame, Bytes beginningOfData);
    static std::size_t gatheredSize(const RawFrame& frame, std::size_t atHand);
    void keep(const RawFrame& frame, Bytes data);
    void ended(const RawWalkEnd& walked, std::uint64_t end);

    std::shared_ptr<TagImage> image_;
    InflationBudget budget_;
};

} // namespace corvane
