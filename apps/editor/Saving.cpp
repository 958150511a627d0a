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

// What failed keeps its changes, against what is in the file now.
void Saving::takeResults(bool complete) {
    lastReport_ = job_.results();
    std::vector<FileOutcome> outcomes;
    std::vector<std::string> gone; // saved, and then not to be read
    FileRows rows;
    for (SaveResult& result : lastReport_) {
        if (result.newRow) rows.push_back(*result.newRow);
        if (result.outcome) {
            outcomes.push_back(*std::exchange(result.outcome, std::nullopt)); // a report does not need the pictures
        } else if (result.failure.empty()) {
            gone.push_back(result.path);
        }
    }
    table_.update(rows);
    session_.learnAgain(outcomes);
    session_.forget(gone);
    for (const std::string& path : gone) table_.showChanges({{path, std::nullopt}});
    const SaveCounts counts = countsOf(lastReport_);
    Q_EMIT saved(complete && counts.failed == 0, summaryOf(lastReport_, SaveJob::Mode::Save));
    if (counts.failed > 0 || counts.warned > 0) showReport();
}

void Saving::showReport() { (new ChangeDialog(lastReport_, SaveJob::Mode::Save, &window_))->open(); }

} // namespace corvane::editor
