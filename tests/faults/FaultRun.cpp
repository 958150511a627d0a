#include "tests/faults/FaultRun.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <stdexcept>
#include <vector>

namespace corvane::test {

namespace {

struct Pipe {
    std::array<int, 2> ends{};
    Pipe() {
        if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    }
    ~Pipe() {
        ::close(ends[0]);
        if (ends[1] >= 0) ::close(ends[1]);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    // Everything that was written into it, when nobody can write any more.
    std::string content() {
        ::close(ends[1]);
        ends[1] = -1;
        std::string text;
        std::array<char, 4096> block{};
        for (;;) {
            const auto got = ::read(ends[0], block.data(), block.size());
            if (got < 0 && errno == EINTR) continue;
            if (got <= 0) return text;
            text.append(block.data(), static_cast<std::size_t>(got));
        }
    }
};

std::vector<std::string> environmentOf(const Fault& fault, int report, const std::string& temporaryFolder) {
    std::vector<std::string> variables{"CORVANE_FAULT_REPORT=" + std::to_string(report), "TMPDIR=" + temporaryFolder};
    if (fault.kind == "allocation") {
        variables.push_back("CORVANE_FAULT_ALLOCATION=" + std::to_string(fault.at));
        return variables;
    }
    variables.emplace_back("LD_PRELOAD=" CORVANE_FAULT_SHIM);
    variables.push_back("CORVANE_FAULT_KIND=" + fault.kind);
    variables.push_back("CORVANE_FAULT_ERRNO=" + std::to_string(fault.errorNumber));
    variables.push_back("CORVANE_FAULT_AT=" + std::to_string(fault.at));
    return variables;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

// In the child: becomes the driver.
[[noreturn]] void becomeDriver(std::vector<std::string> arguments, std::vector<std::string> variables, int output,
                               int report) {
    ::dup2(output, STDOUT_FILENO);
    ::fcntl(report, F_SETFD, 0);
    ::execve(CORVANE_FAULT_DRIVER, pointersTo(arguments).data(), pointersTo(variables).data());
    ::_exit(127);
}

} // namespace

FaultRun runWithFault(const std::string& operation, const std::string& path, const Fault& fault,
                      const std::string& temporaryFolder) {
    Pipe output;
    Pipe report;
    const pid_t child = ::fork();
    if (child < 0) throw std::runtime_error("no child process");
    if (child == 0) {
        becomeDriver({"corvane-fault-driver", operation, path}, environmentOf(fault, report.ends[1], temporaryFolder),
                     output.ends[1], report.ends[1]);
    }
    FaultRun run;
    run.text = output.content();
    run.call = report.content();
    if (!run.call.empty()) run.call.resize(run.call.find('\n'));
    int status = 0;
    while (::waitpid(child, &status, 0) != child) {
    }
    run.isKilled = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    run.toldSuccess = WIFEXITED(status) && WEXITSTATUS(status) == 0;
    const bool toldFailure = WIFEXITED(status) && WEXITSTATUS(status) == 1;
    if (!run.isKilled && !run.toldSuccess && !toldFailure)
        throw std::runtime_error("the driver ended with status " + std::to_string(status) + " at " + run.call);
    return run;
}

} // namespace corvane::test
