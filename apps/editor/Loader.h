// Finds the MP3 files below folders and reads what the list shows of them. Rows come in batches, the first one soon.
#pragma once

#include "apps/editor/BackgroundJob.h"
#include "apps/editor/FileRow.h"

#include <QString>
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

Q_SIGNALS:
    void loaded(const corvane::editor::FileRows& rows);
    // A folder that cannot be read.
    void refused(const QString& folder, const QString& reason);
    // A file of another name that is no MPEG audio, such as a picture: it gets no row.
    void ignored(const QString& file, const QString& reason);

private:
    void work(const std::vector<std::string>& roots);
    void tell(std::function<void()> news);
    std::vector<std::string> find(const std::vector<std::string>& roots);
    void read(const std::vector<std::string>& paths);

    std::vector<std::string> waiting_;
    bool isAbandoned_ = false;
};

} // namespace corvane::editor
