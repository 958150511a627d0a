// Files with what becomes of their tags, as a tree: the preview before saving, the report behind it.
#pragma once

#include "apps/editor/SaveJob.h"

#include <QString>
#include <QTreeWidget>

namespace corvane::editor {

class ChangeTree : public QTreeWidget {
    Q_OBJECT

public:
    explicit ChangeTree(QWidget* parent = nullptr);

    // Files that fail stand first.
    void show(const SaveResults& results);

private:
    void addFile(const SaveResult& result);
};

// The same as lines of text.
QString textOf(const SaveResults& results);

// Numbers of files.
struct SaveCounts {
    int changed = 0, failed = 0, warned = 0;
};
SaveCounts countsOf(const SaveResults& results);

} // namespace corvane::editor
