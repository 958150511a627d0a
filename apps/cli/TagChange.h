// What the subcommands that change tags have in common: their options, and one report for each file.
#pragma once

#include "apps/cli/Colours.h"
#include "apps/cli/Command.h"
#include "apps/cli/TagOutcome.h"

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

namespace corvane::cli {

struct ChangeOptions {
    bool isDryRun = false;
    bool keepsTime = false;
    bool isJson = false;
    bool isQuiet = false;
    ColourChoice colour = ColourChoice::Auto;
};

void addChangeOptions(Options& options, ChangeOptions& change);

// Adds "--tag v1|v2|both". Without it the choice stays what it is.
enum class TagChoice { V1, V2, Both, OfFile };
void addTagOption(Options& options, TagChoice& choice, const char* description);

// What happens to one tag of a file.
struct ChangedTag {
    enum class Fate { Kept, Added, Removed };

    const char* word; // as behind --tag
    std::string name; // such as "ID3v1.1"
    Fate fate = Fate::Kept;
    std::vector<FieldChange> changes = {};
    std::function<void()> write = {}; // makes the change; nothing when there is none to make
};

// What happens to one file. Nothing is written before the report is complete.
struct ChangeReport {
    std::vector<ChangedTag> tags; // in the order in which they are written
    std::vector<std::string> warnings;

    bool changesFile() const {
        return std::any_of(tags.begin(), tags.end(), [](const ChangedTag& tag) { return tag.write != nullptr; });
    }
};

// Finds out for each file what would happen, and lets it happen unless this is a dry run. A file that fails is reported
// and does not stop the others.
void changeFiles(Session& session, const ChangeOptions& options, const std::vector<std::string>& paths,
                 const std::function<ChangeReport(const std::string& path)>& prepare);

} // namespace corvane::cli
