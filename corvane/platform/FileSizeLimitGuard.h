// While a guard lives, a write beyond the process's file-size limit (RLIMIT_FSIZE) fails with EFBIG in this thread. By
// default the system would end the process instead, and with it a write that is only half done.
#pragma once

#include <csignal>

namespace corvane {

class FileSizeLimitGuard {
public:
    FileSizeLimitGuard();
    ~FileSizeLimitGuard();
    FileSizeLimitGuard(const FileSizeLimitGuard&) = delete;
    FileSizeLimitGuard& operator=(const FileSizeLimitGuard&) = delete;

private:
    bool hasLimit_;
    sigset_t before_{};
    bool wasPending_ = false;
};

} // namespace corvane
