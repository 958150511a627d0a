// What the list shows: the files in which every word of the filter occurs, in the order of a column.
#pragma once

#include <QSortFilterProxyModel>
#include <QStringList>

namespace corvane::editor {

class FileFilter : public QSortFilterProxyModel {
    Q_OBJECT

public:
    explicit FileFilter(QObject* parent = nullptr);

    // Words, which may stand in different columns; case does not matter. Without words every file is shown.
    void setWords(const QString& words);

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
    bool lessThan(const QModelIndex& one, const QModelIndex& other) const override;

private:
    QStringList words_;
};

} // namespace corvane::editor
