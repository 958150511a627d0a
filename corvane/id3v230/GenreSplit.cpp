#include "corvane/id3v230/GenreSplit.h"

#include "corvane/id3v230/LeadingNumber.h"
#include "corvane/platform/RuntimeFailure.h"

#include <algorithm>

namespace corvane {

namespace {

constexpr const char* kSource = "splittedGenre";

// The text without the characters of the set at both ends.
std::string_view trimmed(std::string_view text, std::string_view set) {
    const std::size_t begin = text.find_first_not_of(set);
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(set) - begin + 1);
}

SplitGenre split(std::string_view text) {
    if (!text.starts_with('(')) return {std::nullopt, std::string(text)};
    if (text.ends_with(')')) return {leadingNumber(trimmed(text, "() "), kSource), std::string()};
    const std::size_t end = text.find(')');
    if (end == std::string_view::npos) return {std::nullopt, std::string(text)};
    return {leadingNumber(text.substr(1, end - 1), kSource), std::string(text.substr(end + 1))};
}

} // namespace

SplitGenre splitGenre(std::string_view text) {
    try {
        return split(trimmed(text, " "));
    } catch (const RuntimeFailure&) {
        return {};
    }
}

} // namespace corvane
