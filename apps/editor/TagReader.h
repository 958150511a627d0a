// Reads the tags of many files for editing them together.
#pragma once

#include "apps/editor/BackgroundJob.h"
#include "apps/editor/FileTags.h"

#include <string>
#include <utility>
#include <vector>

namespace corvane::editor {

class TagReader : public BackgroundJob {
    Q_OBJECT

public:
    using Read = std::vector<std::pair<std::string, FileTags>>;

    explicit TagReader(QObject* parent = nullptr) : BackgroundJob(parent) {}
    ~TagReader() override;

    // A run that is under way is given up.
    void read(std::vector<std::string> paths);

    // Of the last run, once it has finished. Files that cannot be read are not in it.
    const Read& tags() const { return tags_; }
    qsizetype failureCount() const { return failureCount_; }

private:
    void work(const std::vector<std::string>& paths);

    Read tags_; // of the thread while it runs
    qsizetype failureCount_ = 0;
};

} // namespace corvane::editor
