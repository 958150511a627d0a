#include "apps/cli/Process.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>

namespace corvane::cli {

namespace {

// Streams are taken in ascending order, so that the lowest free number is the closed one.
void occupy(int descriptor, int mode) {
    if (::fcntl(descriptor, F_GETFD) >= 0 || errno != EBADF) return;
    if (::open("/dev/null", mode) != descriptor) std::abort();
}

} // namespace

void prepareProcess() {
    occupy(STDIN_FILENO, O_WRONLY);
    occupy(STDOUT_FILENO, O_RDONLY);
    occupy(STDERR_FILENO, O_RDONLY);
    std::signal(SIGXFSZ, SIG_IGN);
}

} // namespace corvane::cli
