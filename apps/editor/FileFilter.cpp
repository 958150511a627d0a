#include "apps/editor/FileFilter.h"

#include "apps/editor/FileTable.h"
#include "apps/editor/NaturalOrder.h"

#include <algorithm>

namespace corvane::editor {

FileFilter::FileFilter(QObject* parent) : QSortFilterProxyModel(parent) { setSortRole(FileTable::kSortRole); }

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

namespace {

// Below 0, 0, or above 0.
int compareKeys(const QVariant& one, const QVariant& other) {
    if (one.typeId() == QMetaType::QString) return compareNaturally(one.toString(), other.toString());
    const int first = one.toInt(), second = other.toInt();
    return first < second ? -1 : static_cast<int>(first > second);
}

} // namespace

// Files that are equal in the column keep the order of their folders and names.
bool FileFilter::lessThan(const QModelIndex& one, const QModelIndex& other) const {
    if (const int difference = compareKeys(one.data(sortRole()), other.data(sortRole())); difference != 0) {
        return difference < 0;
    }
    const auto& table = *static_cast<const FileTable*>(sourceModel());
    const int difference =
        compareNaturally(std::string_view(table.path(one.row())), std::string_view(table.path(other.row())));
    return sortOrder() == Qt::AscendingOrder ? difference < 0 : difference > 0;
}

} // namespace corvane::editor
