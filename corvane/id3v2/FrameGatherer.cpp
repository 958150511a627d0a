#include "corvane/id3v2/FrameGatherer.h"

#include "corvane/id3v2/Inflate.h"
#include "corvane/platform/ByteReader.h"

#include <array>

namespace corvane {

namespace {

// Payloads up to these sizes are gathered at once, since most of them will be asked for.
constexpr std::size_t kGatheredSize = FileReader::kBlockSize;
constexpr std::size_t kGatheredTextSize = 64 * 1024;

constexpr std::array<FrameId, 6> kTextIds{"COMM", "USLT", "SYLT", "COM", "ULT", "SLT"};

constexpr bool holdsText(FrameId id) {
    return id.first() == 'T' || id.first() == 'W' || std::find(kTextIds.begin(), kTextIds.end(), id) != kTextIds.end();
}

constexpr bool isGathered(const FrameRecord& record, std::size_t size) {
    return size <= (holdsText(record.id) ? kGatheredTextSize : kGatheredSize);
}

} // namespace

FrameGatherer::FrameGatherer(FileReader& file, std::string path) : file_(&file) {
    frames_->path_ = std::move(path);
    frames_->identity_ = file.identity();
}

FrameGatherer::FrameGatherer(ByteArray body) { frames_->body_ = std::move(body); }

std::shared_ptr<const TagFrames> FrameGatherer::done() {
    frames_->buildKeys();
    return std::exchange(frames_, std::make_shared<TagFrames>());
}

Bytes FrameGatherer::view(std::uint64_t position, std::size_t count) {
    if (file_ != nullptr) return file_->view(position, count);
    ByteReader rest = readerAt(frames_->body_, static_cast<std::size_t>(position));
    return *rest.take(std::min(count, rest.left()));
}

bool FrameGatherer::keep(const FrameHeader& header, const FrameForm& form, std::uint64_t data) {
    FrameRecord record;
    record.id = header.id;
    record.size = header.size - form.extraCount;
    record.offset = data + form.extraCount;
    record.place = file_ != nullptr ? FramePlace::File : FramePlace::Body;
    record.encrypted = form.encrypted;
    record.unsynchronised = form.unsynchronised;
    record.compressed = form.compressed && !form.encrypted;
    record.inflatedSize = form.inflatedSize;
    if (!gather(record)) return false;
    if (!record.id.isBlank()) frames_->records_.push_back(record);
    return true;
}

// Puts a small payload among the gathered ones. Whether a compressed one can be inflated is part of whether the tag can
// be loaded, so that is tried at once; false when it cannot, or when the file has fewer bytes than it had.
bool FrameGatherer::gather(FrameRecord& record) {
    const bool isPlain = !record.compressed && !record.unsynchronised;
    if (isPlain && record.place == FramePlace::Body) return true;
    if (!record.compressed && !isGathered(record, record.size)) return true;
    const Bytes raw = view(record.offset, record.size);
    if (raw.size() < record.size) return false;
    const auto payload = undone(raw, record);
    if (payload && isGathered(record, payload->bytes().size())) {
        ByteArray& gathered = frames_->gathered_;
        record.offset = gathered.size();
        record.size = static_cast<std::uint32_t>(payload->bytes().size());
        record.place = FramePlace::Gathered;
        record.compressed = record.unsynchronised = false;
        gathered.insert(gathered.end(), payload->bytes().begin(), payload->bytes().end());
    }
    return payload.has_value();
}

} // namespace corvane
