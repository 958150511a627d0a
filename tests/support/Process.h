// Conditions of the process under which an operation is tested.
#pragma once

#include <sys/resource.h>
#include <sys/types.h>

#include <functional>

namespace corvane::test {

// The process's file-size limit in bytes, lowered while this lives.
class LoweredFileSizeLimit {
public:
    explicit LoweredFileSizeLimit(rlim_t bytes);
    ~LoweredFileSizeLimit();
    LoweredFileSizeLimit(const LoweredFileSizeLimit&) = delete;
    LoweredFileSizeLimit& operator=(const LoweredFileSizeLimit&) = delete;

private:
    rlimit before_{};
};

// A user and a group of no name and no rights.
inline constexpr uid_t kNobody = 65534;

bool isRoot();

// Runs `body` in a child process and gives its result, 0 to 99; 100 and more when it did not end by itself. What the
// body changes in its process (user, mounts, limits) stays in the child.
int inChild(const std::function<int()>& body);

// The same as user and group kNobody, without any privilege. Only root can do that.
int asNobody(const std::function<int()>& body);

// The same with a memory file system of `bytes` mounted on `folder`, for the child only. Nothing is run, and the result
// is kNoMount, where that is not permitted.
inline constexpr int kNoMount = 99;
int withSmallFileSystem(const char* folder, unsigned long bytes, const std::function<int()>& body);

} // namespace corvane::test
