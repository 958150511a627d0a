// What the system knows about a file, asked for once.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <optional>
#include <string>

namespace corvane {

struct FileStatus {
    std::uint64_t size = 0; // bytes
    mode_t mode = 0;        // what kind of file it is, and its permissions
    dev_t device = 0;       // that holds it
    // Seconds since 1970; nothing where the file system does not keep them.
    std::optional<std::int64_t> created;
    std::optional<std::int64_t> accessed;
    std::int64_t modified = 0;
    std::optional<std::uint64_t> mountNumber; // of the table in MountInfo.h
};

// Links are followed. Fails with errno's number and text.
FileStatus fileStatusOf(const std::string& path);

} // namespace corvane
