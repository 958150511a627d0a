#include "apps/cli/TagChange.h"

#include "apps/cli/ChangeText.h"
#include "apps/cli/FileTimes.h"
#include "apps/cli/WrongUse.h"

namespace corvane::cli {

namespace {

void makeChange(const std::string& path, const ChangeOptions& options, const ChangeReport& report) {
    if (!report.write || options.isDryRun) return;
    const FileTimes times(path, options.keepsTime);
    report.write();
    times.restore();
}

} // namespace

void addChangeOptions(Options& options, ChangeOptions& change) {
    options.addFlag("-n,--dry-run", change.isDryRun, "Only tell what would change");
    options.addFlag("--keep-mtime", change.keepsTime, "Keep the time of the last modification");
    options.addFlag("--json", change.isJson, "Report in JSON, one object a line for each file");
    options.addFlag("-q,--quiet", change.isQuiet, "Report nothing but failures and warnings");
    addColourOption(options, change.colour);
}

void addTagOption(Options& options, TagChoice& choice) {
    options.addChoice<TagChoice>("--tag", choice, "Which tags: this version changes v1 (default) only",
                                 {{"v1", TagChoice::V1}, {"v2", TagChoice::V2}, {"both", TagChoice::Both}});
}

void checkTagChoice(TagChoice choice) {
    if (choice != TagChoice::V1) throw WrongUse("This version changes ID3v1 tags only; use --tag v1");
}

void changeFiles(Session& session, const ChangeOptions& options, const std::vector<std::string>& paths,
                 const std::function<ChangeReport(const std::string& path)>& prepare) {
    const ChangeText text(options, session.output);
    for (const std::string& path : paths) {
        try {
            const ChangeReport report = prepare(path);
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
