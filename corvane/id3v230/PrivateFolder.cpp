#include "corvane/id3v230/PrivateFolder.h"

#include "corvane/platform/RuntimeFailure.h"
#include "corvane/platform/TemporaryNames.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace corvane {

PrivateFolder::PrivateFolder() : path_(temporaryFolder() + "corvane-XXXXXX") {
    if (::mkdtemp(path_.data()) == nullptr) throw systemFailure(errno, "create temporary folder");
}

PrivateFolder::~PrivateFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

} // namespace corvane
