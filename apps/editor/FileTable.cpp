#include "apps/editor/FileTable.h"

#include "corvane/controls/Text.h"

#include "apps/editor/FileName.h"

#include <QApplication>
#include <QFont>
#include <QIcon>
#include <QPalette>
#include <QStyle>
#include <algorithm>
#include <limits>
#include <unordered_set>

namespace corvane::editor {

using controls::toQt;

namespace {

QString timeText(std::int32_t seconds) {
    if (seconds < 0) return {};
    const QString tail = QStringLiteral("%1").arg(seconds % 60, 2, 10, QLatin1Char('0'));
    if (seconds < 3600) return QStringLiteral("%1:%2").arg(seconds / 60).arg(tail);
    return QStringLiteral("%1:%2:%3").arg(seconds / 3600).arg(seconds / 60 % 60, 2, 10, QLatin1Char('0')).arg(tail);
}

QString bitRateText(const FileSummary& summary) {
    if (summary.bitRateKbps <= 0) return {};
    return QString::number(summary.bitRateKbps) + (summary.vbr ? FileTable::tr(" VBR") : QString());
}

QString tagsText(const FileSummary& summary) {
    QStringList names;
    for (const std::string& name : summary.tags) names << toQt(name);
    return names.join(QStringLiteral(", "));
}

// "3/12" is sorted as 3.
int trackNumber(const std::string& text) { return toQt(text).section(QLatin1Char('/'), 0, 0).toInt(); }

bool isNumber(int column) {
    return column == FileTable::Year || column == FileTable::Track || column == FileTable::Duration ||
           column == FileTable::BitRate;
}

} // namespace

// Rows that have changed, told as one range: a list that sorts and filters looks at all of them at once.
class FileTable::ChangedRange {
public:
    explicit ChangedRange(FileTable& table) : table_(table) {}
    ~ChangedRange() {
        if (first_ > last_) return;
        Q_EMIT table_.dataChanged(table_.index(first_, 0), table_.index(last_, ColumnCount - 1));
    }
    ChangedRange(const ChangedRange&) = delete;
    ChangedRange& operator=(const ChangedRange&) = delete;

    void add(int row) {
        first_ = std::min(first_, row);
        last_ = std::max(last_, row);
    }

private:
    FileTable& table_;
    int first_ = std::numeric_limits<int>::max();
    int last_ = -1;
};

void FileTable::add(const FileRows& rows) {
    std::vector<Entry> fresh;
    FileRows known;
    std::unordered_set<std::string> seen;
    for (const FileRow& row : rows) {
        if (rows_.contains(row.path)) {
            known.push_back(row);
        } else if (seen.insert(row.path).second) {
            fresh.push_back({row, row.summary, false});
        }
    }
    update(known);
    if (fresh.empty()) return;
    const int first = rowCount();
    beginInsertRows({}, first, first + static_cast<int>(fresh.size()) - 1);
    for (Entry& entry : fresh) {
        rows_.emplace(entry.row.path, static_cast<int>(entries_.size()));
        entries_.push_back(std::move(entry));
    }
    endInsertRows();
}

void FileTable::update(const FileRows& rows) {
    ChangedRange range(*this);
    for (const FileRow& row : rows) {
        const int at = rowOf(row.path);
        if (at < 0) continue;
        Entry& entry = entryAt(at);
        entry.row = row;
        if (!entry.isChanged) entry.shown = row.summary;
        range.add(at);
    }
}

void FileTable::showChanges(const std::vector<Change>& changes) {
    ChangedRange range(*this);
    for (const Change& change : changes) {
        const int at = rowOf(change.path);
        if (at < 0) continue;
        Entry& entry = entryAt(at);
        entry.isChanged = change.summary.has_value();
        entry.shown = change.summary ? *change.summary : entry.row.summary;
        range.add(at);
    }
}

void FileTable::remove(const std::vector<std::string>& paths) {
    const std::unordered_set<std::string> gone(paths.begin(), paths.end());
    beginResetModel();
    std::erase_if(entries_, [&gone](const Entry& entry) { return gone.contains(entry.row.path); });
    indexRows();
    endResetModel();
}

void FileTable::clear() {
    beginResetModel();
    entries_.clear();
    rows_.clear();
    endResetModel();
}

void FileTable::indexRows() {
    rows_.clear();
    for (std::size_t at = 0; at < entries_.size(); ++at) rows_.emplace(entries_[at].row.path, static_cast<int>(at));
}

const FileRow* FileTable::find(const std::string& path) const {
    const int at = rowOf(path);
    return at < 0 ? nullptr : &entries_[static_cast<std::size_t>(at)].row;
}

int FileTable::rowOf(const std::string& path) const {
    const auto found = rows_.find(path);
    return found == rows_.end() ? -1 : found->second;
}

int FileTable::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(entries_.size());
}

int FileTable::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : ColumnCount; }

QVariant FileTable::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const Entry& entry = entries_[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return text(entry, entry.shown, index.column());
    case kSearchRole:
        return searchText(entry);
    case kSortRole:
        return sortKey(entry, index.column());
    case Qt::ToolTipRole:
        return toolTip(entry);
    case Qt::TextAlignmentRole:
        return isNumber(index.column()) ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
    case Qt::DecorationRole:
        if (index.column() != Name || entry.row.failure.empty()) return {};
        return QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning);
    case Qt::FontRole: {
        if (!entry.isChanged) return {};
        QFont bold = QApplication::font("QAbstractItemView");
        bold.setBold(true);
        return bold;
    }
    default:
        return {};
    }
}

QVariant FileTable::text(const Entry& entry, const FileSummary& shown, int column) const {
    switch (column) {
    case Name:
        return entry.isChanged ? QStringLiteral("\u2022 ") + nameOf(entry.row.path) : nameOf(entry.row.path);
    case Title:
        return toQt(shown.title);
    case Artist:
        return toQt(shown.artist);
    case Album:
        return toQt(shown.album);
    case Year:
        return toQt(shown.year);
    case Track:
        return toQt(shown.track);
    case Genre:
        return toQt(shown.genre);
    case Duration:
        return timeText(shown.durationSeconds);
    case BitRate:
        return bitRateText(shown);
    case Tags:
        return tagsText(shown);
    case Folder:
        return folderOf(entry.row.path);
    default:
        return {};
    }
}

QVariant FileTable::sortKey(const Entry& entry, int column) const {
    switch (column) {
    case Name:
        return nameOf(entry.row.path);
    case Track:
        return trackNumber(entry.row.summary.track);
    case Duration:
        return entry.row.summary.durationSeconds;
    case BitRate:
        return entry.row.summary.bitRateKbps;
    default:
        return text(entry, entry.row.summary, column);
    }
}

QString FileTable::searchText(const Entry& entry) const {
    QString lines;
    for (const int column : {Name, Title, Artist, Album, Year, Track, Genre, Tags, Folder}) {
        lines += text(entry, entry.row.summary, column).toString() + QLatin1Char('\n');
        if (entry.isChanged) lines += text(entry, entry.shown, column).toString() + QLatin1Char('\n');
    }
    return lines;
}

QVariant FileTable::toolTip(const Entry& entry) const {
    QString lines = shownPath(entry.row.path);
    if (!entry.row.failure.empty()) lines += QLatin1Char('\n') + tr("Cannot be read: %1").arg(toQt(entry.row.failure));
    if (entry.isChanged) lines += QLatin1Char('\n') + tr("Changed, not saved yet");
    return asWritten(lines);
}

QVariant FileTable::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole) {
        return QVariant((isNumber(section) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    }
    if (role != Qt::DisplayRole) return {};
    const QStringList names{tr("File"),  tr("Title"),  tr("Artist"),
                            tr("Album"), tr("Year"),   tr("Track"),
                            tr("Genre"), tr("Length"), tr("Bit rate", "kbit/s"),
                            tr("Tags"),  tr("Folder")};
    return names.value(section);
}

Qt::ItemFlags FileTable::flags(const QModelIndex& index) const {
    return index.isValid() ? Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren : Qt::NoItemFlags;
}

} // namespace corvane::editor
