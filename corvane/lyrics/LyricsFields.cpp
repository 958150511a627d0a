#include "corvane/lyrics/LyricsFields.h"

#include <utility>

namespace corvane {

bool LyricsFields::add(std::shared_ptr<LyricsV200Field> field) {
    if (!offsets_.emplace(field->ID(), fields_.size()).second) return false;
    fields_.push_back(std::move(field));
    return true;
}

std::shared_ptr<LyricsV200Field> LyricsFields::find(std::string_view id) const {
    const auto found = offsets_.find(std::string(id));
    return found == offsets_.end() ? nullptr : fields_.at(found->second);
}

} // namespace corvane
