// Fills the frames of a tag while its bytes are walked.
#pragma once

#include "corvane/id3v2/FrameWalk.h"
#include "corvane/id3v2/TagFrames.h"
#include "corvane/platform/FileReader.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

namespace corvane {

class FrameGatherer {
public:
    // Frames in a file; positions are offsets of the file. The path serves to read large payloads later.
    FrameGatherer(FileReader& file, std::string path);
    // Frames in a tag's body, which is kept; positions are indices of the body.
    explicit FrameGatherer(ByteArray body);

    // Walks the frames in [begin, end). A frame that cannot be inflated ends the walk; what was walked before it stays.
    template <class Layout>
    WalkEnd walk(const Layout& layout, std::uint64_t begin, std::uint64_t end) {
        const auto take = [&](const FrameHeader& header, std::uint64_t data) {
            const std::size_t extraCount = std::min<std::size_t>(header.size, Layout::kMostExtra);
            const auto form = layout.form(header, extraCount == 0 ? Bytes{} : view(data, extraCount));
            return form && keep(header, *form, data);
        };
        const WalkEnd walked = walkFrames(layout, *this, begin, end, take);
        frames_->paddingSize_ = walked.paddingSize;
        return walked;
    }

    // The frames gathered so far, ready for use; the gatherer is empty afterwards.
    std::shared_ptr<const TagFrames> done();

    Bytes view(std::uint64_t position, std::size_t count);

private:
    bool keep(const FrameHeader& header, const FrameForm& form, std::uint64_t data);
    bool gather(FrameRecord& record);

    std::shared_ptr<TagFrames> frames_ = std::make_shared<TagFrames>();
    FileReader* file_ = nullptr;
};

} // namespace corvane
