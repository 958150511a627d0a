#include "apps/editor/SaveJob.h"

#include "apps/editor/ChangePlan.h"

#include <QElapsedTimer>
#include <exception>
#include <utility>

namespace corvane::editor {

namespace {

constexpr qint64 kTellTime = 40; // milliseconds between two words about the progress

std::optional<FileTags> tagsIfReadable(const std::string& path) {
    try {
        return readTags(path);
    } catch (const std::exception&) {
        return std::nullopt; // the row says why
    }
}

} // namespace

SaveResult saveFile(const FileToSave& file, SaveJob::Mode mode) {
    SaveResult result;
    result.path = file.path;
    try {
        result.plan = planFor(file.path, *file.inFile, *file.wanted);
        if (mode == SaveJob::Mode::Save && result.plan.changesFile()) carryOut(result.plan);
    } catch (const std::exception& failure) {
        result.failure = failure.what();
    }
    if (mode == SaveJob::Mode::Save) result.newRow = readRow(file.path);
    if (mode == SaveJob::Mode::Save && !result.failure.empty()) result.tags = tagsIfReadable(file.path);
    for (cli::ChangedTag& tag : result.plan.tags) tag.write = nullptr; // what it holds is not needed any more
    return result;
}

SaveJob::~SaveJob() { stop(); }

void SaveJob::run(std::vector<FileToSave> files, Mode mode) {
    stop();
    mode_ = mode;
    results_.clear();
    start([this, files = std::move(files), mode] { work(files, mode); });
}

void SaveJob::work(const std::vector<FileToSave>& files, Mode mode) {
    const auto total = static_cast<qsizetype>(files.size());
    QElapsedTimer sinceTold;
    sinceTold.start();
    Q_EMIT progressed(0, total);
    for (const FileToSave& file : files) {
        if (isCancelled()) return;
        results_.push_back(saveFile(file, mode));
        if (sinceTold.elapsed() < kTellTime) continue;
        Q_EMIT progressed(results_.size(), total);
        sinceTold.restart();
    }
}

} // namespace corvane::editor
