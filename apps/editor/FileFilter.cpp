#include "apps/editor/FileFilter.h"

#include "apps/editor/FileTable.h"

#include <algorithm>

namespace corvane::editor {

FileFilter::FileFilter(QObject* parent) : QSortFilterProxyModel(parent) {
    setSortRole(FileTable::kSortRole);
    setSortCaseSensitivity(Qt::CaseInsensitive);
    setSortLocaleAware(true);
}

void FileFilter::setWords(const QString& words) {
    QStringList wanted = words.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (wanted == words_) return;
    words_ = std::move(wanted);
    invalidateRowsFilter();
}

bool FileFilter::filterAcceptsRow(int row, const QModelIndex& parent) const {
    if (words_.isEmpty()) return true;
    const QString line = sourceModel()->index(row, 0, parent).data(FileTable::kSearchRole).toString();
    return std::all_of(words_.begin(), words_.end(),
                       [&line](const QString& word) { return line.contains(word, Qt::CaseInsensitive); });
}

// Files that are equal in the column keep the order of their folders and names.
bool FileFilter::lessThan(const QModelIndex& one, const QModelIndex& other) const {
    if (QSortFilterProxyModel::lessThan(one, other)) return true;
    if (QSortFilterProxyModel::lessThan(other, one)) return false;
    const auto& table = *static_cast<const FileTable*>(sourceModel());
    const bool ascending = sortOrder() == Qt::AscendingOrder;
    const std::string &first = table.path(one.row()), &second = table.path(other.row());
    return ascending ? first < second : second < first;
}

} // namespace corvane::editor
