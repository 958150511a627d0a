#include "corvane/platform/OwnInode.h"

#include "corvane/platform/ByteCopy.h"
#include "corvane/platform/RuntimeFailure.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>

namespace corvane {

namespace {

constexpr const char* kOwnInodeSource = "change file";

std::uint64_t oldSize(const OwnInodeChange& change) { return static_cast<std::uint64_t>(change.status.st_size); }

void cutTo(int file, std::uint64_t size) {
    while (::ftruncate(file, static_cast<off_t>(size)) != 0) {
        if (errno != EINTR) throw systemFailure(errno, kOwnInodeSource);
    }
}

void flush(int file) {
    while (::fsync(file) != 0) {
        if (errno != EINTR) throw systemFailure(errno, kOwnInodeSource);
    }
}

// Takes the space that the file will need, without changing its size, so that a full disk is found out early.
void reserveGrowth(const OwnInodeChange& change) {
    if (change.newSize <= oldSize(change)) return;
    const std::uint64_t growth = change.newSize - oldSize(change);
    while (::fallocate(change.original, FALLOC_FL_KEEP_SIZE, change.status.st_size, static_cast<off_t>(growth)) != 0) {
        if (errno == EINTR) continue;
        if (errno == EOPNOTSUPP || errno == ENOSYS) return;
        throw systemFailure(errno, kOwnInodeSource);
    }
}

// The old bytes that the change will overwrite or cut off, on the medium.
TemporaryFile backedUp(const OwnInodeChange& change) {
    TemporaryFile backup(change.folder);
    copyRange(change.original, change.keptPrefix, backup.descriptor(), 0, oldSize(change) - change.keptPrefix);
    backup.flush();
    ::fsync(change.folder); // for the names of both temporary files; not every file system can do it
    return backup;
}

// When the new content is a beginning of the old one, this is a single ftruncate.
void fill(const OwnInodeChange& change) {
    copyRange(change.complete.descriptor(), change.keptPrefix, change.original, change.keptPrefix,
              change.newSize - change.keptPrefix);
    if (change.newSize < oldSize(change)) cutTo(change.original, change.newSize);
    flush(change.original);
}

void restore(const OwnInodeChange& change, const TemporaryFile& backup) {
    copyRange(backup.descriptor(), 0, change.original, change.keptPrefix, oldSize(change) - change.keptPrefix);
    cutTo(change.original, oldSize(change));
    const timespec times[2] = {{0, UTIME_OMIT}, change.status.st_mtim};
    ::futimens(change.original, times);
    flush(change.original);
}

std::int32_t numberOf(const std::exception& failure) {
    const auto* known = dynamic_cast<const RuntimeFailure*>(&failure);
    return known != nullptr ? known->number() : ENOMEM;
}

// Neither the new nor the old content could be written: what a person needs to put the file together stays.
DamageFailure damageFailure(const OwnInodeChange& change, TemporaryFile& backup, const std::exception& cause,
                            const std::exception& second) {
    const std::string backupName = backup.keep();
    const std::string completeName = change.complete.keep();
    return {numberOf(cause), kOwnInodeSource,
            std::string(cause.what()) + "; the old content could not be brought back: " + second.what() +
                "; its bytes from offset " + std::to_string(change.keptPrefix) + " on are in '" + backupName +
                "', the new content is in '" + completeName + "'"};
}

} // namespace

void fillOwnInode(const OwnInodeChange& change) {
    TemporaryFile backup = backedUp(change);
    reserveGrowth(change);
    try {
        fill(change);
    } catch (const std::exception& cause) {
        try {
            restore(change, backup);
        } catch (const std::exception& second) {
            throw damageFailure(change, backup, cause, second);
        }
        throw;
    }
}

} // namespace corvane
