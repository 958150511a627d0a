// What becomes of the user's changes when somebody else has changed the file since it was read.
#pragma once

#include "apps/editor/FileTags.h"

#include <string>

namespace corvane::editor {

// What both the user and somebody else have changed, each in another way, as words: "ID3v2 title, ID3v2 genre". "" for
// nothing.
std::string conflictsIn(const FileTags& before, const FileTags& wanted, const FileTags& now);

} // namespace corvane::editor
