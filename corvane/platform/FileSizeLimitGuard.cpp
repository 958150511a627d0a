#include "corvane/platform/FileSizeLimitGuard.h"

#include <sys/resource.h>

#include <ctime>

namespace corvane {

namespace {

sigset_t onlyFileSizeSignal() {
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGXFSZ);
    return set;
}

bool isPending() {
    sigset_t pending;
    return sigpending(&pending) == 0 && sigismember(&pending, SIGXFSZ) == 1;
}

// Usually there is none, and nothing has to be done then.
bool hasLimit() {
    rlimit limit{};
    return ::getrlimit(RLIMIT_FSIZE, &limit) != 0 || limit.rlim_cur != RLIM_INFINITY;
}

} // namespace

FileSizeLimitGuard::FileSizeLimitGuard() : hasLimit_(hasLimit()) {
    if (!hasLimit_) return;
    wasPending_ = isPending();
    const sigset_t blocked = onlyFileSizeSignal();
    pthread_sigmask(SIG_BLOCK, &blocked, &before_);
}

FileSizeLimitGuard::~FileSizeLimitGuard() {
    if (!hasLimit_) return;
    if (!wasPending_ && isPending()) {
        // Takes the signal that our own write has raised, so that it does not strike when it is let through again.
        const sigset_t taken = onlyFileSizeSignal();
        const timespec noWait{};
        sigtimedwait(&taken, nullptr, &noWait);
    }
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

} // namespace corvane
