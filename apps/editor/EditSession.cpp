#include "apps/editor/EditSession.h"

#include "apps/editor/EditCommand.h"

namespace corvane::editor {

namespace {

constexpr int kUndoLimit = 100;

// A tag that the file is not to have has no values that could differ.
FileTags tidied(FileTags tags, const FileTags& inFile) {
    const auto tidy = [](TagValues& values, const TagValues& before) {
        if (values.present) return;
        values = before;
        values.present = false;
    };
    tidy(tags.v1, inFile.v1);
    tidy(tags.v2, inFile.v2);
    return tags;
}

} // namespace

EditSession::EditSession(QObject* parent) : QObject(parent) { undoStack_.setUndoLimit(kUndoLimit); }

void EditSession::learn(const std::string& path, FileTags tags) {
    if (isChanged(path)) return;
    if (const auto before = inFile(path); before && *before != tags) {
        const FileOutcome outcome{.path = path, .now = tags};
        rebaseSteps({{path, &outcome}});
    }
    const auto shared = std::make_shared<const FileTags>(std::move(tags));
    files_[path] = {shared, shared};
}

void EditSession::learnAgain(const std::vector<FileOutcome>& outcomes) {
    const bool before = hasChanges();
    Outcomes known;
    for (const FileOutcome& outcome : outcomes) {
        if (knows(outcome.path)) known.emplace(outcome.path, &outcome);
    }
    rebaseSteps(known);
    std::vector<std::string> paths;
    for (const FileOutcome& outcome : outcomes) {
        const auto found = files_.find(outcome.path);
        if (found == files_.end()) continue;
        File& file = found->second;
        FileTags wanted = rebasedStep(*file.wanted, *file.inFile, *file.wanted, outcome);
        file.inFile = std::make_shared<const FileTags>(outcome.now);
        file.wanted = wanted == outcome.now ? file.inFile : std::make_shared<const FileTags>(std::move(wanted));
        note(outcome.path, file);
        paths.push_back(outcome.path);
    }
    if (paths.empty()) return;
    Q_EMIT changed(paths);
    tellDirty(before);
}

// Before the files themselves are changed.
void EditSession::rebaseSteps(const Outcomes& outcomes) {
    const auto rebase = [&](const std::string& path, const TagsPointer& step) {
        const auto outcome = outcomes.find(path);
        if (outcome == outcomes.end()) return step;
        const File& file = files_.at(path);
        FileTags made = rebasedStep(*step, *file.inFile, *file.wanted, *outcome->second);
        return made == *step ? step : std::make_shared<const FileTags>(std::move(made));
    };
    for (EditCommand* command : commands_) command->rebase(rebase);
}

TagsPointer EditSession::inFile(const std::string& path) const {
    const auto found = files_.find(path);
    return found == files_.end() ? nullptr : found->second.inFile;
}

TagsPointer EditSession::wanted(const std::string& path) const {
    const auto found = files_.find(path);
    return found == files_.end() ? nullptr : found->second.wanted;
}

bool EditSession::isChanged(const std::string& path) const { return changed_.contains(path); }

void EditSession::edit(const QString& text, const std::vector<std::pair<std::string, FileTags>>& wanted,
                       const QString& key) {
    TagsChanges changes;
    for (const auto& [path, given] : wanted) {
        const auto found = files_.find(path);
        if (found == files_.end()) continue;
        const File& file = found->second;
        FileTags tags = tidied(given, *file.inFile);
        if (tags == *file.wanted) continue;
        const bool isBack = tags == *file.inFile;
        changes.push_back(
            {path, file.wanted, isBack ? file.inFile : std::make_shared<const FileTags>(std::move(tags))});
    }
    if (changes.empty()) return;
    const QString wholeKey = key.isEmpty() ? QString() : key + QLatin1Char(' ') + QString::number(stepNumber_);
    undoStack_.push(new EditCommand(*this, text, std::move(changes), wholeKey));
}

void EditSession::endStep() { ++stepNumber_; }

void EditSession::revert(const std::vector<std::string>& paths) {
    std::vector<std::pair<std::string, FileTags>> wanted;
    for (const std::string& path : paths) {
        if (isChanged(path)) wanted.emplace_back(path, *inFile(path));
    }
    edit(tr("revert"), wanted);
}

void EditSession::forget(const std::vector<std::string>& paths) {
    const bool before = hasChanges();
    for (const std::string& path : paths) {
        files_.erase(path);
        changed_.erase(path);
    }
    const std::unordered_set<std::string> forgotten(paths.begin(), paths.end());
    for (EditCommand* command : commands_) command->forget(forgotten);
    tellDirty(before);
}

void EditSession::clear() {
    const bool before = hasChanges();
    undoStack_.clear();
    files_.clear();
    changed_.clear();
    tellDirty(before);
}

void EditSession::apply(const TagsChanges& changes, TagsPointer TagsChange::*state) {
    const bool before = hasChanges();
    std::vector<std::string> paths;
    paths.reserve(changes.size());
    for (const TagsChange& change : changes) {
        const auto found = files_.find(change.path);
        if (found == files_.end()) continue;
        found->second.wanted = change.*state;
        note(change.path, found->second);
        paths.push_back(change.path);
    }
    Q_EMIT changed(paths);
    tellDirty(before);
}

void EditSession::note(const std::string& path, const File& file) {
    if (file.wanted == file.inFile || *file.wanted == *file.inFile) {
        changed_.erase(path);
    } else {
        changed_.insert(path);
    }
}

void EditSession::tellDirty(bool before) {
    if (before != hasChanges()) Q_EMIT dirtyChanged(!before);
}

} // namespace corvane::editor
