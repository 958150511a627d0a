// The upper part of the window: the filter line and the list of files.
#pragma once

#include "apps/editor/FileFilter.h"
#include "apps/editor/FileTable.h"

#include <QLineEdit>
#include <QTableView>
#include <QTimer>
#include <QWidget>
#include <string>
#include <vector>

namespace corvane::editor {

class FileList : public QWidget {
    Q_OBJECT

public:
    // The table must outlive the list.
    explicit FileList(FileTable& table, QWidget* parent = nullptr);

    // In the order in which the list shows them.
    std::vector<std::string> selectedPaths() const;
    // Files that pass the filter.
    int shownCount() const { return filter_.rowCount(); }

    QLineEdit& words() { return *words_; }
    QTableView& view() { return *view_; }

    // Widths and order of the columns, for the settings.
    QByteArray columns() const;
    void setColumns(const QByteArray& state);

Q_SIGNALS:
    // Told once for a selection that is still growing.
    void selectionChanged();
    void countChanged();

private:
    void makeView();
    void showHeaderMenu(const QPoint& at);

    FileTable& table_;
    FileFilter filter_;
    QLineEdit* words_;
    QTableView* view_;
    QTimer selectionTimer_;
};

} // namespace corvane::editor
