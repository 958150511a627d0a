// What the subcommands that change tags have in common: their options, and one report for each file.
#pragma once

#include "apps/cli/Colours.h"
#include "apps/cli/Command.h"
#include "apps/cli/Id3v1Edit.h"

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

// Adds "--tag v1|v2|both". Run checkTagChoice before anything is done.
enum class TagChoice { V1, V2, Both };
void addTagOption(Options& options, TagChoice& choice);
void checkTagChoice(TagChoice choice); // fails with WrongUse for tags that cannot be changed yet

// What happens to one file. Nothing is written before the report is complete.
struct ChangeReport {
    std::vector<FieldChange> changes;
    std::vector<std::string> removed; // tags, such as "ID3v1.1"
    std::vector<std::string> warnings;
    std::function<void()> write; // makes the change; nothing when there is none to make
};

// Finds out for each file what would happen, and lets it happen unless this is a dry run. A file that fails is reported
// and does not stop the others.
void changeFiles(Session& session, const ChangeOptions& options, const std::vector<std::string>& paths,
                 const std::function<ChangeReport(const std::string& path)>& prepare);

} // namespace corvane::cli
