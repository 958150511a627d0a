// A folder of a test's own, gone with the test.
#pragma once

#include "corvane/platform/Bytes.h"

#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <vector>

namespace corvane::test {

class ScratchFolder {
public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    std::string path() const { return path_.string(); }
    std::string path(const std::string& name) const { return (path_ / name).string(); }
    // Writes a file into the folder and gives its path.
    std::string write(const std::string& name, Bytes bytes) const;
    // Names of what the folder holds, sorted.
    std::vector<std::string> names() const;

private:
    std::filesystem::path path_;
};

// Names of what a folder holds, sorted.
std::vector<std::string> namesIn(const std::string& folder);

// A file's whole content; throws when it cannot be read.
ByteArray contentOf(const std::string& path);

// A file's status, links not followed; throws when there is none.
struct stat statusOf(const std::string& path);

} // namespace corvane::test
