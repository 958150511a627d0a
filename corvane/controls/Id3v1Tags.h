// The tags that the ID3v1 editor holds, and which of them it shows.
#pragma once

#include "corvane/id3v1/ID3V1Tag.h"

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace corvane::controls {

class Id3v1Tags {
public:
    std::size_t count() const { return tags_.size(); }
    // Counts from 0; of no meaning without tags.
    std::size_t shownOffset() const { return shown_; }
    std::shared_ptr<ID3V1Tag> shown() const { return tags_.empty() ? nullptr : tags_[shown_]; }

    void clear() {
        tags_.clear();
        shown_ = 0;
    }
    // Adds a tag and shows it.
    void add(std::shared_ptr<ID3V1Tag> tag) {
        tags_.push_back(std::move(tag));
        shown_ = tags_.size() - 1;
    }

    bool hasNext() const { return shown_ + 1 < tags_.size(); }
    bool hasPrevious() const { return shown_ > 0; }
    void next() { shown_ += hasNext() ? 1U : 0U; }
    void previous() { shown_ -= hasPrevious() ? 1U : 0U; }

private:
    std::vector<std::shared_ptr<ID3V1Tag>> tags_;
    std::size_t shown_ = 0;
};

} // namespace corvane::controls
