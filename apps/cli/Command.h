// What a subcommand is to the frame that runs it.
#pragma once

#include "apps/cli/Failures.h"
#include "apps/cli/Options.h"
#include "apps/cli/Output.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace corvane::cli {

// What the process says when it ends.
enum class ExitCode : int { Done = 0, FileFailed = 1, WrongUse = 2 };

// The two streams that a run writes to.
struct Session {
    Output output;
    Failures failures;
};

class Command {
public:
    virtual ~Command() = default;
    virtual void declareOptions(Options& options) = 0;
    // operands: the arguments that are no options. Files that failed are told to the session.
    virtual void run(Session& session, const std::vector<std::string>& operands) = 0;
};

// A subcommand as the table knows it: nothing of it is built before it is asked for.
struct CommandEntry {
    const char* name;
    const char* summary;
    const char* operands; // as the usage line shows them
    std::size_t leastOperands;
    std::size_t mostOperands;
    const char* examples; // lines of the help text
    std::unique_ptr<Command> (*make)();
};

} // namespace corvane::cli
