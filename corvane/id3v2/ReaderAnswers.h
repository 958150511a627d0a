// What the readers of all versions answer from their frames.
#pragma once

#include "corvane/core/cError.h"
#include "corvane/id3v2/FrameInternals.h"
#include "corvane/id3v2/TagFrames.h"

#include <cstdint>
#include <exception>
#include <memory>
#include <string>
#include <string_view>

namespace corvane {

// What `read` gives; the empty value when it fails. So end the property reads of a frame, which has no error record.
template <class Read>
auto valueOrEmpty(Read&& read) -> decltype(read()) {
    try {
        return read();
    } catch (const std::exception&) {
        return {};
    }
}

// The frame kept under an ID, or nullptr.
const FrameRecord* frameNamed(const TagFrames& frames, std::string_view frameId);
// The frame at a 1-based place of the keyed collection, or nullptr.
const FrameRecord* frameAt(const TagFrames& frames, std::int32_t index);

// Number of frames in the keyed collection.
std::int32_t frameCount(const TagFrames& frames);

// A handle for a record; nothing for none.
template <class Frame>
std::shared_ptr<Frame> handleOf(const std::shared_ptr<const TagFrames>& frames, const FrameRecord* record) {
    return record == nullptr ? nullptr : Internals<Frame>::make(frames, record);
}

// A frame's text by the rules of ID3v2.3 and ID3v2.4. Fails when its payload can no longer be read.
std::string textOf(const TagFrames& frames, const FrameRecord& record);
// The same by the rules of ID3v2.2.
std::string textOfVersion22(const TagFrames& frames, const FrameRecord& record);
// A frame's payload in an array of its own. Fails as textOf does.
ByteArray payloadOf(const TagFrames& frames, const FrameRecord& record);
// A frame's payload without its leading fields. Fails as textOf does.
ByteArray contentOf(const TagFrames& frames, const FrameRecord& record);

// The picture of the frame APIC; nothing when there is no such frame, when it holds no image, or when reading it fails,
// which is recorded.
std::shared_ptr<Picture> recordedPicture(const TagFrames& frames, cError& error);

// The text that `read(frames, record)` gives of a frame; "" when there is no such frame, or when reading it fails,
// which is recorded.
template <class Read>
std::string recordedText(const TagFrames& frames, const FrameRecord* record, cError& error, Read&& read) {
    if (record == nullptr) return {};
    return recordFailures(error, std::string(), [&] { return read(frames, *record); });
}

} // namespace corvane
