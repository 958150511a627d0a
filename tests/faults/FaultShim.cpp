// A preloaded library that lets one system call of a process go wrong that opens, reads or writes files.
//
// CORVANE_FAULT_AT       number of the call, counted from 1 over all calls below
// CORVANE_FAULT_KIND     what happens there (see Kind)
// CORVANE_FAULT_ERRNO    the error number that the call reports
// CORVANE_FAULT_REPORT   descriptor to which the name of the call is written, so that the caller knows of it
//
// A process can also begin and end the faults itself, see below; then CORVANE_FAULT_KIND is not set.
//
// The functions stand under other names in this file, because the system's headers declare them with attributes that
// a definition would have to repeat.
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string_view>

namespace {

enum class Kind {
    None,
    Once,        // the call fails, nothing is done
    FromThenOn,  // it and all later ones that need space fail
    Short,       // it writes half of the bytes and says so; nothing is wrong
    ShortThenOn, // the same, and all later ones that need space fail
    Late,        // it is done, and reported as failed
    Kill,        // the process ends before it
    KillHalf,    // the process ends when half of the bytes are written
    KillAfter    // the process ends after it
};

// What a call touches: the medium's space, or only what is there already.
enum class Touches { Space, NoSpace };

long numberOf(const char* variable) {
    const char* text = ::getenv(variable);
    return text == nullptr ? 0 : std::strtol(text, nullptr, 10);
}

Kind kindOf(const char* name) {
    struct Row {
        std::string_view name;
        Kind kind;
    };
    static constexpr std::array kRows{Row{"once", Kind::Once},          Row{"from-then-on", Kind::FromThenOn},
                                      Row{"short", Kind::Short},        Row{"short-then-on", Kind::ShortThenOn},
                                      Row{"late", Kind::Late},          Row{"kill", Kind::Kill},
                                      Row{"kill-half", Kind::KillHalf}, Row{"kill-after", Kind::KillAfter}};
    for (const Row& row : kRows) {
        if (name != nullptr && row.name == name) return row.kind;
    }
    return Kind::None;
}

struct Plan {
    long at = numberOf("CORVANE_FAULT_AT");
    Kind kind = kindOf(::getenv("CORVANE_FAULT_KIND"));
    int errorNumber = static_cast<int>(numberOf("CORVANE_FAULT_ERRNO"));
    int report = static_cast<int>(numberOf("CORVANE_FAULT_REPORT"));
    long count = 0;
    bool isPaused = false;
};

Plan& plan() {
    static Plan only;
    return only;
}

void report(const char* call) {
    ::syscall(SYS_write, plan().report, call, std::strlen(call));
    ::syscall(SYS_write, plan().report, "\n", 1);
}

[[noreturn]] void endProcess() {
    ::syscall(SYS_kill, ::syscall(SYS_getpid), SIGKILL);
    for (;;) ::syscall(SYS_pause);
}

long failed() {
    errno = plan().errorNumber;
    return -1;
}

bool isPersistent(Kind kind) { return kind == Kind::FromThenOn || kind == Kind::ShortThenOn; }

// Does the planned harm to one call. real(bytes): makes the call, for so many of its bytes where it has any.
template <class Real>
long faulted(std::size_t bytes, const Real& real) {
    const std::size_t half = bytes > 1 ? bytes / 2 : bytes;
    switch (plan().kind) {
    case Kind::Once:
    case Kind::FromThenOn:
        return failed();
    case Kind::Short:
    case Kind::ShortThenOn:
        return real(half);
    case Kind::Late:
        real(bytes);
        return failed();
    case Kind::Kill:
        endProcess();
    case Kind::KillHalf:
        if (bytes > 1) real(half);
        endProcess();
    case Kind::KillAfter:
        real(bytes);
        endProcess();
    case Kind::None:
        break;
    }
    return real(bytes);
}

template <class Real>
long counted(const char* call, Touches touches, std::size_t bytes, const Real& real) {
    Plan& fault = plan();
    if (fault.kind == Kind::None || fault.isPaused) return real(bytes);
    ++fault.count;
    if (fault.count == fault.at) {
        report(call);
        return faulted(bytes, real);
    }
    if (fault.count > fault.at && isPersistent(fault.kind) && touches == Touches::Space) return failed();
    return real(bytes);
}

// Descriptors that were opened for writing: closing them may report a failed write.
constexpr int kWatched = 1024;
std::array<bool, kWatched> writing{};

bool isStandard(int file) { return file <= STDERR_FILENO; }

long openedAt(int folder, const char* path, int flags, mode_t mode) {
    const auto real = [&](std::size_t) { return ::syscall(SYS_openat, folder, path, flags, mode); };
    const bool writes = (flags & (O_CREAT | O_TRUNC | O_WRONLY | O_RDWR)) != 0;
    const long file = counted("open", writes ? Touches::Space : Touches::NoSpace, 0, real);
    if (writes && file >= 0 && file < kWatched) writing[static_cast<std::size_t>(file)] = true;
    return file;
}

} // namespace

#define CALLED_BY_NAME extern "C" __attribute__((visibility("default")))

// The operation begins: what the process has done to start is not part of it. The arguments are those of the variables.
CALLED_BY_NAME void corvaneFaultsBegin(const char* kind, int errorNumber, long at, int report) {
    plan() = {at, kindOf(kind), errorNumber, report, 0, false};
}
// The operation is over: what the process does from now on, to end, is not part of it.
CALLED_BY_NAME void corvaneFaultsAreOver() { plan().kind = Kind::None; }
// What the process does meanwhile is that of another program.
CALLED_BY_NAME void corvaneFaultsArePaused(int isPaused) { plan().isPaused = isPaused != 0; }

#define REPLACES(name) __asm__(#name) __attribute__((visibility("default")))

extern "C" {
int shimOpen(const char* path, int flags, mode_t mode) REPLACES(open);
int shimOpen64(const char* path, int flags, mode_t mode) REPLACES(open64);
int shimOpenat(int folder, const char* path, int flags, mode_t mode) REPLACES(openat);
int shimOpenat64(int folder, const char* path, int flags, mode_t mode) REPLACES(openat64);
ssize_t shimRead(int file, void* bytes, size_t count) REPLACES(read);
ssize_t shimPread(int file, void* bytes, size_t count, off_t offset) REPLACES(pread);
ssize_t shimPread64(int file, void* bytes, size_t count, off_t offset) REPLACES(pread64);
ssize_t shimWrite(int file, const void* bytes, size_t count) REPLACES(write);
ssize_t shimPwrite(int file, const void* bytes, size_t count, off_t offset) REPLACES(pwrite);
ssize_t shimPwrite64(int file, const void* bytes, size_t count, off_t offset) REPLACES(pwrite64);
ssize_t shimCopy(int from, off_t* fromOffset, int to, off_t* toOffset, size_t count, unsigned flags)
    REPLACES(copy_file_range);
int shimFtruncate(int file, off_t size) REPLACES(ftruncate);
int shimFtruncate64(int file, off_t size) REPLACES(ftruncate64);
int shimFallocate(int file, int mode, off_t offset, off_t size) REPLACES(fallocate);
int shimFallocate64(int file, int mode, off_t offset, off_t size) REPLACES(fallocate64);
int shimFsync(int file) REPLACES(fsync);
int shimFdatasync(int file) REPLACES(fdatasync);
int shimRename(const char* from, const char* to) REPLACES(rename);
int shimRenameat(int fromFolder, const char* from, int toFolder, const char* to) REPLACES(renameat);
int shimUnlink(const char* path) REPLACES(unlink);
int shimUnlinkat(int folder, const char* path, int flags) REPLACES(unlinkat);
int shimLink(const char* from, const char* to) REPLACES(link);
int shimFchmod(int file, mode_t mode) REPLACES(fchmod);
int shimFchown(int file, uid_t owner, gid_t group) REPLACES(fchown);
int shimFsetxattr(int file, const char* name, const void* value, size_t size, int flags) REPLACES(fsetxattr);
int shimFremovexattr(int file, const char* name) REPLACES(fremovexattr);
int shimFutimens(int file, const timespec* times) REPLACES(futimens);
int shimClose(int file) REPLACES(close);

int shimOpen(const char* path, int flags, mode_t mode) {
    return static_cast<int>(openedAt(AT_FDCWD, path, flags, mode));
}
int shimOpen64(const char* path, int flags, mode_t mode) { return shimOpen(path, flags, mode); }
int shimOpenat(int folder, const char* path, int flags, mode_t mode) {
    return static_cast<int>(openedAt(folder, path, flags, mode));
}
int shimOpenat64(int folder, const char* path, int flags, mode_t mode) { return shimOpenat(folder, path, flags, mode); }

ssize_t shimRead(int file, void* bytes, size_t count) {
    return counted("read", Touches::NoSpace, count,
                   [&](std::size_t size) { return ::syscall(SYS_read, file, bytes, size); });
}

ssize_t shimPread(int file, void* bytes, size_t count, off_t offset) {
    return counted("pread", Touches::NoSpace, count,
                   [&](std::size_t size) { return ::syscall(SYS_pread64, file, bytes, size, offset); });
}
ssize_t shimPread64(int file, void* bytes, size_t count, off_t offset) { return shimPread(file, bytes, count, offset); }

ssize_t shimWrite(int file, const void* bytes, size_t count) {
    const auto real = [&](std::size_t size) { return ::syscall(SYS_write, file, bytes, size); };
    return isStandard(file) ? real(count) : counted("write", Touches::Space, count, real);
}

ssize_t shimPwrite(int file, const void* bytes, size_t count, off_t offset) {
    return counted("pwrite", Touches::Space, count,
                   [&](std::size_t size) { return ::syscall(SYS_pwrite64, file, bytes, size, offset); });
}
ssize_t shimPwrite64(int file, const void* bytes, size_t count, off_t offset) {
    return shimPwrite(file, bytes, count, offset);
}

ssize_t shimCopy(int from, off_t* fromOffset, int to, off_t* toOffset, size_t count, unsigned flags) {
    return counted("copy_file_range", Touches::Space, count, [&](std::size_t size) {
        return ::syscall(SYS_copy_file_range, from, fromOffset, to, toOffset, size, flags);
    });
}

int shimFtruncate(int file, off_t size) {
    return static_cast<int>(
        counted("ftruncate", Touches::Space, 0, [&](std::size_t) { return ::syscall(SYS_ftruncate, file, size); }));
}
int shimFtruncate64(int file, off_t size) { return shimFtruncate(file, size); }

int shimFallocate(int file, int mode, off_t offset, off_t size) {
    return static_cast<int>(counted("fallocate", Touches::Space, 0,
                                    [&](std::size_t) { return ::syscall(SYS_fallocate, file, mode, offset, size); }));
}
int shimFallocate64(int file, int mode, off_t offset, off_t size) { return shimFallocate(file, mode, offset, size); }

int shimFsync(int file) {
    struct stat status {};
    const bool isFolder = ::fstat(file, &status) == 0 && S_ISDIR(status.st_mode);
    return static_cast<int>(counted(isFolder ? "fsync of a folder" : "fsync", Touches::Space, 0,
                                    [&](std::size_t) { return ::syscall(SYS_fsync, file); }));
}
int shimFdatasync(int file) {
    return static_cast<int>(
        counted("fdatasync", Touches::Space, 0, [&](std::size_t) { return ::syscall(SYS_fdatasync, file); }));
}

int shimRename(const char* from, const char* to) { return shimRenameat(AT_FDCWD, from, AT_FDCWD, to); }
int shimRenameat(int fromFolder, const char* from, int toFolder, const char* to) {
    return static_cast<int>(counted("rename", Touches::NoSpace, 0, [&](std::size_t) {
        return ::syscall(SYS_renameat2, fromFolder, from, toFolder, to, 0);
    }));
}

int shimUnlink(const char* path) { return shimUnlinkat(AT_FDCWD, path, 0); }
int shimUnlinkat(int folder, const char* path, int flags) {
    return static_cast<int>(counted("unlink", Touches::NoSpace, 0,
                                    [&](std::size_t) { return ::syscall(SYS_unlinkat, folder, path, flags); }));
}

int shimLink(const char* from, const char* to) {
    return static_cast<int>(counted("link", Touches::NoSpace, 0, [&](std::size_t) {
        return ::syscall(SYS_linkat, AT_FDCWD, from, AT_FDCWD, to, 0);
    }));
}

int shimFchmod(int file, mode_t mode) {
    return static_cast<int>(
        counted("fchmod", Touches::NoSpace, 0, [&](std::size_t) { return ::syscall(SYS_fchmod, file, mode); }));
}

int shimFchown(int file, uid_t owner, gid_t group) {
    return static_cast<int>(
        counted("fchown", Touches::NoSpace, 0, [&](std::size_t) { return ::syscall(SYS_fchown, file, owner, group); }));
}

int shimFsetxattr(int file, const char* name, const void* value, size_t size, int flags) {
    return static_cast<int>(counted("fsetxattr", Touches::Space, 0, [&](std::size_t) {
        return ::syscall(SYS_fsetxattr, file, name, value, size, flags);
    }));
}

int shimFremovexattr(int file, const char* name) {
    return static_cast<int>(counted("fremovexattr", Touches::NoSpace, 0,
                                    [&](std::size_t) { return ::syscall(SYS_fremovexattr, file, name); }));
}

int shimFutimens(int file, const timespec* times) {
    return static_cast<int>(counted("futimens", Touches::NoSpace, 0,
                                    [&](std::size_t) { return ::syscall(SYS_utimensat, file, nullptr, times, 0); }));
}

int shimClose(int file) {
    const auto real = [&](std::size_t) { return ::syscall(SYS_close, file); };
    if (file < 0 || file >= kWatched || !writing[static_cast<std::size_t>(file)]) return static_cast<int>(real(0));
    writing[static_cast<std::size_t>(file)] = false;
    const auto closed = [&](std::size_t) {
        real(0);
        return 0L;
    };
    const long result = counted("close", Touches::NoSpace, 0, closed);
    if (result != 0) real(0); // a failed close has closed the file all the same
    return static_cast<int>(result);
}
}
