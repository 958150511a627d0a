#include "apps/editor/Saving.h"

#include "apps/editor/ChangeDialog.h"
#include "apps/editor/ChangeTree.h"

#include <utility>

namespace corvane::editor {

Saving::Saving(EditSession& session, FileTable& table, QWidget& window)
    : session_(session), table_(table), window_(window) {
    connect(&job_, &SaveJob::finished, this, &Saving::finish);
}

void Saving::run(const std::vector<std::string>& paths, SaveJob::Mode mode) {
    if (job_.isRunning()) return;
    session_.endStep();
    std::vector<FileToSave> files;
    for (const std::string& path : paths) {
        if (session_.isChanged(path)) files.push_back({path, session_.inFile(path), session_.wanted(path)});
    }
    if (files.empty()) return;
    paths_ = paths;
    job_.run(std::move(files), mode);
    Q_EMIT runningChanged(true);
}

void Saving::finish(bool complete) {
    Q_EMIT runningChanged(false);
    if (job_.mode() == SaveJob::Mode::Save) {
        takeResults(complete);
    } else if (complete) {
        showPreview();
    }
}

void Saving::showPreview() {
    auto* dialog = new ChangeDialog(job_.results(), SaveJob::Mode::Preview, &window_);
    connect(dialog, &QDialog::accepted, this, [this, paths = paths_] { save(paths); });
    dialog->open();
}

// What failed keeps its changes, against what now stands in the file.
void Saving::takeResults(bool complete) {
    lastReport_ = job_.results();
    std::vector<std::string> done;
    std::vector<FileTable::Change> clean;
    std::vector<std::pair<std::string, FileTags>> failed;
    FileRows rows;
    for (const SaveResult& result : std::as_const(lastReport_)) {
        if (result.newRow) rows.push_back(*result.newRow);
        if (result.failure.empty()) {
            done.push_back(result.path);
            clean.push_back({result.path, std::nullopt});
        } else if (result.tags) {
            failed.emplace_back(result.path, *result.tags);
        }
    }
    table_.update(rows);
    table_.showChanges(clean);
    session_.learnAgain(failed);
    session_.forget(done);
    const SaveCounts counts = countsOf(lastReport_);
    Q_EMIT saved(complete && counts.failed == 0, summaryOf(lastReport_, SaveJob::Mode::Save));
    if (counts.failed > 0 || counts.warned > 0) showReport();
}

void Saving::showReport() { (new ChangeDialog(lastReport_, SaveJob::Mode::Save, &window_))->open(); }

} // namespace corvane::editor
