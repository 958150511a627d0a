#include "corvane/id3v230/TagGatherer.h"

#include "corvane/platform/ByteReader.h"
#include "corvane/platform/Zeros.h"

#include <algorithm>
#include <array>

namespace corvane {

namespace {

// Text up to this size is gathered at once, since all of it will be asked for. So are other frames, when they are small
// and have been read from the file anyway; of the rest, as much as tells what they are.
constexpr std::size_t kGatheredTextSize = std::size_t{64} * 1024;
constexpr std::size_t kGatheredSize = 4096;
constexpr std::size_t kGatheredHead = 256;

constexpr std::array<std::string_view, 3> kTextIds{"COMM", "USLT", "SYLT"};

bool holdsText(std::string_view id) {
    return id.front() == 'T' || id.front() == 'W' || std::ranges::find(kTextIds, id) != kTextIds.end();
}

bool isEmpty(Bytes padding) { return isAllZero(padding); }

// What comes out of a compressed frame is claimed at the beginning of its data, which is always gathered.
constexpr std::size_t kClaimSize = 4; // bytes

bool isInflatable(const RawFrame& frame) {
    constexpr std::uint8_t kCompressed = 0x80, kEncrypted = 0x40; // format flags, ID3v2.3.0 section 3.3.1
    return (frame.formatFlags & kCompressed) != 0 && (frame.formatFlags & kEncrypted) == 0;
}

class BodySource {
public:
    explicit BodySource(Bytes body) : body_(body) {}
    Bytes view(std::uint64_t position, std::size_t count) const {
        ByteReader rest = readerAt(body_, static_cast<std::size_t>(position));
        return *rest.take(std::min(count, rest.left()));
    }
    // Nothing has to be gathered: the body is kept.
    static std::size_t atHand(std::uint64_t) { return 0; }

private:
    Bytes body_;
};

} // namespace

void TagGatherer::refuse(std::string reason, Id3libError error) {
    if (!image_->refusal_) image_->refusal_ = TagImage::Refusal{static_cast<std::int32_t>(error), std::move(reason)};
}

void TagGatherer::noteInflation(const RawFrame& frame, Bytes beginningOfData) {
    if (!isInflatable(frame)) return;
    const std::uint32_t claim = ByteReader(beginningOfData).number<kClaimSize>().value_or(0);
    if (!budget_.take(frame.dataSize, claim)) image_->tooLarge_.push_back(frame.offset);
}

std::size_t TagGatherer::gatheredSize(const RawFrame& frame, std::size_t atHand) {
    const std::size_t size = frame.dataSize;
    if (holdsText(frame.idText()) && size <= kGatheredTextSize) return size;
    if (size <= atHand && size <= kGatheredSize) return size;
    return std::max(std::min({size, atHand, kGatheredHead}), isInflatable(frame) ? std::min(size, kClaimSize) : 0);
}

void TagGatherer::keep(const RawFrame& frame, Bytes data) {
    const auto offset = static_cast<std::uint32_t>(image_->memory_.size());
    image_->frames_.push_back(frame);
    image_->gathered_.push_back({offset, static_cast<std::uint32_t>(data.size())});
    image_->memory_.insert(image_->memory_.end(), data.begin(), data.end());
}

void TagGatherer::ended(const RawWalkEnd& walked, std::uint64_t end) {
    if (walked.damage) {
        refuse(*walked.damage);
    } else {
        image_->padding_ = {walked.position, end - walked.position};
    }
}

void TagGatherer::walkBody(ByteArray body, std::uint64_t begin) {
    BodySource source(body);
    const auto take = [&](const RawFrame& frame) {
        image_->frames_.push_back(frame);
        noteInflation(frame, source.view(frame.offset + RawFrame::kHeaderSize, frame.dataSize));
        const auto data = static_cast<std::uint32_t>(frame.offset + RawFrame::kHeaderSize);
        image_->gathered_.push_back({data, frame.dataSize});
    };
    const RawWalkEnd walked = walkRawFrames(source, begin, body.size(), take);
    if (walked.damage) {
        refuse(*walked.damage);
    } else if (!isEmpty(readerAt(body, static_cast<std::size_t>(walked.position)).takeRest())) {
        refuse(TagImage::paddingRefusal().reason);
    }
    image_->memory_ = std::move(body);
}

} // namespace corvane
