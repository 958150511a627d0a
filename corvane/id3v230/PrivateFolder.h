// A new empty folder among the system's temporary files that only this user can look into. It goes with its object,
// whatever is in it.
#pragma once

#include <string>

namespace corvane {

class PrivateFolder {
public:
    // Fails with errno's number and text.
    PrivateFolder();
    ~PrivateFolder();
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;

    const std::string& path() const { return path_; }

private:
    std::string path_;
};

} // namespace corvane
