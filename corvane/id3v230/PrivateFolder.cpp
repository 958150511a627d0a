#include "corvane/id3v230/PrivateFolder.h"

#include "corvane/platform/RuntimeFailure.h"
#include "corvane/platform/TemporaryNames.h"

#include <dirent.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

namespace corvane {

namespace {

// Without memory of its own: this cleans up where memory has run out.
void removeFilesIn(const char* folder) noexcept {
    DIR* const entries = ::opendir(folder);
    if (entries == nullptr) return;
    while (const dirent* entry = ::readdir(entries)) ::unlinkat(::dirfd(entries), entry->d_name, 0);
    ::closedir(entries);
}

} // namespace

PrivateFolder::PrivateFolder() : path_(temporaryFolder() + "corvane-XXXXXX") {
    if (::mkdtemp(path_.data()) == nullptr) throw systemFailure(errno, "create temporary folder");
}

PrivateFolder::~PrivateFolder() {
    if (!file_.empty()) ::unlink(file_.c_str());
    if (::rmdir(path_.c_str()) == 0) return;
    removeFilesIn(path_.c_str());
    ::rmdir(path_.c_str());
}

const std::string& PrivateFolder::makeFile() {
    file_ = createTemporaryFile(path_, "tmp");
    return file_;
}

} // namespace corvane
