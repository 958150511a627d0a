// What becomes of the steps of undo and redo when a file has been saved or read again: a step holds whole tags, so what
// has come into the file since, by a save or by another program, has to come into the step.
#pragma once

#include "apps/editor/FileTags.h"
#include "apps/editor/OldTag.h"

#include <string>

namespace corvane::editor {

// What a save, or another look at a file, has found there.
struct FileOutcome {
    std::string path = {};
    FileTags now = {};    // the tags that the file has
    bool isSaved = false; // all that was wanted has been written
    OldTag old = {};      // the ID3v2 tag before a save that changed its pictures or removed it
};

// The tags of a step after that. inFile and wanted are those from before.
//
// - A value that another program has changed is theirs in all steps, but for one that is still wanted.
// - A value that has been saved stays what it is in each step, so that a step back makes the earlier one wanted again.
// In
//   the step that was saved it becomes what the file has made of it: a record cuts texts, for example.
FileTags rebasedStep(const FileTags& step, const FileTags& inFile, const FileTags& wanted, const FileOutcome& outcome);

} // namespace corvane::editor
