// Which file this is and in what state: enough to tell later that it is the same file, unchanged.
#pragma once

#include <cstdint>

struct stat;

namespace corvane {

struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::uint64_t size = 0;               // bytes
    std::int64_t modifiedNanoseconds = 0; // since 1970
    std::int64_t changedNanoseconds = 0;  // of the inode, since 1970

    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

// Whether it is the same file with the same content; what else is changed of it, its permissions for one, does not
// matter.
constexpr bool hasSameContent(const FileIdentity& one, const FileIdentity& other) {
    return one.device == other.device && one.inode == other.inode && one.size == other.size &&
           one.modifiedNanoseconds == other.modifiedNanoseconds;
}

FileIdentity identityOf(const struct stat& status);

} // namespace corvane
