// A step of the edit session, as the undo stack keeps it.
#pragma once

#include "apps/editor/EditSession.h"

#include <QUndoCommand>
#include <functional>
#include <string>
#include <unordered_set>

namespace corvane::editor {

class EditCommand : public QUndoCommand {
public:
    // The key joins steps that follow each other, see EditSession::edit.
    EditCommand(EditSession& session, const QString& text, TagsChanges changes, QString key);
    ~EditCommand() override;

    // Replaces the tags that the step has for its files.
    using Rebase = std::function<TagsPointer(const std::string& path, const TagsPointer& tags)>;
    void rebase(const Rebase& rebase);
    // Leaves files out of the step.
    void forget(const std::unordered_set<std::string>& paths);

    void undo() override;
    void redo() override;
    int id() const override;
    bool mergeWith(const QUndoCommand* next) override;

private:
    bool isOfSameFiles(const EditCommand& other) const;

    EditSession& session_;
    TagsChanges changes_;
    QString key_;
};

} // namespace corvane::editor
