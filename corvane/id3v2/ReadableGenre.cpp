#include "corvane/id3v2/ReadableGenre.h"

#include "corvane/id3v1/GenreTable.h"
#include "corvane/platform/EncodedText.h"
#include "corvane/platform/Numbers.h"

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

namespace corvane {

namespace {

// What a reference stands for; nothing when it is none.
std::optional<std::string_view> referenced(std::string_view reference) {
    if (reference == "RX") return "Remix";
    if (reference == "CR") return "Cover";
    const auto number = parseNumber<unsigned char>(reference);
    if (!number) return std::nullopt;
    if (*number == kUndefinedGenre) return "";
    const std::string_view name = genreName(*number);
    return name.empty() ? std::nullopt : std::optional(name);
}

// Takes a leading "(...)" that is a reference.
std::optional<std::string_view> takeReference(std::string_view& contentType) {
    const std::size_t end = contentType.starts_with('(') ? contentType.find(')') : std::string_view::npos;
    if (end == std::string_view::npos) return std::nullopt;
    const auto name = referenced(contentType.substr(1, end - 1));
    if (name) contentType.remove_prefix(end + 1);
    return name;
}

void addOnce(std::vector<std::string>& names, std::string_view name) {
    if (!name.empty() && std::find(names.begin(), names.end(), name) == names.end()) names.emplace_back(name);
}

} // namespace

std::string readableGenre(std::string_view contentType) {
    std::vector<std::string> names;
    std::string_view rest = contentType;
    while (const auto name = takeReference(rest)) addOnce(names, *name);
    rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
    if (rest.starts_with("((")) rest.remove_prefix(1); // how the format writes a name that begins with "("
    if (rest.empty()) return joinedValues(names);
    return std::string(referenced(rest).value_or(rest));
}

std::string readableGenre(const std::vector<std::string>& contentTypes) {
    if (contentTypes.size() == 1) return readableGenre(contentTypes.front());
    std::vector<std::string> names;
    std::set<std::string> seen; // a crafted frame may hold a hundred thousand names
    for (const std::string& contentType : contentTypes) {
        std::string name = readableGenre(contentType);
        if (!name.empty() && seen.insert(name).second) names.push_back(std::move(name));
    }
    return joinedValues(names);
}

} // namespace corvane
