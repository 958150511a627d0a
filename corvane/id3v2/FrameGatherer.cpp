#include "corvane/id3v2/FrameGatherer.h"

#include "corvane/platform/ByteReader.h"

#include <algorithm>
#include <array>

namespace corvane {

namespace {

// Text up to this size is gathered at once, since most of it will be asked for. So are other payloads, when they are
// small and have been read from the file anyway.
constexpr std::size_t kGatheredSize = FileReader::kBlockSize;
constexpr std::size_t kGatheredTextSize = std::size_t{64} * 1024;

// Room for most tags without a second allocation, below 1 KB each, up to where allocators are at their fastest.
constexpr std::size_t kUsualFrames = 1000 / sizeof(FrameRecord);
constexpr std::size_t kUsualTextSize = 1000; // bytes

constexpr std::array<FrameId, 6> kTextIds{"COMM", "USLT", "SYLT", "COM", "ULT", "SLT"};

constexpr bool holdsText(FrameId id) {
    return id.first() == 'T' || id.first() == 'W' || std::find(kTextIds.begin(), kTextIds.end(), id) != kTextIds.end();
}

constexpr bool isGathered(const FrameRecord& record, std::size_t size) {
    return size <= (holdsText(record.id) ? kGatheredTextSize : kGatheredSize);
}

} // namespace

FrameGatherer::FrameGatherer(FileReader& file, std::string path) : file_(&file), budget_(file.size()) {
    frames_->records_.reserve(kUsualFrames);
    frames_->gathered_.reserve(kUsualTextSize);
    frames_->path_ = std::move(path);
    frames_->file_.set(file.identity());
}

FrameGatherer::FrameGatherer(ByteArray body, std::uint64_t fileSize) : budget_(fileSize) {
    frames_->records_.reserve(kUsualFrames);
    frames_->body_ = std::move(body);
}

std::shared_ptr<const TagFrames> FrameGatherer::done() {
    frames_->buildKeys();
    return std::move(frames_);
}

Bytes FrameGatherer::view(std::uint64_t position, std::size_t count) {
    if (file_ != nullptr) return file_->view(position, count);
    ByteReader rest = readerAt(frames_->body_, static_cast<std::size_t>(position));
    return *rest.take(std::min(count, rest.left()));
}

bool FrameGatherer::keep(FrameId id, const FrameForm& form, std::uint64_t payload, std::uint32_t payloadSize) {
    FrameRecord record;
    record.id = id;
    record.size = payloadSize;
    record.offset = payload;
    record.inflatedSize = form.inflatedSize;
    record.place = file_ != nullptr ? FramePlace::File : FramePlace::Body;
    record.encrypted = form.encrypted;
    record.unsynchronised = form.unsynchronised;
    record.compressed = form.compressed && !form.encrypted;
    if (!gather(record)) return false;
    if (!id.isBlank()) frames_->records_.push_back(record);
    return true;
}

// Puts a small payload among the gathered ones. Whether a compressed one can be inflated is part of whether the tag can
// be loaded, so that is tried at once; false when it cannot, or when the file has fewer bytes than it had.
bool FrameGatherer::gather(FrameRecord& record) {
    if (record.place == FramePlace::Body && record.isPlain()) return true;
    if (!record.compressed && !isGathered(record, record.size)) return true;
    if (record.isPlain() && !holdsText(record.id) && file_->atHand(record.offset) < record.size) return true;
    const Bytes raw = view(record.offset, record.size);
    if (raw.size() < record.size) return false;
    if (record.isPlain()) {
        gather(record, raw);
        return true;
    }
    Payload stream = synchronised(raw, record);
    if (record.compressed) {
        if (record.inflatedSize > 0 &&
            !budget_.take(stream.bytes().size(), static_cast<std::uint64_t>(record.inflatedSize))) {
            record.place = FramePlace::TooLarge;
            return true;
        }
        const auto size = inflatedSize(stream.bytes(), record.inflatedSize);
        if (!size) return false;
        record.inflatedSize = *size;
        if (!isGathered(record, static_cast<std::size_t>(*size))) return true;
    }
    const auto payload = uncompressed(std::move(stream), record);
    if (payload) gather(record, payload->bytes());
    return payload.has_value();
}

void FrameGatherer::gather(FrameRecord& record, Bytes payload) {
    ByteArray& gathered = frames_->gathered_;
    record.offset = gathered.size();
    record.size = static_cast<std::uint32_t>(payload.size());
    record.place = FramePlace::Gathered;
    record.unsynchronised = record.compressed = false;
    gathered.insert(gathered.end(), payload.begin(), payload.end());
}

} // namespace corvane
