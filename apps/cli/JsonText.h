// Text as a JSON string (RFC 8259), for the list that is too long to build a document for each of its lines.
#pragma once

#include <string>
#include <string_view>

namespace corvane::cli {

// Appends `text` in quotes. Malformed UTF-8 becomes U+FFFD; characters that act on a terminal become escapes, so
// that a line may be shown there.
void appendJsonString(std::string& line, std::string_view text);

} // namespace corvane::cli
