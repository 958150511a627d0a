#include "apps/cli/CommandLine.h"

#include "apps/cli/Commands.h"
#include "apps/cli/Help.h"
#include "apps/cli/WrongUse.h"

#include <fmt/core.h>
#include <unistd.h>

#include <algorithm>
#include <functional>

namespace corvane::cli {

namespace {

void checkOperandCount(const CommandEntry& entry, std::size_t count) {
    if (count < entry.leastOperands) throw WrongUse(fmt::format("{} is missing", entry.operands));
    if (count > entry.mostOperands) throw WrongUse("Too many arguments");
}

// Only the subcommand that is meant is built: start-up counts when a script calls the command for every file.
void runCommand(const CommandEntry& entry, const std::vector<std::string>& words, Session& session) {
    const std::unique_ptr<Command> command = entry.make();
    Options options;
    command->declareOptions(options);
    const Options::Said said = options.take(words);
    if (said.wantsHelp) return session.output.write(commandHelp(entry, options));
    checkOperandCount(entry, said.operands.size());
    command->run(session, said.operands);
}

bool isHelpWord(const std::string& word) { return word == "--help" || word == "-h"; }

void runWords(std::vector<std::string> words, Session& session) {
    if (words.empty()) throw WrongUse("COMMAND is missing");
    if (words.front() == "--version") return session.output.write(versionText());
    if (words.front() == "help") { // "help set" is "set --help"
        words.erase(words.begin());
        words.insert(words.begin() + (words.empty() ? 0 : 1), "--help");
    }
    if (isHelpWord(words.front())) return session.output.write(commandsHelp());
    const CommandEntry* entry = findCommand(words.front());
    if (entry == nullptr) throw WrongUse(fmt::format("There is no command \"{}\"", words.front()));
    words.erase(words.begin());
    try {
        runCommand(*entry, words, session);
    } catch (const WrongUse& wrong) {
        throw WrongUse(fmt::format("{}: {}. See \"corvane {} --help\".", entry->name, wrong.what(), entry->name));
    }
}

// Nothing passes this wall but what the process says in the end.
ExitCode endOf(Session& session, const std::function<void()>& body) {
    try {
        body();
    } catch (const WrongUse& wrong) {
        session.failures.message(wrong.what());
        return ExitCode::WrongUse;
    } catch (const OutputFailure& failure) {
        session.failures.file("standard output", failure.what());
    } catch (const std::exception& unexpected) {
        session.failures.message(unexpected.what());
        return ExitCode::FileFailed;
    }
    return session.failures.count() > 0 ? ExitCode::FileFailed : ExitCode::Done;
}

} // namespace

ExitCode runCommandLine(const std::vector<std::string>& words) {
    Session session{Output(STDOUT_FILENO), Failures(STDERR_FILENO)};
    const ExitCode code = endOf(session, [&] { runWords(words, session); });
    // What was said before a failure is said all the same.
    return std::max(code, endOf(session, [&] { session.output.close(); }));
}

} // namespace corvane::cli
