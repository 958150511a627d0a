// How the library fills a field.
#pragma once

#include "corvane/lyrics/LyricsV200Field.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace corvane {

template <>
struct Internals<LyricsV200Field> {
    // Sets the ID, padded with blanks or cut to 3 characters.
    static void ID(LyricsV200Field& field, std::string_view id) { field.ID(id); }

    static std::shared_ptr<LyricsV200Field> of(std::string_view id, std::int32_t size, std::string textData) {
        auto field = std::make_shared<LyricsV200Field>();
        field->ID(id);
        field->Size(size);
        field->TextData(std::move(textData));
        return field;
    }
};

} // namespace corvane
