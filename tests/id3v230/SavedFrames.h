// Lists of frames to save, for tests.
#pragma once

#include "corvane/id3v230/TagSaving.h"
#include "corvane/platform/FileReader.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/Id3v2Builder.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::test {

inline std::shared_ptr<TagImage> imageOf(const std::string& path) {
    FileReader file(path);
    return TagImage::read(file, path);
}

// A frame with its header.
inline ByteArray frameBytes(std::string_view id, Bytes data, unsigned formatFlags = 0, unsigned statusFlags = 0) {
    return Id3v2Builder().frame(id, data, formatFlags, statusFlags).body();
}

inline ByteArray titleBytes(std::string_view title) { return frameBytes("TIT2", textFrame(title)); }

// Every frame of a tag as it is.
inline std::vector<TagFrame> carriedFrames(const TagImage& image) {
    std::vector<TagFrame> frames;
    for (const RawFrame& frame : image.frames()) frames.push_back(TagFrame::carriedOver(frame));
    return frames;
}

// The same with another title in the title's place, or behind the others when there is none.
inline std::vector<TagFrame> framesWithTitle(const TagImage& image, std::string_view title) {
    std::vector<TagFrame> frames = carriedFrames(image);
    for (TagFrame& frame : frames) {
        if (frame.carried.idText() != "TIT2") continue;
        frame = TagFrame::madeOf(titleBytes(title));
        return frames;
    }
    frames.push_back(TagFrame::madeOf(titleBytes(title)));
    return frames;
}

inline SavedTag saveTitle(const std::string& path, std::string_view title, bool safely = true) {
    const auto image = imageOf(path);
    return saveTag(*image, framesWithTitle(*image, title), safely);
}

} // namespace corvane::test
