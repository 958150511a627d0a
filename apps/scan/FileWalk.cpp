#include "apps/scan/FileWalk.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <utility>

namespace corvane::scan {

// ASCII only: a file name has no language.
bool hasMp3Name(std::string_view path) {
    constexpr std::string_view kExtension = ".mp3";
    if (path.size() < kExtension.size()) return false;
    path.remove_prefix(path.size() - kExtension.size());
    return std::equal(path.begin(), path.end(), kExtension.begin(), [](char given, char wanted) {
        return given == wanted || (given >= 'A' && given <= 'Z' && given + 32 == wanted);
    });
}

namespace {

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};
using OpenFolder = std::unique_ptr<DIR, CloseFolder>;

enum class Kind { Folder, Mp3, Other };

bool isDots(std::string_view name) { return name == "." || name == ".."; }

bool isFolder(int folder, const char* name, int flags) {
    struct stat status {};
    return ::fstatat(folder, name, &status, flags) == 0 && S_ISDIR(status.st_mode);
}

// A link with a file's name that leads nowhere is handed out, so that its failure is seen.
Kind kindOf(DIR* folder, const dirent& entry) {
    const bool isUnknown = entry.d_type == DT_UNKNOWN; // the file system does not tell
    if (entry.d_type == DT_DIR) return Kind::Folder;
    if (isUnknown && isFolder(::dirfd(folder), entry.d_name, AT_SYMLINK_NOFOLLOW)) return Kind::Folder;
    if (!hasMp3Name(entry.d_name)) return Kind::Other;
    const bool mayBeLink = entry.d_type == DT_LNK || isUnknown;
    return mayBeLink && isFolder(::dirfd(folder), entry.d_name, 0) ? Kind::Other : Kind::Mp3;
}

OpenFolder openFolder(const std::string& path, bool followLink) {
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | (followLink ? 0 : O_NOFOLLOW));
    if (descriptor < 0) return nullptr;
    OpenFolder folder(::fdopendir(descriptor));
    if (!folder) ::close(descriptor);
    return folder;
}

struct Listing {
    std::vector<std::string> names; // those of folders end with a separator
    int problem = 0;                // errno's number when the reading has ended early
};

Listing listingOf(DIR* folder) {
    Listing listing;
    for (;;) {
        errno = 0;
        const dirent* entry = ::readdir(folder);
        if (entry == nullptr) {
            listing.problem = errno;
            // With their separators "a.mp3" stands before what lies in "a/", as it does among whole paths.
            std::sort(listing.names.begin(), listing.names.end());
            return listing;
        }
        if (isDots(entry->d_name)) continue;
        const Kind kind = kindOf(folder, *entry);
        if (kind != Kind::Other) listing.names.emplace_back(entry->d_name);
        if (kind == Kind::Folder) listing.names.back().push_back('/');
    }
}

} // namespace

FileWalk::FileWalk(std::vector<std::string> roots, ReportUnreadable report)
    : roots_(std::move(roots)), report_(std::move(report)) {}

std::optional<std::string> FileWalk::next() {
    for (;;) {
        std::optional<std::string> path = open_.empty() ? nextRoot() : nextName();
        if (!path) {
            if (open_.empty()) return std::nullopt;
            open_.pop_back();
        } else if (path->ends_with('/')) {
            enter(*std::move(path), open_.empty());
        } else {
            return path;
        }
    }
}

std::optional<std::string> FileWalk::nextRoot() {
    if (nextRoot_ == roots_.size()) return std::nullopt;
    std::string root = roots_[nextRoot_++];
    if (isFolder(AT_FDCWD, root.c_str(), 0) && root.back() != '/') root.push_back('/');
    return root;
}

std::optional<std::string> FileWalk::nextName() {
    Folder& folder = open_.back();
    if (folder.nextName == folder.names.size()) return std::nullopt;
    return folder.path + folder.names[folder.nextName++];
}

void FileWalk::enter(std::string path, bool followLink) {
    std::string name = path;
    // With the separator, O_NOFOLLOW would look at what a link leads to.
    if (name.size() > 1) name.pop_back();
    const OpenFolder folder = openFolder(name, followLink);
    if (!folder) return report_(name, std::strerror(errno));
    Listing listing = listingOf(folder.get());
    if (listing.problem != 0) report_(name, std::strerror(listing.problem));
    open_.push_back({std::move(path), std::move(listing.names)});
}

} // namespace corvane::scan
