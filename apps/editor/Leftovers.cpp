#include "apps/editor/Leftovers.h"

#include "corvane/id3v230/TagHead.h"
#include "corvane/platform/Descriptor.h"
#include "corvane/platform/FileReader.h"

#include <fcntl.h>
#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <iterator>
#include <optional>
#include <system_error>

namespace corvane::editor {

namespace {

constexpr std::uint64_t kLeastAudio = 1024; // bytes; fewer may be equal by chance
constexpr std::size_t kBlockSize = 65536;   // bytes

struct Folder {
    std::vector<std::string> candidates; // whose names are those of temporary files
    std::vector<std::string> songs;
    bool hasHardLinks = false;
};

bool endsInMp3(const std::string& name) {
    constexpr std::size_t kLength = 4;
    return name.size() > kLength && ::strcasecmp(name.c_str() + name.size() - kLength, ".mp3") == 0;
}

std::optional<std::vector<std::string>> pathsIn(const std::string& folder) {
    std::vector<std::string> paths;
    std::error_code problem;
    std::filesystem::directory_iterator entry(folder, problem);
    for (; !problem && entry != std::filesystem::directory_iterator(); entry.increment(problem)) {
        paths.push_back(entry->path().string());
    }
    if (problem) return std::nullopt;
    std::sort(paths.begin(), paths.end());
    return paths;
}

std::string nameIn(const std::string& path) { return path.substr(path.find_last_of('/') + 1); }

// Nothing when the folder cannot be read as a whole: what was not seen could have several names.
std::optional<Folder> look(const std::string& path) {
    const auto paths = pathsIn(path);
    if (!paths) return std::nullopt;
    Folder folder;
    std::copy_if(paths->begin(), paths->end(), std::back_inserter(folder.candidates),
                 [](const std::string& file) { return isLeftoverName(nameIn(file)); });
    if (folder.candidates.empty()) return folder;
    for (const std::string& file : *paths) {
        struct stat status {};
        if (::lstat(file.c_str(), &status) != 0) return std::nullopt;
        if (!S_ISREG(status.st_mode)) continue;
        if (status.st_nlink > 1) folder.hasHardLinks = true;
        if (endsInMp3(file)) folder.songs.push_back(file);
    }
    return folder;
}

bool isOlder(const timespec& time, std::chrono::seconds age) { return std::time(nullptr) - time.tv_sec >= age.count(); }

bool isOwnAndOld(const struct stat& status, std::chrono::seconds age) {
    return S_ISREG(status.st_mode) && status.st_nlink == 1 && status.st_uid == ::geteuid() && status.st_size > 0 &&
           isOlder(status.st_mtim, age) && isOlder(status.st_ctim, age);
}

// The system gives a lease for writing only while nobody else has the file open. Where it gives no answer, the file
// counts as open.
bool isOpenElsewhere(int file) {
    ::fcntl(file, F_SETSIG, SIGURG); // a program that opens it now would end this process otherwise
    if (::fcntl(file, F_SETLEASE, F_WRLCK) != 0) return true;
    ::fcntl(file, F_SETLEASE, F_UNLCK);
    return false;
}

// Where the bytes after an ID3v2 tag begin, or nothing when the tag is cut off or none that we write.
std::optional<std::uint64_t> startOfRest(FileReader& file) {
    const auto head = decodeTagHead(file.view(0, TagHead::kByteCount));
    if (!head) return 0;
    if (!head->bodySize || (head->flags & TagHead::kFooter) != 0 || head->tagSize() > file.size()) return std::nullopt;
    return head->tagSize();
}

bool areEqual(FileReader& one, std::uint64_t oneOffset, FileReader& other, std::uint64_t otherOffset,
              std::uint64_t count) {
    for (std::uint64_t done = 0; done < count;) {
        const auto next = static_cast<std::size_t>(std::min<std::uint64_t>(kBlockSize, count - done));
        const ByteArray bytes = one.read(oneOffset + done, next);
        const Bytes others = other.view(otherOffset + done, next);
        if (bytes.size() != next || !std::ranges::equal(bytes, others)) return false;
        done += next;
    }
    return true;
}

// Whether a file has everything of the leftover that follows its tag.
bool holdsTheRest(const std::string& song, FileReader& leftover, std::uint64_t start) {
    FileReader file(song);
    const auto songStart = startOfRest(file);
    const std::uint64_t count = leftover.size() - start;
    return songStart && file.size() - *songStart >= count && areEqual(leftover, start, file, *songStart, count);
}

bool isCovered(const std::string& path, const std::vector<std::string>& songs) {
    FileReader leftover(path);
    const auto start = startOfRest(leftover);
    if (!start || leftover.size() - *start < kLeastAudio) return false;
    const bool isHeld = std::any_of(songs.begin(), songs.end(), [&](const std::string& song) {
        try {
            return holdsTheRest(song, leftover, *start);
        } catch (const std::exception&) {
            return false; // it cannot be read
        }
    });
    return isHeld && leftover.isUnchanged();
}

// Nothing when it is no leftover; else open, and as it was looked at.
std::optional<struct stat> leftoverStatus(const std::string& path, const Folder& folder, std::chrono::seconds age) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat status {};
    if (folder.hasHardLinks || !file.isOpen() || ::fstat(file.number(), &status) != 0) return std::nullopt;
    if (!isOwnAndOld(status, age) || isOpenElsewhere(file.number())) return std::nullopt;
    try {
        if (isCovered(path, folder.songs)) return status;
    } catch (const std::exception&) {
        return std::nullopt; // it cannot be read
    }
    return std::nullopt;
}

bool isSame(const struct stat& one, const struct stat& other) { return identityOf(one) == identityOf(other); }

} // namespace

bool isLeftoverName(const std::string& name) {
    constexpr std::string_view kPrefix = "tmp", kDigits = "0123456789ABCDEF", kEnd = ".tmp";
    constexpr std::size_t kDigitCount = 16;
    if (name.size() != kPrefix.size() + kDigitCount + kEnd.size()) return false;
    const std::string_view digits = std::string_view(name).substr(kPrefix.size(), kDigitCount);
    return name.starts_with(kPrefix) && name.ends_with(kEnd) &&
           digits.find_first_not_of(kDigits) == std::string_view::npos;
}

std::vector<std::string> leftoversIn(const std::string& path, std::chrono::seconds age) {
    std::vector<std::string> found;
    const auto folder = look(path);
    if (!folder) return found;
    for (const std::string& candidate : folder->candidates) {
        if (leftoverStatus(candidate, *folder, age)) found.push_back(candidate);
    }
    return found;
}

std::string removeLeftover(const std::string& path, std::chrono::seconds age) {
    const std::filesystem::path whole(path);
    const auto folder = look(whole.parent_path().string());
    const bool hasName = isLeftoverName(nameIn(path));
    const auto status = folder && hasName ? leftoverStatus(path, *folder, age) : std::nullopt;
    struct stat now {};
    const bool isThere = ::lstat(path.c_str(), &now) == 0;
    if (!status || !isThere || !isSame(*status, now)) return "it is not what it was any more";
    return ::unlink(path.c_str()) == 0 ? std::string() : std::strerror(errno);
}

} // namespace corvane::editor
