#include "corvane/platform/Paths.h"

#include "corvane/platform/RuntimeFailure.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <memory>

namespace corvane {

namespace {

constexpr char kSeparator = '/';

struct Free {
    void operator()(char* text) const { std::free(text); }
};
using SystemText = std::unique_ptr<char, Free>;

std::string currentFolder() {
    const SystemText folder(::getcwd(nullptr, 0));
    if (folder == nullptr) throw systemFailure(errno, "current folder");
    return folder.get();
}

bool hasNul(std::string_view path) { return path.find('\0') != std::string_view::npos; }

} // namespace

std::string folderOf(std::string_view path) { return std::string(path.substr(0, path.rfind(kSeparator) + 1)); }

std::string fileNameOf(std::string_view path) { return std::string(path.substr(path.rfind(kSeparator) + 1)); }

std::string extensionOf(std::string_view path) {
    const std::string name = fileNameOf(path);
    const auto dot = name.rfind('.');
    return dot == std::string::npos ? "" : name.substr(dot + 1);
}

std::string driveNameOf(std::string_view) { return {}; }

std::string absolutePath(std::string_view path) {
    if (path.empty()) return {};
    std::string absolute;
    std::string whole;
    if (path.front() != kSeparator) whole = currentFolder() + kSeparator;
    whole += path;
    for (std::string_view rest = whole; !rest.empty();) {
        rest.remove_prefix(1); // the separator
        const std::string_view component = rest.substr(0, rest.find(kSeparator));
        rest.remove_prefix(component.size());
        if (component != "." && !component.empty()) absolute.append(1, kSeparator).append(component);
    }
    const bool endsInFolder = whole.back() == kSeparator || whole.ends_with("/.");
    return endsInFolder ? absolute + kSeparator : absolute;
}

std::string lastingPath(const std::string& path) { return path.starts_with(kSeparator) ? path : absolutePath(path); }

std::string resolvedPath(const std::string& path) {
    const SystemText resolved(::realpath(systemPath(path), nullptr));
    if (resolved == nullptr) throw systemFailure(errno, "open");
    return resolved.get();
}

const char* systemPath(const std::string& path) {
    if (hasNul(path)) throw systemFailure(EINVAL, "open");
    return path.c_str();
}

bool fileExists(const std::string& path) {
    struct stat status {};
    return !hasNul(path) && ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

bool folderExists(const std::string& path) {
    struct stat status {};
    return !hasNul(path) && ::stat(path.empty() ? "." : path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

} // namespace corvane
