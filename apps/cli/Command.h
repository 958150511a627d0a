// What a subcommand is to the frame that runs it.
#pragma once

#include "apps/cli/Failures.h"
#include "apps/cli/Output.h"

#include <cstddef>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace corvane::cli {

// What the process says when it ends.
enum class ExitCode : int { Done = 0, FileFailed = 1, WrongUse = 2 };

// Ends a run whose command line cannot be meant.
class WrongUse : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The two streams that a run writes to.
struct Session {
    Output output;
    Failures failures;
};

class Command {
public:
    virtual ~Command() = default;
    virtual void declareOptions(CLI::App& app) = 0;
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
