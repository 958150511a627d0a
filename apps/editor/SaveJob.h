// Saves changed files one after the other, or only finds out what saving them would do. A file that fails is told and
// does not stop the others. Cancelling ends the job between two files.
#pragma once

#include "apps/cli/TagChange.h"
#include "apps/editor/BackgroundJob.h"
#include "apps/editor/EditSession.h"
#include "apps/editor/FileRow.h"
#include "apps/editor/OldTag.h"
#include "apps/editor/StepRebase.h"

#include <QList>
#include <optional>
#include <string>
#include <vector>

namespace corvane::editor {

struct FileToSave {
    std::string path;
    TagsPointer inFile, wanted;
};

// What has become, or would become, of one file.
struct SaveResult {
    std::string path;
    std::string failure;                // why it failed; "" when it did not
    cli::ChangeReport plan;             // without the means to carry it out
    std::optional<FileRow> newRow;      // the file as it is now; nothing when nothing was to be written
    std::optional<FileOutcome> outcome; // the same for the steps of undo, when the file can be read
};
using SaveResults = QList<SaveResult>;

class SaveJob : public BackgroundJob {
    Q_OBJECT

public:
    enum class Mode { Preview, Save };

    explicit SaveJob(QObject* parent = nullptr) : BackgroundJob(parent) {}
    ~SaveJob() override;

    void run(std::vector<FileToSave> files, Mode mode);

    Mode mode() const { return mode_; }
    // Of the last run, once it has finished; files that a cancelled run did not come to are not in it.
    const SaveResults& results() const { return results_; }

private:
    void work(const std::vector<FileToSave>& files, Mode mode);

    Mode mode_ = Mode::Preview;
    SaveResults results_; // of the thread while it runs
};

// One file's part of the work, on the caller's thread. The keeper is asked for what a step back needs of the old tag.
SaveResult saveFile(const FileToSave& file, SaveJob::Mode mode, PictureKeeper* keeper = nullptr);

} // namespace corvane::editor
