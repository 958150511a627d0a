#include "apps/editor/SaveJob.h"

#include "apps/editor/ChangePlan.h"

#include <QElapsedTimer>
#include <exception>
#include <utility>

namespace corvane::editor {

namespace {

constexpr qint64 kSaveReportTime = 40; // milliseconds between two words about the progress

void readBack(SaveResult& result, OldTag old) {
    result.newRow = readRow(result.path);
    try {
        result.outcome = FileOutcome{.path = result.path, .now = readTags(result.path)};
    } catch (const std::exception&) {
        return; // the row says why
    }
    result.outcome->isSaved = result.failure.empty();
    if (result.outcome->isSaved) result.outcome->old = std::move(old);
}

} // namespace

SaveResult saveFile(const FileToSave& file, SaveJob::Mode mode, PictureKeeper* keeper) {
    SaveResult result;
    result.path = file.path;
    OldTag old;
    try {
        result.plan = planFor(file.path, *file.inFile, *file.wanted);
        if (mode == SaveJob::Mode::Save && result.plan.changesFile()) {
            if (keeper) old = keeper->oldTag(file.path, file.inFile->v2, file.wanted->v2);
            carryOut(result.plan);
        }
    } catch (const std::exception& failure) {
        result.failure = failure.what();
    }
    if (mode == SaveJob::Mode::Save) readBack(result, std::move(old));
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
    PictureKeeper keeper;
    Q_EMIT progressed(0, total);
    for (const FileToSave& file : files) {
        if (isCancelled()) return;
        results_.push_back(saveFile(file, mode, &keeper));
        if (sinceTold.elapsed() < kSaveReportTime) continue;
        Q_EMIT progressed(results_.size(), total);
        sinceTold.restart();
    }
}

} // namespace corvane::editor
