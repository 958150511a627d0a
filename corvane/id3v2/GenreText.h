// The two halves of a content type such as "(17)Rock", as the ID3v2.3 and ID3v2.4 readers split it.
#pragma once

#include <string>
#include <string_view>

namespace corvane {

// The text between "(" and ")" at the start, else the whole text; also the whole text when no ")" follows.
std::string genreIdOf(std::string_view contentType);

// The text behind the first ")" when the text begins with "(", else the whole text; also the whole text when no ")"
// follows.
std::string genreNameOf(std::string_view contentType);

} // namespace corvane
