// The list of files as a model: one row a file, one column a fact. Files are known by their paths.
#pragma once

#include "apps/editor/FileRow.h"

#include <QAbstractTableModel>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace corvane::editor {

class FileTable : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Name, Title, Artist, Album, Year, Track, Genre, Duration, BitRate, Tags, Folder, ColumnCount };
    // What a column is sorted by: numbers where it shows numbers. As the file has it, so that no row moves while the
    // user types into it.
    static constexpr int kSortRole = Qt::UserRole;
    // What a row is found by: its texts, both as the file has them and as they are to be.
    static constexpr int kSearchRole = Qt::UserRole + 1;

    using QAbstractTableModel::QAbstractTableModel;

    // Rows of files that are listed already take the place of the old ones.
    void add(const FileRows& rows);
    // What files have now.
    void update(const FileRows& rows);
    // What a file would have with the changes that wait to be saved; nothing when there are none. Such a row stands
    // out.
    struct Change {
        std::string path;
        std::optional<FileSummary> summary;
    };
    void showChanges(const std::vector<Change>& changes);
    void remove(const std::vector<std::string>& paths);
    void clear();

    bool isChanged(int row) const { return entries_[static_cast<std::size_t>(row)].isChanged; }
    const std::string& path(int row) const { return entries_[static_cast<std::size_t>(row)].row.path; }
    // The file as it was read; nothing when it is not listed.
    const FileRow* find(const std::string& path) const;
    int rowOf(const std::string& path) const; // -1 when it is not listed

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    struct Entry {
        FileRow row;
        FileSummary shown;
        bool isChanged = false;
    };

    class ChangedRange;

    Entry& entryAt(int row) { return entries_[static_cast<std::size_t>(row)]; }
    void indexRows();
    QVariant text(const Entry& entry, const FileSummary& shown, int column) const;
    QString searchText(const Entry& entry) const;
    QVariant sortKey(const Entry& entry, int column) const;
    QVariant toolTip(const Entry& entry) const;

    std::vector<Entry> entries_;
    std::unordered_map<std::string, int> rows_; // by path
};

} // namespace corvane::editor
