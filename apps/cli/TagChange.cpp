#include "apps/cli/TagChange.h"

#include "corvane/core/FirstTag.h"

#include "apps/cli/ChangeText.h"
#include "apps/cli/FileTimes.h"
#include "apps/cli/LibraryFailure.h"

#include <fmt/core.h>

namespace corvane::cli {

namespace {

const char* participleOf(ChangedTag::Fate fate) {
    switch (fate) {
    case ChangedTag::Fate::Added:
        return "added";
    case ChangedTag::Fate::Removed:
        return "removed";
    default:
        return "changed";
    }
}

void refuseUnlessForced(const std::string& path, const ChangeReport& report) {
    try {
        refuseFirstTags(path, report);
    } catch (const FileFailure& failure) {
        throw FileFailure(fmt::format("{}; --force gives it a tag all the same", failure.what()));
    }
}

void makeChange(const std::string& path, const ChangeOptions& options, const ChangeReport& report) {
    if (!report.changesFile() || options.isDryRun) return;
    const FileTimes times(path, options.keepsTime);
    writeTags(report);
    times.restore();
}

} // namespace

void refuseFirstTags(const std::string& path, const ChangeReport& report) {
    const bool isFirst = std::any_of(report.tags.begin(), report.tags.end(), [](const ChangedTag& tag) {
        return tag.fate == ChangedTag::Fate::Added && tag.write != nullptr;
    });
    const std::string obstacle = isFirst ? obstacleToFirstTag(path) : std::string();
    if (!obstacle.empty()) throw FileFailure(obstacle);
}

// Every tag has been looked at before, so that a failure behind the first one is a rare thing; it is told exactly.
void writeTags(const ChangeReport& report) {
    const ChangedTag* done = nullptr;
    for (const ChangedTag& tag : report.tags) {
        if (!tag.write) continue;
        try {
            tag.write();
        } catch (const std::exception& failure) {
            if (done == nullptr) throw;
            throw FileFailure(fmt::format("The {} tag is {}, but the {} tag is not {}: {}", done->name,
                                          participleOf(done->fate), tag.name, participleOf(tag.fate), failure.what()));
        }
        done = &tag;
    }
}

void addChangeOptions(Options& options, ChangeOptions& change) {
    options.addFlag("-n,--dry-run", change.isDryRun, "Only tell what would change");
    options.addFlag("--keep-mtime", change.keepsTime, "Keep the time of the last modification");
    options.addFlag("--json", change.isJson, "Report in JSON, one object a line for each file");
    options.addFlag("-q,--quiet", change.isQuiet, "Report nothing but failures and warnings");
    addColourOption(options, change.colour);
}

void addForceOption(Options& options, ChangeOptions& change) {
    options.addFlag("--force", change.isForced, "Give a first tag also to a file that is not MPEG audio");
}

void addTagOption(Options& options, TagChoice& choice, const char* description) {
    options.addChoice<TagChoice>("--tag", choice, description,
                                 {{"v1", TagChoice::V1}, {"v2", TagChoice::V2}, {"both", TagChoice::Both}});
}

void changeFiles(Session& session, const ChangeOptions& options, const std::vector<std::string>& paths,
                 const std::function<ChangeReport(const std::string& path)>& prepare) {
    const ChangeText text(options, session.output);
    for (const std::string& path : paths) {
        try {
            const ChangeReport report = prepare(path);
            if (!options.isForced) refuseUnlessForced(path, report);
            makeChange(path, options, report);
            for (const std::string& warning : report.warnings) session.failures.warning(path, warning);
            session.output.write(text.of(path, report));
        } catch (const OutputFailure&) {
            throw; // nobody reads the reports, so the rest of the files stays as it is
        } catch (const std::exception& failure) {
            session.failures.file(path, failure.what());
            session.output.write(text.ofFailure(path, failure.what()));
        }
    }
}

} // namespace corvane::cli
