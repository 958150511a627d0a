#include "apps/cli/SelftestFolder.h"

#include "corvane/platform/RuntimeFailure.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

namespace corvane::cli {

namespace {

constexpr const char* kScratchFile = "MP3Tst00.mp3";

std::string makeTemporaryFolder() {
    const char* parent = std::getenv("TMPDIR");
    std::string name = std::string(parent != nullptr && *parent != '\0' ? parent : "/tmp") + "/corvane.XXXXXX";
    if (::mkdtemp(name.data()) == nullptr) throw systemFailure(errno, "mkdtemp");
    return name;
}

} // namespace

SelftestFolder::SelftestFolder(const std::string& name)
    : name_(name.empty() ? makeTemporaryFolder() : name), temporary_(name.empty()) {
    if (::chdir(name_.c_str()) != 0) throw systemFailure(errno, "chdir");
}

SelftestFolder::~SelftestFolder() {
    if (!temporary_) return;
    ::unlink(kScratchFile);
    ::rmdir(name_.c_str());
}

bool SelftestFolder::hasScratchFile() const {
    struct stat status {};
    return ::lstat(kScratchFile, &status) == 0;
}

} // namespace corvane::cli
