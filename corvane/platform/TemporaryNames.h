// The system's temporary folder, and new files in it or elsewhere whose names nobody can guess.
//
// Such a file is created exclusively, so that a file or link that somebody has put there is never opened, and for its
// owner only.
#pragma once

#include "corvane/platform/Descriptor.h"

#include <sys/types.h>

#include <string>
#include <string_view>

namespace corvane {

// The system's folder for temporary files, with its trailing separator.
std::string temporaryFolder();

// The prefix, sixteen random hexadecimal digits, "." and the extension. A prefix shorter than three characters is
// padded to three with "_".
std::string unguessableName(std::string_view prefix, std::string_view extension);

// Creates an empty file with the extension "tmp" in a folder ("" is the current one) and gives its path. Fails with
// errno's number and text.
std::string createTemporaryFile(const std::string& folder, std::string_view prefix);

// The same, left open for reading and writing. folderDescriptor: of the folder that a relative path `folder` starts at.
// mode: permission bits before the process's mask.
struct NewFile {
    std::string path;
    Descriptor descriptor;
};
NewFile openNewFile(int folderDescriptor, const std::string& folder, std::string_view prefix,
                    std::string_view extension, mode_t mode);

} // namespace corvane
