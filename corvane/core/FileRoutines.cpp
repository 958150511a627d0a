#include "corvane/core/FileRoutines.h"

#include "corvane/platform/ByteCopy.h"
#include "corvane/platform/FileReplacement.h"
#include "corvane/platform/FileSizeLimitGuard.h"
#include "corvane/platform/Paths.h"
#include "corvane/platform/RuntimeFailure.h"
#include "corvane/platform/TemporaryNames.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <system_error>
#include <utility>

namespace corvane {

namespace {

constexpr const char* kCopySource = "FileCopy";
constexpr const char* kTemporaryExtension = "tmp";
constexpr const char* kCopyExtension = "mp3"; // of the shortened copy of a file

RuntimeFailure objectFailure(std::string source, const std::string& description) {
    return {FailureNumber::ObjectDefined, std::move(source), description};
}

RuntimeFailure noTemporaryFile(const std::string& folder) {
    return objectFailure("FileRoutines::CreateTempFileName()",
                         "API Call 'GetTmpFileName' failed. Path = '" + folder + "'.");
}

RuntimeFailure noSource() { return objectFailure("File check", "Source file does not exist."); }

// Size of a copy without its last bytes.
std::uint64_t sizeWithout(std::uint64_t size, std::int32_t bytesToCut) {
    if (bytesToCut <= 0) return size;
    const auto cut = static_cast<std::uint64_t>(bytesToCut);
    if (cut > size) throw objectFailure(kCopySource, "More bytes are to be cut than the file has.");
    return size - cut;
}

// A file that is copied, with the size that it had when it was opened.
class CopySource {
public:
    explicit CopySource(const std::string& path)
        : file_(::open(systemPath(path), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC)) {
        if (!file_.isOpen()) throw systemFailure(errno, kCopySource);
        struct stat status {};
        if (::fstat(file_.number(), &status) != 0) throw systemFailure(errno, kCopySource);
        size_ = static_cast<std::uint64_t>(status.st_size);
        // Who may read the copy is who may read the source; the process's mask applies.
        mode_ = (status.st_mode & 0777) | S_IWUSR;
    }

    std::uint64_t size() const { return size_; }
    mode_t mode() const { return mode_; }
    void copyTo(int target, std::uint64_t offset, std::uint64_t count) const {
        copyRange(file_.number(), 0, target, offset, count);
        if (::fsync(target) != 0) throw systemFailure(errno, kCopySource);
    }

private:
    Descriptor file_;
    std::uint64_t size_ = 0;
    mode_t mode_ = 0;
};

void closeOrRaise(Descriptor& file) {
    if (const int problem = file.close(); problem != 0) throw systemFailure(problem, kCopySource);
}

// The copy takes the destination's name in one step when it is whole.
void copyOver(const CopySource& source, std::uint64_t count, const std::string& destination) {
    const std::string folder = folderOf(destination);
    const Descriptor opened(::open(folder.empty() ? "." : systemPath(folder), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!opened.isOpen()) throw systemFailure(errno, kCopySource);
    TemporaryFile copy(opened.number(), kTemporaryExtension, source.mode());
    source.copyTo(copy.descriptor(), 0, count);
    copy.replace(fileNameOf(destination));
}

void copyToNew(const CopySource& source, std::uint64_t count, const std::string& destination) {
    constexpr int kFlags = O_RDWR | O_CREAT | O_EXCL | O_NOCTTY | O_CLOEXEC;
    Descriptor file(::open(systemPath(destination), kFlags, source.mode()));
    if (!file.isOpen()) throw systemFailure(errno, kCopySource);
    try {
        source.copyTo(file.number(), 0, count);
        closeOrRaise(file);
    } catch (...) {
        ::unlink(destination.c_str());
        throw;
    }
}

void copyBehind(const CopySource& source, std::uint64_t count, const std::string& destination) {
    const Descriptor file(::open(systemPath(destination), O_RDWR | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat before {};
    if (!file.isOpen() || ::fstat(file.number(), &before) != 0) throw systemFailure(errno, kCopySource);
    try {
        source.copyTo(file.number(), static_cast<std::uint64_t>(before.st_size), count);
    } catch (const RuntimeFailure& failure) {
        if (::ftruncate(file.number(), before.st_size) == 0) throw;
        throw RuntimeFailure(failure.number(), failure.source(),
                             failure.description() + "; what was appended could not be taken back: " +
                                 std::generic_category().message(errno));
    }
    // The bytes are on the medium: closing the file can report no loss any more.
}

RuntimeFailure copyFailure(const std::string& temporary, const RuntimeFailure& cause) {
    return objectFailure(kCopySource, temporary + " - " + cause.description());
}

// The name of a temporary file that was made in the folder and is gone again, for the failure of a copy that does not
// begin. Fails where none can be made, which is the failure that counts then.
std::string nameOfTemporaryFileIn(const std::string& folder) {
    try {
        NewFile file = openNewFile(AT_FDCWD, folder, "tmp", kCopyExtension, 0600);
        ::unlink(file.path.c_str());
        return file.path;
    } catch (const RuntimeFailure&) {
        throw noTemporaryFile(folder);
    }
}

bool isWritable(const std::string& path) {
    struct stat status {};
    return ::lstat(systemPath(path), &status) == 0 && (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) != 0;
}

} // namespace

std::string FileRoutines::CreateTempFile(const std::string& OutputDirectory, const std::string& Extension) {
    constexpr int kAttempts = 100;
    try {
        for (int attempt = 0; attempt < kAttempts; ++attempt) {
            const std::string temporary = createTemporaryFile(OutputDirectory, "tmp");
            std::string twin = ChangeExtension(temporary, Extension);
            if (twin == temporary) return twin;
            constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC | O_NOCTTY;
            if (Descriptor(::open(systemPath(twin), kFlags, 0600)).isOpen()) return twin;
            // Somebody else's file must not be taken for ours: another name.
            const int problem = errno;
            ::unlink(temporary.c_str());
            if (problem != EEXIST) break;
        }
    } catch (const RuntimeFailure&) {
        throw noTemporaryFile(OutputDirectory);
    }
    throw noTemporaryFile(OutputDirectory);
}

void FileRoutines::DeleteTempFile(const std::string& TempFileName, bool Force) {
    const std::string name = extensionOf(TempFileName) == kTemporaryExtension
                                 ? TempFileName
                                 : ChangeExtension(TempFileName, kTemporaryExtension);
    if (name.find('\0') != std::string::npos) return;
    if (Force || isWritable(name)) ::unlink(name.c_str());
}

std::string FileRoutines::ChangeExtension(const std::string& FileName, const std::string& NewExtension) {
    return FileName.substr(0, FileName.size() - extensionOf(FileName).size()) + NewExtension;
}

void FileRoutines::FileCopy(const std::string& FileSource, const std::string& FileDestination, bool OverwriteFiles,
                            std::int32_t numBytesToCutFromTheEnd, bool AppendData) {
    const bool exists = fileExists(FileDestination);
    if (exists && !OverwriteFiles && !AppendData) throw objectFailure(kCopySource, "Destination file already exists.");
    if (!fileExists(FileSource)) throw noSource();
    const FileSizeLimitGuard guard;
    const CopySource source(FileSource);
    const std::uint64_t count = sizeWithout(source.size(), numBytesToCutFromTheEnd);
    if (!exists) {
        copyToNew(source, count, FileDestination);
    } else if (OverwriteFiles) {
        copyOver(source, count, FileDestination);
    } else {
        copyBehind(source, count, FileDestination);
    }
}

void FileRoutines::CutFileBytes(const std::string& File, std::int32_t NumBytesToCut, const FileIdentity* known) {
    const std::string folder = folderOf(File);
    std::optional<FileReplacement> replacement;
    try {
        if (!fileExists(File)) throw noSource();
        replacement.emplace(File, kCopyExtension);
        if (known != nullptr) replacement->requireUnchanged(*known);
    } catch (const RuntimeFailure& failure) {
        throw copyFailure(nameOfTemporaryFileIn(folder), failure);
    }
    try {
        replacement->begin();
    } catch (const RuntimeFailure&) {
        throw noTemporaryFile(folder);
    }
    try {
        replacement->copy(0, sizeWithout(replacement->originalSize(), NumBytesToCut));
        replacement->commit();
    } catch (const RuntimeFailure& failure) {
        throw copyFailure(replacement->temporaryName(), failure);
    }
}

} // namespace corvane
