// Help texts.
#pragma once

#include "apps/cli/Command.h"

#include <string>

namespace corvane::cli {

// The text of `corvane --help`.
std::string commandsHelp();
// "corvane 1.2.3" and a line break.
std::string versionText();
// The text of `corvane NAME --help`.
std::string commandHelp(const CommandEntry& entry, const Options& options);

} // namespace corvane::cli
