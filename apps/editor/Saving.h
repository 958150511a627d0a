// Saves what waits to be saved, shows before what that will do, and tells afterwards what has become of each file.
#pragma once

#include "apps/editor/EditSession.h"
#include "apps/editor/FileTable.h"
#include "apps/editor/SaveJob.h"

#include <QObject>
#include <QWidget>
#include <string>
#include <vector>

namespace corvane::editor {

class Saving : public QObject {
    Q_OBJECT

public:
    // Dialogs belong to the window. All of them must outlive this object.
    Saving(EditSession& session, FileTable& table, QWidget& window);

    SaveJob& job() { return job_; }
    bool isRunning() const { return job_.isRunning(); }
    // Of the last save; empty before.
    const SaveResults& lastReport() const { return lastReport_; }

    // Those of the files that have changes. Nothing happens when none has, or while another run is under way.
    void save(const std::vector<std::string>& paths) { run(paths, SaveJob::Mode::Save); }
    void preview(const std::vector<std::string>& paths) { run(paths, SaveJob::Mode::Preview); }
    void showReport();

Q_SIGNALS:
    // A run begins or ends: nothing must be edited between the two.
    void runningChanged(bool running);
    // A save has ended; isAllSaved: nothing failed, and it was not cancelled.
    void saved(bool isAllSaved, const QString& summary);

private:
    void run(const std::vector<std::string>& paths, SaveJob::Mode mode);
    void finish(bool complete);
    void showPreview();
    void takeResults(bool complete);

    EditSession& session_;
    FileTable& table_;
    QWidget& window_;
    SaveJob job_;
    std::vector<std::string> paths_; // of the run
    SaveResults lastReport_;
};

} // namespace corvane::editor
