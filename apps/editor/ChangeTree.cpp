#include "apps/editor/ChangeTree.h"

#include "corvane/controls/Text.h"

#include "apps/editor/FieldNames.h"
#include "apps/editor/FileName.h"

#include <QHeaderView>
#include <QStyle>
#include <algorithm>

namespace corvane::editor {

using controls::toQt;
using Fate = cli::ChangedTag::Fate;

namespace {

constexpr qsizetype kExpandedFiles = 100;               // more would only be scrolled past
constexpr int kMinimumWidth = 140, kMaximumWidth = 320; // pixels

QString tagLine(const cli::ChangedTag& tag) {
    switch (tag.fate) {
    case Fate::Added:
        return ChangeTree::tr("%1 tag, new").arg(toQt(tag.name));
    case Fate::Removed:
        return ChangeTree::tr("%1 tag, removed").arg(toQt(tag.name));
    default:
        return ChangeTree::tr("%1 tag").arg(toQt(tag.name));
    }
}

bool hasEffect(const cli::ChangedTag& tag) { return tag.fate != Fate::Kept || !tag.changes.empty(); }

// Lyrics have many lines, a cell has one.
QString onOneLine(const std::string& text) {
    constexpr qsizetype kLimit = 300;
    QString line = toQt(text);
    line.replace(QLatin1Char('\n'), QStringLiteral(" \u23ce "));
    return line.size() <= kLimit ? line : line.left(kLimit) + QStringLiteral("…");
}

} // namespace

SaveCounts countsOf(const SaveResults& results) {
    SaveCounts counts;
    for (const SaveResult& result : results) {
        const auto& tags = result.plan.tags;
        if (!result.failure.empty()) {
            ++counts.failed;
        } else if (std::any_of(tags.begin(), tags.end(), hasEffect)) {
            ++counts.changed;
        }
        if (!result.plan.warnings.empty()) ++counts.warned;
    }
    return counts;
}

ChangeTree::ChangeTree(QWidget* parent) : QTreeWidget(parent) {
    setObjectName(QStringLiteral("changes"));
    setAccessibleName(tr("Changes"));
    setColumnCount(3);
    setHeaderLabels({tr("File"), tr("Before"), tr("After")});
    setAlternatingRowColors(true);
    setUniformRowHeights(true);
    header()->setStretchLastSection(true);
}

void ChangeTree::show(const SaveResults& results) {
    clear();
    for (const bool isFailure : {true, false}) {
        for (const SaveResult& result : results) {
            if (result.failure.empty() != isFailure) addFile(result);
        }
    }
    if (results.size() <= kExpandedFiles) expandAll();
    for (int column = 0; column < columnCount() - 1; ++column) {
        resizeColumnToContents(column);
        setColumnWidth(column, std::clamp(columnWidth(column), kMinimumWidth, kMaximumWidth));
    }
}

void ChangeTree::addFile(const SaveResult& result) {
    auto* file = new QTreeWidgetItem(this, {shownPath(result.path)});
    file->setToolTip(0, asWritten(shownPath(result.path)));
    file->setFirstColumnSpanned(true);
    const auto addNote = [this, file](const QString& text, QStyle::StandardPixmap icon) {
        auto* note = new QTreeWidgetItem(file, {text});
        note->setIcon(0, style()->standardIcon(icon));
        note->setToolTip(0, asWritten(text));
        note->setFirstColumnSpanned(true);
    };
    if (!result.failure.empty()) addNote(toQt(result.failure), QStyle::SP_MessageBoxCritical);
    for (const std::string& warning : result.plan.warnings) addNote(toQt(warning), QStyle::SP_MessageBoxWarning);
    if (!result.failure.empty()) return;
    for (const cli::ChangedTag& tag : result.plan.tags) {
        if (!hasEffect(tag)) continue;
        auto* part = new QTreeWidgetItem(file, {tagLine(tag)});
        for (const cli::FieldChange& change : tag.changes) {
            new QTreeWidgetItem(part, {shownFieldName(change.name), onOneLine(change.before), onOneLine(change.after)});
        }
    }
    if (file->childCount() == 0) addNote(tr("Nothing changes"), QStyle::SP_MessageBoxInformation);
}

QString textOf(const SaveResults& results) {
    QStringList lines;
    for (const SaveResult& result : results) {
        lines << shownPath(result.path);
        if (!result.failure.empty()) lines << ChangeTree::tr("  failed: %1").arg(toQt(result.failure));
        for (const std::string& warning : result.plan.warnings) {
            lines << ChangeTree::tr("  warning: %1").arg(toQt(warning));
        }
        if (!result.failure.empty()) continue;
        for (const cli::ChangedTag& tag : result.plan.tags) {
            if (hasEffect(tag)) lines << QStringLiteral("  ") + tagLine(tag);
            for (const cli::FieldChange& change : tag.changes) {
                lines << QStringLiteral("    %1: \"%2\" \u2192 \"%3\"")
                             .arg(shownFieldName(change.name), onOneLine(change.before), onOneLine(change.after));
            }
        }
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace corvane::editor
