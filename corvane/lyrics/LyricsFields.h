// The fields of a Lyrics3 v2.00 tag in their order, each under its ID. A search takes the same time however many fields
// a damaged file holds.
#pragma once

#include "corvane/lyrics/LyricsV200Field.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace corvane {

class LyricsFields {
public:
    // Appends a field. False, and nothing is added, when there is one of its ID already.
    bool add(std::shared_ptr<LyricsV200Field> field);
    // The field of an ID (upper and lower case differ); nothing when there is none.
    std::shared_ptr<LyricsV200Field> find(std::string_view id) const;

    // The fields in order, by offset from 0; `at` raises std::out_of_range for a place without a field.
    std::size_t count() const { return fields_.size(); }
    const std::shared_ptr<LyricsV200Field>& at(std::size_t offset) const { return fields_.at(offset); }
    auto begin() const { return fields_.begin(); }
    auto end() const { return fields_.end(); }

private:
    std::vector<std::shared_ptr<LyricsV200Field>> fields_;
    std::unordered_map<std::string, std::size_t> offsets_; // by ID
};

} // namespace corvane
