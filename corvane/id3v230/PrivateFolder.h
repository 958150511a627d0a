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
    // Makes a new empty file in the folder, once. Gives its path. Fails with errno's number and text.
    const std::string& makeFile();

private:
    std::string path_;
    std::string file_; // "" as long as there is none
};

} // namespace corvane
