// The command line as a whole: which subcommand is meant, what it is told, and what the process says in the end.
#pragma once

#include "apps/cli/Command.h"

#include <string>
#include <vector>

namespace corvane::cli {

// Runs what `words`, the arguments behind the program's name, ask for.
ExitCode runCommandLine(const std::vector<std::string>& words);

} // namespace corvane::cli
