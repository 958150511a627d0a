#include "corvane/platform/FileAttributes.h"

#include "corvane/platform/RuntimeFailure.h"

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

namespace {

constexpr const char* kAttributesSource = "take over attributes";
constexpr const char* kAccessList = "system.posix_acl_access";
constexpr std::array<std::string_view, 2> kVouchForContent{"security.evm", "security.ima"};

// Not permitted, or not supported by the file system.
constexpr std::array kLeftOut{EPERM, EACCES, ENOTSUP, ENOSYS};
bool isLeftOut(int problem) { return std::find(kLeftOut.begin(), kLeftOut.end(), problem) != kLeftOut.end(); }

void raiseUnlessLeftOut(int problem) {
    if (!isLeftOut(problem)) throw systemFailure(problem, kAttributesSource);
}

// Whether the file has the owner or group now; -1 leaves one of them alone.
bool tryOwner(int target, uid_t owner, gid_t group) {
    if (::fchown(target, owner, group) == 0) return true;
    const int problem = errno;
    if (problem != EINVAL) raiseUnlessLeftOut(problem); // EINVAL: an id that this user namespace does not know
    return false;
}

using Buffer = std::vector<char>;

// Runs a call that fills a buffer, with a buffer of the size that the call asks for. Nothing when there is nothing to
// be had, or not for us.
template <class Call>
std::optional<Buffer> filled(const Call& call) {
    for (;;) {
        const ssize_t needed = call(nullptr, 0);
        Buffer buffer(needed > 0 ? static_cast<std::size_t>(needed) : 0);
        const ssize_t size = needed <= 0 ? needed : call(buffer.data(), buffer.size());
        if (size >= 0) {
            buffer.resize(static_cast<std::size_t>(size));
            return buffer;
        }
        if (errno == ERANGE) continue; // it has grown between the two calls
        if (errno != ENODATA) raiseUnlessLeftOut(errno);
        return std::nullopt;
    }
}

std::vector<std::string> attributeNames(int file) {
    const auto list = filled([file](char* buffer, std::size_t size) { return ::flistxattr(file, buffer, size); });
    std::vector<std::string> names;
    if (!list) return names;
    for (std::string_view rest(list->data(), list->size()); !rest.empty();) {
        names.emplace_back(rest.substr(0, rest.find('\0')));
        rest.remove_prefix(std::min(rest.size(), names.back().size() + 1));
    }
    return names;
}

void takeOverAttribute(int source, int target, const std::string& name) {
    const auto value =
        filled([&](char* buffer, std::size_t size) { return ::fgetxattr(source, name.c_str(), buffer, size); });
    if (value && ::fsetxattr(target, name.c_str(), value->data(), value->size(), 0) != 0) raiseUnlessLeftOut(errno);
}

void takeOverExtendedAttributes(int source, int target) {
    bool hasAccessList = false;
    for (const std::string& name : attributeNames(source)) {
        if (std::find(kVouchForContent.begin(), kVouchForContent.end(), name) != kVouchForContent.end()) continue;
        hasAccessList = hasAccessList || name == kAccessList;
        takeOverAttribute(source, target, name);
    }
    // A new file may have inherited a list from its folder that lets others in who were not let in before.
    if (!hasAccessList && ::fremovexattr(target, kAccessList) != 0 && errno != ENODATA) raiseUnlessLeftOut(errno);
}

mode_t permissions(mode_t mode, bool hasOwner, bool hasGroup) {
    constexpr mode_t kAll = 07777;
    mode &= kAll;
    if (!hasOwner) mode &= kAll & ~mode_t{S_ISUID};
    if (hasGroup) return mode;
    // Another group stands in its place; it may do no more than everybody may.
    const mode_t group = mode & (mode & S_IRWXO) << 3 & S_IRWXG;
    return (mode & (kAll & ~mode_t{S_ISGID | S_IRWXG})) | group;
}

} // namespace

void takeOverAttributes(int source, const struct stat& status, int target) {
    struct stat own {};
    if (::fstat(target, &own) != 0) throw systemFailure(errno, kAttributesSource);
    constexpr auto kUnchangedOwner = static_cast<uid_t>(-1);
    const bool hasGroup = own.st_gid == status.st_gid || tryOwner(target, kUnchangedOwner, status.st_gid);
    const bool hasOwner = own.st_uid == status.st_uid || tryOwner(target, status.st_uid, static_cast<gid_t>(-1));
    takeOverExtendedAttributes(source, target);
    // After the owner, because changing it clears bits of the mode.
    if (::fchmod(target, permissions(status.st_mode, hasOwner, hasGroup)) != 0) raiseUnlessLeftOut(errno);
}

} // namespace corvane
