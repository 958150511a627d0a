#include "corvane/core/PathWithoutDrive.h"

#include "corvane/platform/Paths.h"
#include "corvane/xml/XmlLayout.h"

#include <algorithm>

namespace corvane {

std::string pathWithoutDrive(const std::string& fileName) {
    const std::string folder = FolderOfPath(absolutePath(fileName));
    return folder.substr(std::min(folder.size(), driveNameOf(fileName).size() + 1));
}

} // namespace corvane
