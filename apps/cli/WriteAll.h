// Writing to a file descriptor until everything is written.
#pragma once

#include <string_view>

namespace corvane::cli {

// Writes all of `text`. Fails with a RuntimeFailure that carries errno's number and text.
void writeAll(int descriptor, std::string_view text);

} // namespace corvane::cli
