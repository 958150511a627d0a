#include "apps/cli/ChangeText.h"

#include "apps/cli/DisplayWidth.h"
#include "apps/cli/VisibleText.h"

#include <fmt/core.h>
#include <nlohmann/json.hpp>

#include <algorithm>

namespace corvane::cli {

namespace {

using Json = nlohmann::ordered_json;

std::string lineOf(const Json& document, bool asciiOnly) {
    return document.dump(-1, ' ', asciiOnly, Json::error_handler_t::replace) + "\n";
}

std::vector<std::string> namesOf(const ChangeReport& report, ChangedTag::Fate fate) {
    std::vector<std::string> names;
    for (const ChangedTag& tag : report.tags) {
        if (tag.fate == fate && tag.write) names.push_back(tag.name);
    }
    return names;
}

// Nothing for a tag that was there and still is.
const char* textOf(ChangedTag::Fate fate) {
    if (fate == ChangedTag::Fate::Kept) return nullptr;
    return fate == ChangedTag::Fate::Added ? "added" : "removed";
}

std::size_t labelWidth(const ChangeReport& report) {
    std::size_t width = 0;
    for (const ChangedTag& tag : report.tags) {
        for (const FieldChange& change : tag.changes) width = std::max(width, change.name.size());
    }
    return width;
}

// One line of a value that may be as long as the lyrics of an opera.
std::string inQuotes(std::string_view value) {
    constexpr std::size_t kColumns = 60;
    const std::string visible = visibleText(value);
    if (displayWidth(visible) <= kColumns) return fmt::format("\"{}\"", visible);
    return fmt::format("\"{}...\"", wrapped(visible, kColumns).front());
}

} // namespace

ChangeText::ChangeText(const ChangeOptions& options, const Output& output)
    : options_(options), colours_(options.colour, output.isTerminal()), asciiOnly_(output.isTerminal()) {}

std::string ChangeText::of(const std::string& path, const ChangeReport& report) const {
    if (options_.isJson) return jsonOf(path, report);
    return options_.isQuiet ? std::string() : linesOf(path, report);
}

std::string ChangeText::ofFailure(const std::string& path, std::string_view reason) const {
    if (!options_.isJson) return {};
    return lineOf({{"path", path}, {"ok", false}, {"error", reason}}, asciiOnly_);
}

std::string ChangeText::jsonOf(const std::string& path, const ChangeReport& report) const {
    Json changed = Json::object();
    for (const ChangedTag& tag : report.tags) {
        for (const FieldChange& change : tag.changes) {
            changed[tag.word][change.name] = {{"old", change.before}, {"new", change.after}};
        }
    }
    Json document{{"path", path}, {"ok", true}, {"dryRun", options_.isDryRun}, {"changed", std::move(changed)}};
    document["added"] = namesOf(report, ChangedTag::Fate::Added);
    document["removed"] = namesOf(report, ChangedTag::Fate::Removed);
    document["warnings"] = report.warnings;
    return lineOf(document, asciiOnly_);
}

std::string ChangeText::linesOf(const std::string& path, const ChangeReport& report) const {
    const std::string name = colours_.heading(visibleText(path));
    if (!report.changesFile()) return fmt::format("{}: unchanged\n", name);
    std::string lines = fmt::format("{}:{}\n", name, options_.isDryRun ? colours_.hint(" would change") : "");
    const std::size_t width = labelWidth(report);
    for (const ChangedTag& tag : report.tags) {
        if (const char* fate = textOf(tag.fate)) lines += fmt::format("  {} {}\n", tag.name, fate);
        for (const FieldChange& change : tag.changes) {
            const std::string label = fmt::format("{} {:<{}}", tag.word, change.name, width);
            lines +=
                fmt::format("  {} {} -> {}\n", colours_.label(label), inQuotes(change.before), inQuotes(change.after));
        }
    }
    return lines;
}

} // namespace corvane::cli
