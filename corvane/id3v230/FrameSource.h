// The frame of a tag in a file from which a frame record was read. What it says is taken out of the tag when somebody
// asks: most records of most tags are never looked at.
#pragma once

#include "corvane/id3v230/FrameContent.h"
#include "corvane/id3v230/TagImage.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <utility>

namespace corvane {

class FrameSource {
public:
    // index: place among the frames of the tag, from 0; there must be one.
    FrameSource(std::shared_ptr<const TagImage> tag, std::size_t index) : tag_(std::move(tag)), index_(index) {}

    const std::shared_ptr<const TagImage>& tag() const { return tag_; }
    const RawFrame& frame() const { return tag_->frames()[index_]; }
    std::size_t index() const { return index_; }
    // The same frame after the library has written the tag anew.
    void moveTo(std::shared_ptr<const TagImage> tag, std::size_t index) noexcept {
        tag_ = std::move(tag);
        index_ = index;
    }

    ID3_FrameID number() const;
    // Whether the frame would inflate beyond the limit of its tag.
    bool isTooLarge() const { return tag_->isTooLarge(frame()); }
    // What the frame says; nothing when nobody can know, because it is encrypted, cannot be inflated or is too large.
    // What precedes the image of a picture is in memory in all but odd cases, so nothing is read for it.
    std::optional<FrameContent> content() const;
    // The payload whole: the frame's data, inflated, without the bytes that its flags announce. Encrypted data stay as
    // they are. Fails with a RuntimeFailure when the tag's file was changed or is gone and the frame was not read with
    // the tag, and when it is too large.
    ByteArray payload() const;

private:
    std::shared_ptr<const TagImage> tag_;
    std::size_t index_;
};

} // namespace corvane
