// Splitting the text of a content type (TCON), such as "(17)Rock", into a number and a description.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

// What a text gives; nothing where it gives none.
struct SplitGenre {
    std::optional<std::int16_t> number;
    std::optional<std::string> description;
};

//   "(17)", " ((17)) "  number 17, description ""
//   "(17)Rock"          number 17, description "Rock"
//   "Rock"              description "Rock"
// A number that does not fit 16 bits gives nothing at all.
SplitGenre splitGenre(std::string_view text);

} // namespace corvane
