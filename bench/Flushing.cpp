#include "bench/Flushing.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <chrono>

namespace {

std::atomic<bool> reallyFlushes = true;
std::atomic<double> firstFlush = 0;

int flush(long call, int file) {
    if (firstFlush == 0) firstFlush = corvane::bench::secondsNow();
    return reallyFlushes ? static_cast<int>(::syscall(call, file)) : 0;
}

} // namespace

namespace corvane::bench {

void flushes(bool really) { reallyFlushes = really; }

double secondsNow() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

double secondsOfFirstFlush() { return firstFlush; }
void forgetFlush() { firstFlush = 0; }

} // namespace corvane::bench

// In the place of the system's own, for the whole process.
extern "C" int fsync(int file) { return flush(SYS_fsync, file); }
extern "C" int fdatasync(int file) { return flush(SYS_fdatasync, file); }
