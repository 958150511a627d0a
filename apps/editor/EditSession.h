// The changes that wait to be saved: for each changed file its tags as they were read and as they are to be, with undo
// and redo. Nothing here touches a file.
#pragma once

#include "apps/editor/FileTags.h"
#include "apps/editor/StepRebase.h"

#include <QObject>
#include <QString>
#include <QUndoStack>
#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace corvane::editor {

using TagsPointer = std::shared_ptr<const FileTags>;

// One step for one file.
struct TagsChange {
    std::string path;
    TagsPointer before, after;
};
using TagsChanges = std::vector<TagsChange>;

class EditCommand;

class EditSession : public QObject {
    Q_OBJECT

public:
    explicit EditSession(QObject* parent = nullptr);

    QUndoStack& undoStack() { return undoStack_; }

    // What is in the file, as somebody has read it. A file that has changes keeps what was read before. When a file is
    // not what it was, its steps leave alone what differs: it is somebody else's.
    void learn(const std::string& path, FileTags tags);
    // What a save has made of files. Of one that could not be saved, what the user has changed stays wanted. The steps
    // stay, see rebasedStep: undoing one makes the earlier values wanted again.
    void learnAgain(const std::vector<FileOutcome>& outcomes);
    bool knows(const std::string& path) const { return files_.contains(path); }
    // Both are nothing for a file that nobody has learned.
    TagsPointer inFile(const std::string& path) const;
    TagsPointer wanted(const std::string& path) const;

    bool isChanged(const std::string& path) const;
    // Sorted.
    std::vector<std::string> changedPaths() const { return {changed_.begin(), changed_.end()}; }
    bool hasChanges() const { return !changed_.empty(); }

    // One step for all these files, each of which is known. Files that it does not change are left out; a step that
    // changes nothing is none. Steps with the same key are one, as long as nobody calls endStep: so is typing a word.
    void edit(const QString& text, const std::vector<std::pair<std::string, FileTags>>& wanted,
              const QString& key = {});
    void endStep();

    // Takes the changes of these files back, as a step that can be undone itself.
    void revert(const std::vector<std::string>& paths);
    // Forgets files with all their changes and their part of the steps: they are not edited any more.
    void forget(const std::vector<std::string>& paths);
    void clear();

Q_SIGNALS:
    // These files are to have other tags than before.
    void changed(const std::vector<std::string>& paths);
    // Whether there are changes at all.
    void dirtyChanged(bool dirty);

private:
    friend class EditCommand;
    struct File {
        TagsPointer inFile, wanted;
    };

    void apply(const TagsChanges& changes, TagsPointer TagsChange::*state);
    void note(const std::string& path, const File& file);
    void tellDirty(bool before);
    using Outcomes = std::unordered_map<std::string, const FileOutcome*>; // by path
    void rebaseSteps(const Outcomes& outcomes);

    std::unordered_map<std::string, File> files_;
    std::set<std::string> changed_;             // paths of files that are to be other than they are
    std::unordered_set<EditCommand*> commands_; // all that are alive, which are those on the stack
    QUndoStack undoStack_;
    int stepNumber_ = 0;
};

} // namespace corvane::editor
