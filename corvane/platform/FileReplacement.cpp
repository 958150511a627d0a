#include "corvane/platform/FileReplacement.h"

#include "corvane/platform/ByteCopy.h"
#include "corvane/platform/FileAttributes.h"
#include "corvane/platform/FileSizeLimitGuard.h"
#include "corvane/platform/OwnInode.h"
#include "corvane/platform/Paths.h"
#include "corvane/platform/RuntimeFailure.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace corvane {

namespace {

constexpr const char* kReplacementSource = "replace file";

Descriptor openedFolder(const std::string& folder) {
    Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // A folder that may be entered but not listed can still be worked in.
    if (!descriptor.isOpen() && errno == EACCES)
        descriptor = Descriptor(::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!descriptor.isOpen()) throw systemFailure(errno, "open");
    return descriptor;
}

// Opening for writing proves that the file may be changed, which replacing it by another would not ask for.
Descriptor openedFile(int folder, const std::string& name) {
    constexpr int kFlags = O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    Descriptor descriptor(::openat(folder, name.c_str(), kFlags));
    if (!descriptor.isOpen()) throw systemFailure(errno, "open");
    return descriptor;
}

struct stat statusOfFile(int file) {
    struct stat status {};
    if (::fstat(file, &status) != 0) throw systemFailure(errno, kReplacementSource);
    return status;
}

// 0, or the errno value of why not.
int setModificationTime(int file, const struct stat& status) {
    const timespec times[2] = {{0, UTIME_OMIT}, status.st_mtim};
    return ::futimens(file, times) == 0 ? 0 : errno;
}

RuntimeFailure changedFailure() {
    return {EBUSY, kReplacementSource, "The file was changed by another program meanwhile"};
}

} // namespace

FileReplacement::FileReplacement(const std::string& path, std::string temporaryExtension)
    : temporaryExtension_(std::move(temporaryExtension)) {
    const std::string resolved = resolvedPath(path);
    folderName_ = folderOf(resolved);
    fileName_ = fileNameOf(resolved);
    folder_ = openedFolder(folderName_);
    original_ = openedFile(folder_.number(), fileName_);
    status_ = statusOfFile(original_.number());
    if (!S_ISREG(status_.st_mode)) throw RuntimeFailure(EINVAL, "open", "Not a regular file");
    identity_ = identityOf(status_);
}

void FileReplacement::requireUnchanged(const FileIdentity& known) const {
    if (!hasSameContent(known, identity_)) throw changedFailure();
}

// In a folder with the sticky bit a file gives its place only to its owner or the folder's.
bool FileReplacement::isHeldBySticky() const {
    const struct stat folder = statusOfFile(folder_.number());
    const uid_t user = ::geteuid();
    const bool isOwner = user == 0 || user == folder.st_uid || user == status_.st_uid;
    return (folder.st_mode & S_ISVTX) != 0 && !isOwner && status_.st_nlink == 1;
}

void FileReplacement::requireReplaceable() const {
    const bool isWritable = ::faccessat(folder_.number(), ".", W_OK | X_OK, AT_EACCESS) == 0;
    const int problem = isWritable ? (isHeldBySticky() ? EPERM : 0) : errno;
    if (problem == 0) return;
    throw RuntimeFailure(problem, kReplacementSource,
                         "The folder of the file cannot be written: " + std::generic_category().message(problem));
}

void FileReplacement::begin() {
    if (temporary_) return;
    temporary_.emplace(folder_.number(), temporaryExtension_);
    temporaryName_ = folderName_ + temporary_->name();
}

void FileReplacement::copy(std::uint64_t offset, std::uint64_t count) {
    if (offset > originalSize() || count > originalSize() - offset)
        throw RuntimeFailure(EINVAL, kReplacementSource, "The range does not lie within the file");
    begin();
    const FileSizeLimitGuard guard;
    appendRange(original_.number(), offset, temporary_->descriptor(), size_, count);
    if (keptPrefix_ == size_ && offset == size_) keptPrefix_ += count;
    size_ += count;
}

void FileReplacement::append(Bytes bytes) {
    begin();
    const FileSizeLimitGuard guard;
    writeAt(temporary_->descriptor(), size_, bytes);
    size_ += bytes.size();
}

void FileReplacement::commit() {
    begin();
    const FileSizeLimitGuard guard;
    try {
        prepare();
        status_.st_nlink > 1 ? fillInPlace() : putInPlace();
    } catch (...) {
        temporary_.reset();
        throw;
    }
    temporary_.reset();
}

// The new content whole and on the medium, and the old one still as it was.
void FileReplacement::prepare() {
    if (statusOfFile(temporary_->descriptor()).st_size != static_cast<off_t>(size_))
        throw RuntimeFailure(EIO, kReplacementSource, "The new content is not complete");
    if (status_.st_nlink == 1) takeOverAttributes(original_.number(), status_, temporary_->descriptor());
    if (keepsModificationTime_) {
        if (const int problem = setModificationTime(temporary_->descriptor(), status_); problem != 0)
            throw systemFailure(problem, kReplacementSource);
    }
    temporary_->flush();
    requireSameState();
}

void FileReplacement::requireSameState() const {
    struct stat named {};
    if (::fstatat(folder_.number(), fileName_.c_str(), &named, AT_SYMLINK_NOFOLLOW) != 0)
        throw systemFailure(errno, kReplacementSource);
    if (identityOf(named) != identity_ || identityOf(statusOfFile(original_.number())) != identity_)
        throw changedFailure();
}

void FileReplacement::putInPlace() {
    const FileIdentity complete = identityOf(statusOfFile(temporary_->descriptor()));
    temporary_->replace(fileName_);
    // The step changes the time of the inode, so the state has to be asked for again.
    struct stat named {};
    const bool isTold = ::fstatat(folder_.number(), fileName_.c_str(), &named, AT_SYMLINK_NOFOLLOW) == 0;
    if (isTold && hasSameContent(identityOf(named), complete)) committed_ = identityOf(named);
    ::fsync(folder_.number()); // see commit: the file is the new one, whatever this says
}

void FileReplacement::fillInPlace() {
    fillOwnInode({folder_.number(), original_.number(), status_, *temporary_, size_, keptPrefix_});
    // Only the owner may do that, while others may well have been allowed to write.
    if (keepsModificationTime_) static_cast<void>(setModificationTime(original_.number(), status_));
    struct stat filled {};
    if (::fstat(original_.number(), &filled) == 0) committed_ = identityOf(filled);
}

} // namespace corvane
