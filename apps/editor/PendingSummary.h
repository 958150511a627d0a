// What the list shows of a file with the changes that wait to be saved.
#pragma once

#include "corvane/core/FileSummary.h"

#include "apps/editor/FileTags.h"

namespace corvane::editor {

// The summary of the file as it is, with what differs between the tags in it and those that are wanted.
FileSummary pendingSummary(FileSummary summary, const FileTags& inFile, const FileTags& wanted);

} // namespace corvane::editor
