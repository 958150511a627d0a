#include "corvane/id3v2/ReaderAnswers.h"

#include "corvane/id3v2/ByteHelpers.h"
#include "corvane/id3v2/FrameText.h"
#include "corvane/platform/Numbers.h"

#include <utility>

namespace corvane {

const FrameRecord* frameNamed(const TagFrames& frames, std::string_view frameId) {
    const auto id = FrameId::named(frameId);
    return id ? frames.find(*id) : nullptr;
}

const FrameRecord* frameAt(const TagFrames& frames, std::int32_t index) {
    return index < 1 ? nullptr : frames.at(static_cast<std::size_t>(index) - 1);
}

std::int32_t frameCount(const TagFrames& frames) { return narrowed<std::int32_t>(frames.count(), "FrameCount"); }

std::string textOf(const TagFrames& frames, const FrameRecord& record) {
    return textData(record.id, record.encrypted, frames.payload(record).bytes());
}

std::string textOfVersion22(const TagFrames& frames, const FrameRecord& record) {
    return textDataOfVersion22(record.id, frames.payload(record).bytes());
}

ByteArray payloadOf(const TagFrames& frames, const FrameRecord& record) {
    Payload payload = frames.payload(record);
    const std::size_t size = payload.bytes().size();
    return std::move(payload).takeLast(size);
}

ByteArray contentOf(const TagFrames& frames, const FrameRecord& record) {
    Payload payload = frames.payload(record);
    const std::size_t size = removeHeader(record.id, payload.bytes()).size(); // its end is the payload's
    return std::move(payload).takeLast(size);
}

std::shared_ptr<Picture> recordedPicture(const TagFrames& frames, cError& error) {
    const FrameRecord* record = frames.find("APIC");
    if (record == nullptr) return nullptr;
    return recordFailures(error, std::shared_ptr<Picture>(),
                          [&] { return PictureFromBytes(contentOf(frames, *record)); });
}

} // namespace corvane
