// How many columns of a terminal a text takes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::cli {

// Columns of visible text: 2 for the wide characters of East Asia and for pictographs, 0 for combining marks, else 1.
std::size_t displayWidth(std::string_view text);

// The text in pieces of at most `width` columns, broken at blanks where there are any. At least one piece.
std::vector<std::string> wrapped(std::string_view text, std::size_t width);

} // namespace corvane::cli
