// The state of a file in which somebody has read it, to tell later whether it is still the same. It follows the changes
// that the library makes itself: they leave what was read where it is.
#pragma once

#include "corvane/platform/FileIdentity.h"

#include <mutex>

namespace corvane {

// What a change of the library's own has made of a file.
struct FileChange {
    FileIdentity before;
    FileIdentity after;
};

// Objects that share what was read may be used by different threads, hence the lock.
class KnownFile {
public:
    void set(const FileIdentity& identity) {
        const std::lock_guard lock(guard_);
        identity_ = identity;
    }
    FileIdentity get() const {
        const std::lock_guard lock(guard_);
        return identity_;
    }
    // Takes the new state over when the change began with the known one; a file that somebody else has changed before
    // stays unknown.
    void follow(const FileChange& change) const {
        const std::lock_guard lock(guard_);
        if (identity_ == change.before) identity_ = change.after;
    }

private:
    mutable std::mutex guard_;
    mutable FileIdentity identity_;
};

} // namespace corvane
