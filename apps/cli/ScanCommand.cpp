#include "apps/cli/Commands.h"
#include "apps/cli/FileWalk.h"
#include "apps/cli/OrderedWorkers.h"
#include "apps/cli/Progress.h"
#include "apps/cli/ScanLine.h"
#include "apps/cli/VisibleText.h"

#include <unistd.h>

#include <algorithm>
#include <string>
#include <thread>
#include <vector>

namespace corvane::cli {

namespace {

// Files for one thread at a time: handing over costs as much as reading a file or two.
constexpr std::size_t kBatchSize = 32;
// More threads than that do not make a disk faster.
constexpr unsigned kMostUsualThreads = 8;
constexpr unsigned kMostThreads = 256;

using Batch = std::vector<std::string>; // paths

struct FailedFile {
    std::string path, reason;
};

struct BatchResult {
    std::string lines;
    std::vector<FailedFile> failed;
    std::size_t fileCount = 0;
};

BatchResult summarizeBatch(ScanFormat format, const Batch& paths) {
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
    FileWalk walk(roots, [](std::string_view, std::string_view) {});
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
        options.addNumber("-j,--jobs", threadCount_, 1, kMostThreads,
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
        OrderedWorkers<Batch, BatchResult> workers(
            threadCount_, [this](const Batch& batch) { return summarizeBatch(format_, batch); },
            [&](const BatchResult& result) {
                for (const FailedFile& failed : result.failed) fail(failed.path, failed.reason);
                write(session.output, result.lines);
                progress.advance(result.fileCount);
            });
        FileWalk walk(roots, fail);
        submitAll(walk, workers);
        workers.finish();
    }

private:
    // JSON needs no help: what acts on a terminal is escaped there anyway.
    void write(Output& output, const std::string& lines) const {
        output.write(format_ == ScanFormat::Csv && output.isTerminal() ? visibleTable(lines) : lines);
    }

    static void submitAll(FileWalk& walk, OrderedWorkers<Batch, BatchResult>& workers) {
        Batch batch;
        while (std::optional<std::string> path = walk.next()) {
            batch.push_back(*std::move(path));
            if (batch.size() == kBatchSize) workers.submit(std::exchange(batch, {}));
        }
        if (!batch.empty()) workers.submit(std::move(batch));
    }

    ScanFormat format_ = ScanFormat::Json;
    unsigned threadCount_ = std::clamp(std::thread::hardware_concurrency(), 1u, kMostUsualThreads);
    bool quiet_ = false;
};

} // namespace

std::unique_ptr<Command> makeScanCommand() { return std::make_unique<ScanCommand>(); }

} // namespace corvane::cli
