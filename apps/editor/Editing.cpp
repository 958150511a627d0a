#include "apps/editor/Editing.h"

#include "apps/editor/PendingSummary.h"
#include "apps/editor/Tools.h"

#include <QScopedValueRollback>
#include <algorithm>
#include <utility>

namespace corvane::editor {

Editing::Editing(EditSession& session, FileTable& table, FilePages& pages, ManyPages& many)
    : session_(session), table_(table), pages_(pages), many_(many) {
    connect(&session_, &EditSession::changed, this, &Editing::follow);
    connect(&reader_, &TagReader::finished, this, &Editing::showMany);
    connect(&pages_, &FilePages::edited, this, [this](const FileTags& wanted, const QString& field) {
        const QScopedValueRollback fromPage(isFromPage_, true);
        session_.edit(tr("edit"), {{pages_.path(), wanted}}, field);
    });
    connect(&many_, &ManyPages::edited, this, [this](const Tool& tool, const QString& field) {
        const QScopedValueRollback fromPage(isFromPage_, true);
        apply(tool, tr("edit of many files"), field);
    });
}

// --- selection

void Editing::select(std::vector<std::string> paths) {
    session_.endStep();
    reader_.cancel();
    selected_ = std::move(paths);
    editable_.clear();
    if (selected_.size() == 1) return showOne(selected_.front());
    pages_.clear();
    if (selected_.empty()) {
        Q_EMIT shown(Shown::Nothing, tr("Drop MP3 files or folders here, or open them from the File menu.\n"
                                        "Select files to see and change what is in them."));
    } else {
        readMany();
    }
}

void Editing::showOne(const std::string& path) {
    const TagsPointer wanted = session_.isChanged(path) ? session_.wanted(path) : nullptr;
    const QString failure = pages_.showFile(path, wanted.get());
    if (!failure.isEmpty()) {
        Q_EMIT shown(Shown::Nothing, tr("This file cannot be read: %1").arg(failure));
        return;
    }
    session_.learn(path, pages_.tagsInFile());
    editable_ = selected_;
    Q_EMIT shown(Shown::OneFile, {});
}

// Files without changes are read anew: somebody else may have changed them.
void Editing::readMany() {
    std::vector<std::string> paths;
    std::copy_if(selected_.begin(), selected_.end(), std::back_inserter(paths),
                 [this](const std::string& path) { return !session_.isChanged(path); });
    Q_EMIT shown(Shown::Nothing, tr("Reading the tags of the selected files…"));
    reader_.read(std::move(paths));
}

void Editing::showMany(bool complete) {
    if (selected_.size() < 2) return;
    if (!complete) {
        Q_EMIT shown(Shown::Nothing, tr("Reading was cancelled. Select the files again to edit them."));
        return;
    }
    for (const auto& [path, tags] : reader_.tags()) session_.learn(path, tags);
    std::copy_if(selected_.begin(), selected_.end(), std::back_inserter(editable_),
                 [this](const std::string& path) { return session_.knows(path); });
    if (editable_.empty()) {
        Q_EMIT shown(Shown::Nothing, tr("None of these files can be read."));
        return;
    }
    many_.showFiles(editable_);
    Q_EMIT shown(Shown::ManyFiles, {});
}

// --- steps

void Editing::apply(const Tool& tool, const QString& text, const QString& key) {
    std::vector<std::pair<std::string, FileTags>> wanted;
    wanted.reserve(editable_.size());
    for (const std::string& path : editable_) {
        if (const auto tags = session_.wanted(path)) wanted.emplace_back(path, tool(*tags));
    }
    session_.edit(text, wanted, key);
}

void Editing::applyNumbered(const std::function<FileTags(FileTags, int)>& tool, const QString& text) {
    int place = 0;
    apply([&](FileTags tags) { return tool(std::move(tags), place++); }, text);
}

void Editing::revert() { session_.revert(selected_); }

void Editing::follow(const std::vector<std::string>& paths) {
    showInTable(paths);
    if (isFromPage_) return;
    if (editable_.size() > 1) {
        many_.refresh();
    } else if (!editable_.empty() && std::find(paths.begin(), paths.end(), editable_.front()) != paths.end()) {
        showOne(editable_.front());
    }
}

void Editing::showInTable(const std::vector<std::string>& paths) {
    std::vector<FileTable::Change> changes;
    changes.reserve(paths.size());
    for (const std::string& path : paths) {
        FileTable::Change change{path, std::nullopt};
        const FileRow* row = table_.find(path);
        if (row && session_.isChanged(path)) {
            change.summary = pendingSummary(row->summary, *session_.inFile(path), *session_.wanted(path));
        }
        changes.push_back(std::move(change));
    }
    table_.showChanges(changes);
}

} // namespace corvane::editor
