// What the system is told to show where: the table /proc/self/mountinfo (proc_pid_mountinfo(5)).
//
// The library reads this table itself: loading libmount and the libraries that it brings along costs half as long as
// the whole start of the command. The tests compare the results with libmount's.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

struct Mount {
    unsigned deviceMajor = 0; // of the mounted file system; 0 when no single block device holds it
    unsigned deviceMinor = 0;
    std::string target;     // the folder where it is shown
    std::string fileSystem; // its kind, "ext4"
    std::string source;     // a device, "host:/folder", or a name without meaning
};

// The mount of this number, as statx tells it of a file. Nothing when the table has none, or a malformed one.
std::optional<Mount> mountOfNumber(std::string_view table, std::uint64_t number);

// The mount that holds a path, which must be absolute and resolved: of those that are shown in a folder above it, or
// at it, the one with the longest name, and of equal ones the last. For systems that do not tell the number.
std::optional<Mount> mountOfPath(std::string_view table, std::string_view path);

// The table of this process; the empty text when it cannot be read.
std::string mountTable();

} // namespace corvane
