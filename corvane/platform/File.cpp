#include "corvane/platform/File.h"

#include "corvane/platform/FileStatus.h"
#include "corvane/platform/FileTypeName.h"
#include "corvane/platform/LocalTime.h"
#include "corvane/platform/Paths.h"
#include "corvane/platform/RuntimeFailure.h"

#include <sys/stat.h>

#include <cerrno>

namespace corvane {

namespace {

std::string dateOf(std::optional<std::int64_t> secondsSince1970) {
    return secondsSince1970 ? documentDate(localTimeOf(*secondsSince1970)) : std::string();
}

// What the library does not open has no entry as a file either.
void requireRegularFile(mode_t mode) {
    constexpr const char* kSource = "file";
    if (S_ISDIR(mode)) throw systemFailure(EISDIR, kSource);
    if (!S_ISREG(mode)) throw RuntimeFailure(EINVAL, kSource, "Not a regular file");
}

} // namespace

std::shared_ptr<File> File::ofPath(const std::string& path) {
    const FileStatus status = fileStatusOf(path);
    requireRegularFile(status.mode);
    std::shared_ptr<File> file(new File);
    file->dateCreated_ = dateOf(status.created);
    file->dateLastAccessed_ = dateOf(status.accessed);
    file->dateLastModified_ = dateOf(status.modified);
    file->name_ = fileNameOf(path);
    file->path_ = absolutePath(path);
    file->typeName_ = fileTypeNameOf(extensionOf(path));
    file->size_ = status.size;
    return file;
}

} // namespace corvane
