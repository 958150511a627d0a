#include "apps/cli/CsvText.h"

#include "corvane/platform/Utf.h"

namespace corvane::cli {

namespace {

// Blanks at either end are part of the field; some readers drop them where there are no quotes.
bool needsQuotes(std::string_view text) {
    if (text.find_first_of(",\"\r\n") != std::string_view::npos) return true;
    return !text.empty() && (text.front() == ' ' || text.back() == ' ');
}

} // namespace

void appendCsvField(std::string& line, std::string_view text) {
    const bool quoted = needsQuotes(text);
    if (quoted) line.push_back('"');
    while (!text.empty()) {
        const char32_t character = takeCodePoint(text);
        if (character == '"') line.push_back('"');
        appendUtf8(line, character == 0 ? kReplacementCharacter : character);
    }
    if (quoted) line.push_back('"');
}

} // namespace corvane::cli
