// The MP3 files below some folders, handed out one by one in bytewise order of their whole paths.
//
// Only one folder is open at a time, and of each folder above it only the names are held: memory grows with the width
// of the tree, not with its size. Links to folders are not followed, so a walk ends.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::scan {

// Whether a path ends in ".mp3", in either case.
bool hasMp3Name(std::string_view path);

class FileWalk {
public:
    // Takes a folder that cannot be read, and why.
    using ReportUnreadable = std::function<void(std::string_view folder, std::string_view reason)>;

    // roots: folders, and files, which are handed out whatever their names are. A link given as root is followed.
    FileWalk(std::vector<std::string> roots, ReportUnreadable report);

    // The path of the next file, which begins with its root as given; nothing at the end.
    std::optional<std::string> next();

private:
    struct Folder {
        std::string path;               // with a separator at the end
        std::vector<std::string> names; // sorted; those of folders end with a separator
        std::size_t nextName = 0;
    };

    std::optional<std::string> nextRoot();
    std::optional<std::string> nextName();
    void enter(std::string path, bool followLink);

    std::vector<std::string> roots_;
    std::size_t nextRoot_ = 0;
    std::vector<Folder> open_; // from the root down to where the walk stands
    ReportUnreadable report_;
};

} // namespace corvane::scan
