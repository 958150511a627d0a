// Reads every file below a folder several times and prints how long one file takes.
#pragma once

#include <functional>
#include <string>

namespace corvane::bench {

// The main() of a scan program: `PROGRAM FOLDER [ROUNDS]`. Calls `read` for each regular file below the folder, whose
// names are collected before the clock starts, and prints the microseconds of processor time a file
// of the fastest round.
int scanRounds(int argumentCount, char** arguments, const std::function<void(const std::string&)>& read);

} // namespace corvane::bench
