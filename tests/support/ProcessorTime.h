// How long work takes, whatever else the machine has to do.
#pragma once

#include <ctime>

namespace corvane::test {

// Seconds that the processor has worked for this process, in the system too.
inline double processorSeconds() {
    timespec time{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

} // namespace corvane::test
