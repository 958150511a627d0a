#include "apps/cli/Commands.h"
#include "apps/cli/Progress.h"
#include "apps/cli/ScanLine.h"
#include "apps/cli/VisibleText.h"
#include "apps/scan/FileScan.h"

#include <unistd.h>

#include <string>
#include <vector>

namespace corvane::cli {

namespace {

struct FailedFile {
    std::string path, reason;
};

struct BatchResult {
    std::string lines;
    std::vector<FailedFile> failed;
    std::size_t fileCount = 0;
};

BatchResult summarizeBatch(ScanFormat format, const scan::Batch& paths) {
    BatchResult result;
    result.fileCount = paths.size();
    for (const std::string& path : paths) {
        try {
            result.lines += scanLine(format, path, summarize(path));
        } catch (const std::exception& failure) {
            result.lines += scanErrorLine(format, path, failure.what());
            result.failed.push_back({path, failure.what()});
        }
    }
    return result;
}

// Only names are looked at, which is quick beside reading the files.
std::size_t countFiles(const std::vector<std::string>& roots) {
    scan::FileWalk walk(roots, [](std::string_view, std::string_view) {});
    std::size_t count = 0;
    while (walk.next()) ++count;
    return count;
}

class ScanCommand final : public Command {
public:
    void declareOptions(Options& options) override {
        options.addChoice<ScanFormat>("--format", format_,
                                      "Form of the lines: one JSON object a line (default), or CSV with a header",
                                      {{"json", ScanFormat::Json}, {"csv", ScanFormat::Csv}});
        options.addNumber("-j,--jobs", threadCount_, 1, scan::kMostThreads,
                          "Files read at the same time (default: number of processors, at most 8); the order stays");
        options.addFlag("-q,--quiet", quiet_, "No progress bar, also when standard error is a terminal");
    }

    void run(Session& session, const std::vector<std::string>& roots) override {
        const bool showsProgress = !quiet_ && ::isatty(STDERR_FILENO) == 1 && !session.output.isTerminal();
        Progress progress(STDERR_FILENO, showsProgress, showsProgress ? countFiles(roots) : 0);
        const auto fail = [&](std::string_view path, std::string_view reason) {
            progress.hide();
            session.failures.file(path, reason);
        };
        write(session.output, scanHeader(format_));
        scan::FileScan<BatchResult> files(
            roots, threadCount_, [this](const scan::Batch& batch) { return summarizeBatch(format_, batch); }, fail);
        while (const std::optional<BatchResult> result = files.next()) {
            for (const FailedFile& failed : result->failed) fail(failed.path, failed.reason);
            write(session.output, result->lines);
            progress.advance(result->fileCount);
        }
    }

private:
    // JSON needs no help: what acts on a terminal is escaped there anyway.
    void write(Output& output, const std::string& lines) const {
        output.write(format_ == ScanFormat::Csv && output.isTerminal() ? visibleTable(lines) : lines);
    }

    ScanFormat format_ = ScanFormat::Json;
    unsigned threadCount_ = scan::usualThreadCount();
    bool quiet_ = false;
};

} // namespace

std::unique_ptr<Command> makeScanCommand() { return std::make_unique<ScanCommand>(); }

} // namespace corvane::cli
