#include "apps/cli/ChangeText.h"

#include "apps/cli/VisibleText.h"

#include <fmt/core.h>
#include <nlohmann/json.hpp>

namespace corvane::cli {

namespace {

using Json = nlohmann::ordered_json;

std::string lineOf(const Json& document, bool asciiOnly) {
    return document.dump(-1, ' ', asciiOnly, Json::error_handler_t::replace) + "\n";
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
    for (const FieldChange& change : report.changes) {
        changed[change.name] = {{"old", change.before}, {"new", change.after}};
    }
    Json document{{"path", path}, {"ok", true}, {"dryRun", options_.isDryRun}, {"changed", std::move(changed)}};
    document["removed"] = report.removed;
    document["warnings"] = report.warnings;
    return lineOf(document, asciiOnly_);
}

std::string ChangeText::linesOf(const std::string& path, const ChangeReport& report) const {
    const std::string name = colours_.heading(visibleText(path));
    if (!report.write) return fmt::format("{}: unchanged\n", name);
    std::string lines = fmt::format("{}:{}\n", name, options_.isDryRun ? colours_.hint(" would change") : "");
    for (const std::string& tag : report.removed) lines += fmt::format("  {} removed\n", tag);
    for (const FieldChange& change : report.changes) {
        lines += fmt::format("  {} \"{}\" -> \"{}\"\n", colours_.label(fmt::format("{:<8}", change.name)),
                             visibleText(change.before), visibleText(change.after));
    }
    return lines;
}

} // namespace corvane::cli
