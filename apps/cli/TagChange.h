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
    bool isForced = false; // gives first tags to files that are not MPEG audio too
    ColourChoice colour = ColourChoice::Auto;
};

void addChangeOptions(Options& options, ChangeOptions& change);

// Adds "--force", for commands that can give a file its first tag.
void addForceOption(Options& options, ChangeOptions& change);

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

// Fails with a FileFailure when the report adds a tag of a kind that the file lacks although the file is not MPEG audio
// (FirstTag.h).
void refuseFirstTags(const std::string& path, const ChangeReport& report);

// Writes the tags of a report, one after the other. Fails with an exception; when other tags had been written before,
// it says what has become of them.
void writeTags(const ChangeReport& report);

// Finds out for each file what would happen, and lets it happen unless this is a dry run. A file that fails is reported
// and does not stop the others.
void changeFiles(Session& session, const ChangeOptions& options, const std::vector<std::string>& paths,
                 const std::function<ChangeReport(const std::string& path)>& prepare);

} // namespace corvane::cli
