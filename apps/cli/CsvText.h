// Text as a CSV field (RFC 4180).
#pragma once

#include <string>
#include <string_view>

namespace corvane::cli {

// Appends `text`, in quotes where it needs them. Malformed UTF-8 becomes U+FFFD; so does NUL, which many readers of CSV
// take for the end of everything.
void appendCsvField(std::string& line, std::string_view text);

} // namespace corvane::cli
