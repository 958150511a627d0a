#include "apps/editor/EditCommand.h"

#include <algorithm>
#include <utility>

namespace corvane::editor {

EditCommand::EditCommand(EditSession& session, const QString& text, TagsChanges changes, QString key)
    : QUndoCommand(text), session_(session), changes_(std::move(changes)), key_(std::move(key)) {
    session_.commands_.insert(this);
}

EditCommand::~EditCommand() { session_.commands_.erase(this); }

void EditCommand::rebase(const Rebase& rebase) {
    for (TagsChange& step : changes_) {
        step.before = rebase(step.path, step.before);
        step.after = rebase(step.path, step.after);
    }
}

void EditCommand::forget(const std::unordered_set<std::string>& paths) {
    std::erase_if(changes_, [&](const TagsChange& step) { return paths.contains(step.path); });
}

void EditCommand::undo() { session_.apply(changes_, &TagsChange::before); }

void EditCommand::redo() { session_.apply(changes_, &TagsChange::after); }

int EditCommand::id() const { return key_.isEmpty() ? -1 : 1; }

bool EditCommand::isOfSameFiles(const EditCommand& other) const {
    return std::equal(changes_.begin(), changes_.end(), other.changes_.begin(), other.changes_.end(),
                      [](const TagsChange& left, const TagsChange& right) { return left.path == right.path; });
}

bool EditCommand::mergeWith(const QUndoCommand* next) {
    const auto& later = static_cast<const EditCommand&>(*next); // of the same id, so of this class
    if (later.key_ != key_ || !isOfSameFiles(later)) return false;
    for (std::size_t at = 0; at < changes_.size(); ++at) changes_[at].after = later.changes_[at].after;
    const bool isNothing = std::all_of(changes_.begin(), changes_.end(),
                                       [](const TagsChange& change) { return *change.before == *change.after; });
    if (isNothing) setObsolete(true); // typed and taken back
    return true;
}

} // namespace corvane::editor
