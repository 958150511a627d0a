// Finds the MP3 files below folders and reads what the list shows of them. Rows come in batches, the first one soon.
#pragma once

#include "apps/editor/BackgroundJob.h"
#include "apps/editor/FileRow.h"
#include "apps/editor/Leftovers.h"

#include <QString>
#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace corvane::editor {

class Loader : public BackgroundJob {
    Q_OBJECT

public:
    explicit Loader(QObject* parent = nullptr);
    ~Loader() override;

    // Folders, and files: those whose names end in ".mp3", and others that are MPEG audio. While a load is running,
    // these wait for it to end.
    void load(std::vector<std::string> paths);
    // Ends the load that is running, and what waits for it.
    void cancel() override;
    // The same, and its rows that have not been told yet are not told any more.
    void abandon();

    // The least age of the temporary files of a killed save that are reported.
    std::chrono::seconds leftoverAge() const { return leftoverAge_; }
    void findLeftoversOfAge(std::chrono::seconds age) { leftoverAge_ = age; }

Q_SIGNALS:
    void loaded(const corvane::editor::FileRows& rows);
    // A folder that cannot be read.
    void refused(const QString& folder, const QString& reason);
    // A file of another name that is no MPEG audio, such as a picture: it gets no row.
    void ignored(const QString& file, const QString& reason);
    // Temporary files that a killed save has left in the folders of the files, see Leftovers.h.
    void leftoversFound(const std::vector<std::string>& paths);

private:
    void work(const std::vector<std::string>& roots);
    void tell(std::function<void()> news);
    std::vector<std::string> find(const std::vector<std::string>& roots);
    void read(const std::vector<std::string>& paths);
    void findLeftovers(const std::vector<std::string>& paths);

    std::vector<std::string> waiting_;
    bool isAbandoned_ = false;
    std::chrono::seconds leftoverAge_ = kLeftoverAge;
};

} // namespace corvane::editor
