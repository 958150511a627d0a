// The walk over the frames of an ID3v2.3 tag as they stand there. It is lenient: whole frames in front of damage are
// frames. But it tells whether everything could be understood, since a tag that could not must not be written anew.
//
// A source is anything with `Bytes view(std::uint64_t position, std::size_t count)`, which gives fewer bytes where they
// end; the view is good until the next call. Only frame headers are looked at, and what the caller looks at.
#pragma once

#include "corvane/id3v230/RawFrame.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvane {

// Where a walk ended: what is left is padding, or begins with something that is no frame.
struct RawWalkEnd {
    std::uint64_t position = 0;        // behind the last whole frame
    std::optional<std::string> damage; // what is wrong there
};

inline std::string noFrameAt(std::uint64_t position) {
    return "something that is no frame stands at offset " + std::to_string(position);
}

inline std::string runsPastTheEnd(const RawFrame& frame) {
    const std::string_view id = frame.idText();
    return "the frame " + std::string(id.substr(0, id.find_first_of(std::string_view(" \0", 2)))) +
           " runs past the end of the tag";
}

// Walks [begin, end) and calls `take(frame)` for each whole frame, those without data included. The padding begins
// where a frame ID would begin with 0; it is not looked at.
template <class Source, class Take>
RawWalkEnd walkRawFrames(Source& source, std::uint64_t begin, std::uint64_t end, Take&& take) {
    std::uint64_t position = begin;
    while (position < end) {
        const std::uint64_t left = end - position;
        const std::size_t wanted = left < RawFrame::kHeaderSize ? std::size_t{1} : RawFrame::kHeaderSize;
        const Bytes bytes = source.view(position, wanted);
        if (!bytes.empty() && bytes.front() == 0) return {position, std::nullopt};
        const auto frame = decodeFrameHeader(bytes, position);
        if (!frame || !frame->hasFrameId()) return {position, noFrameAt(position)};
        if (frame->size() > left) return {position, runsPastTheEnd(*frame)};
        take(*frame);
        position += frame->size();
    }
    return {position, std::nullopt};
}

} // namespace corvane
