#include "corvane/id3v2/StoredGenre.h"

#include "corvane/id3v1/GenreTable.h"
#include "corvane/platform/Numbers.h"

#include <algorithm>

namespace corvane {

namespace {

// The letters of a name that are compared: "Trip -Hop" is found as "trip-hop".
std::string keyOf(std::string_view name) {
    std::string key;
    for (const char character : name) {
        if (character == ' ') continue;
        const bool isUpper = character >= 'A' && character <= 'Z';
        key.push_back(isUpper ? static_cast<char>(character - 'A' + 'a') : character);
    }
    return key;
}

std::optional<std::uint8_t> numberOfName(std::string_view name) {
    const auto found = std::find_if(kGenreTable.begin(), kGenreTable.end(),
                                    [key = keyOf(name)](const GenreRow& row) { return keyOf(row.name) == key; });
    if (found == kGenreTable.end()) return std::nullopt;
    return static_cast<std::uint8_t>(found->number);
}

// "17", or "(17)" with the text after it.
struct Reference {
    std::optional<std::uint8_t> number;
    std::string_view rest;
};

Reference referenceIn(std::string_view entered) {
    if (!entered.starts_with('(')) return {parseNumber<std::uint8_t>(entered), {}};
    const std::size_t end = entered.find(')');
    if (end == std::string_view::npos) return {};
    return {parseNumber<std::uint8_t>(entered.substr(1, end - 1)), entered.substr(end + 1)};
}

// Whether the text after a number adds nothing to it.
bool isNameOf(std::uint8_t number, std::string_view text) {
    return text.empty() || keyOf(text) == keyOf(genreName(number));
}

} // namespace

std::optional<std::uint8_t> genreNumber(std::string_view entered) {
    if (entered.empty()) return static_cast<std::uint8_t>(kUndefinedGenre);
    const Reference reference = referenceIn(entered);
    return reference.number ? reference.number : numberOfName(entered);
}

std::string storedGenre(std::string_view entered) {
    const auto number = genreNumber(entered);
    if (!number || !isNameOf(*number, referenceIn(entered).rest)) return std::string(entered);
    return *number == kUndefinedGenre ? std::string() : "(" + std::to_string(*number) + ")";
}

} // namespace corvane
