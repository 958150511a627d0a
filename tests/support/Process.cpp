#include "tests/support/Process.h"

#include <grp.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <exception>
#include <string>

namespace corvane::test {

LoweredFileSizeLimit::LoweredFileSizeLimit(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit lowered{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &lowered);
}

LoweredFileSizeLimit::~LoweredFileSizeLimit() { setrlimit(RLIMIT_FSIZE, &before_); }

bool isRoot() { return ::geteuid() == 0; }

int inChild(const std::function<int()>& body) {
    constexpr int kRaised = 100;
    constexpr int kKilled = 101;
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child == 0) {
        int result = kRaised;
        try {
            result = body();
        } catch (const std::exception& failure) {
            std::fprintf(stderr, "in the child: %s\n", failure.what());
        }
        std::fflush(nullptr);
        ::_exit(result);
    }
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child || !WIFEXITED(status)) return kKilled;
    return WEXITSTATUS(status);
}

int asNobody(const std::function<int()>& body) {
    return inChild([&] {
        constexpr int kCannotChange = 98;
        const bool changed = ::setgroups(0, nullptr) == 0 && ::setresgid(kNobody, kNobody, kNobody) == 0 &&
                             ::setresuid(kNobody, kNobody, kNobody) == 0;
        return changed ? body() : kCannotChange;
    });
}

int withSmallFileSystem(const char* folder, unsigned long bytes, const std::function<int()>& body) {
    return inChild([&] {
        const std::string options = "size=" + std::to_string(bytes);
        const bool mounted = ::unshare(CLONE_NEWNS) == 0 &&
                             ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                             ::mount("tmpfs", folder, "tmpfs", 0, options.c_str()) == 0;
        return mounted ? body() : kNoMount;
    });
}

} // namespace corvane::test
