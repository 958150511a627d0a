// Fills the frames of a tag while its bytes are walked.
#pragma once

#include "corvane/id3v2/FrameWalk.h"
#include "corvane/id3v2/TagFrames.h"
#include "corvane/platform/FileReader.h"
#include "corvane/platform/Inflate.h"

#include <memory>
#include <string>
#include <utility>

namespace corvane {

class FrameGatherer {
public:
    // Frames in a file; positions are offsets of the file. The path serves to read large payloads later.
    FrameGatherer(FileReader& file, std::string path);
    // Frames in a tag's body, which is kept; positions are indices of the body. fileSize: bytes of the tag's file.
    FrameGatherer(ByteArray body, std::uint64_t fileSize);

    // Walks the frames in [begin, end). A frame that cannot be inflated ends the walk; what was walked before it stays.
    // One that would inflate beyond the limit of the tag is kept as too large.
    template <class Layout>
    WalkEnd walk(const Layout& layout, std::uint64_t begin, std::uint64_t end) {
        const auto take = [&](const FrameHeader& header, std::uint64_t data) {
            const std::uint32_t extraCount = layout.extraCount(header);
            if (extraCount > header.size) return false;
            const Bytes extra = extraCount == 0 ? Bytes{} : view(data, extraCount);
            return extra.size() == extraCount &&
                   keep(header.id, layout.form(header, extra), data + extraCount, header.size - extraCount);
        };
        const WalkEnd walked = walkFrames(layout, *this, begin, end, take);
        frames_->paddingSize_ = walked.paddingSize;
        return walked;
    }

    // The frames gathered so far, ready for use. To be called once, at the end.
    std::shared_ptr<const TagFrames> done();

    Bytes view(std::uint64_t position, std::size_t count);

private:
    bool keep(FrameId id, const FrameForm& form, std::uint64_t payload, std::uint32_t payloadSize);
    bool gather(FrameRecord& record);
    void gather(FrameRecord& record, Bytes payload);

    std::shared_ptr<TagFrames> frames_ = std::make_shared<TagFrames>();
    FileReader* file_ = nullptr;
    InflationBudget budget_;
};

} // namespace corvane
