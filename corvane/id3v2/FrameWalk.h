// The walk over the frames of a tag, over bytes in memory or in a file.
//
// A source is anything with `Bytes view(std::uint64_t position, std::size_t count)`, which gives fewer bytes where they
// end; the view is good until the next call. Only frame headers are looked at, and what the caller looks at, so a large
// payload costs nothing.
#pragma once

#include "corvane/id3v2/FrameLayout.h"

#include <cstdint>

namespace corvane {

// Where a walk ended.
struct WalkEnd {
    bool isComplete = false;       // everything up to the end was frames and padding
    std::uint64_t position = 0;    // where the walk ended
    std::uint64_t paddingSize = 0; // the last position less that of the padding: one less than its bytes, on purpose
};

// Walks the frames in [begin, end) and calls `take(header, position of the frame data)` for each one that has data;
// `take` returns false for a frame that cannot be read, which ends the walk. Frames without data are passed over. One
// byte behind the last frame is no frame and no fault; padding shorter than a frame header is a fault, as hosts know
// it.
template <class Layout, class Source, class Take>
WalkEnd walkFrames(const Layout& layout, Source& source, std::uint64_t begin, std::uint64_t end, Take&& take) {
    std::uint64_t position = begin;
    while (position + 1 < end) {
        const std::uint64_t left = end - position;
        if (left < Layout::kHeaderSize) return {false, position};
        const Bytes bytes = source.view(position, Layout::kHeaderSize);
        if (bytes.size() < Layout::kHeaderSize) return {false, position};
        const FrameHeader header = layout.header(bytes);
        if (header.size > left - Layout::kHeaderSize) return {false, position};
        if (header.isPadding) return {true, position, left - 1};
        const std::uint64_t data = position + Layout::kHeaderSize;
        if (header.size > 0 && !take(header, data)) return {false, position};
        position = data + header.size;
    }
    return {true, position};
}

} // namespace corvane
