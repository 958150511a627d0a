// What saving does to one file. The same plan is shown to the user and carried out, so what was shown is what happens.
#pragma once

#include "apps/cli/TagChange.h"
#include "apps/editor/FileTags.h"

#include <string>

namespace corvane::editor {

// Finds out what the file needs in order to have the tags that are wanted; only values that differ from `inFile` are
// touched. Nothing is written. Fails with an exception that tells why when the file cannot be changed like that, also
// when the file would get its first tag and is no MPEG audio, and when somebody else has changed the same values since:
// theirs are not overwritten unseen.
cli::ChangeReport planFor(const std::string& path, const FileTags& inFile, const FileTags& wanted);

// Carries a plan out. Fails with an exception; when one tag had been written before, it says so.
void carryOut(const cli::ChangeReport& plan);

} // namespace corvane::editor
