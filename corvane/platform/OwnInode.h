// Changes a file with several names (hard links) so that all of them show the new content: it cannot be replaced by
// another file, it has to be filled itself. That is not done in one step; therefore everything needed for the way back
// and the way forth is on the medium before the first byte changes.
#pragma once

#include "corvane/platform/TemporaryFile.h"

#include <cstdint>

struct stat;

namespace corvane {

struct OwnInodeChange {
    int folder;                // of the file, where a backup may be put
    int original;              // the file, open for reading and writing
    const struct stat& status; // its status before the change
    TemporaryFile& complete;   // its whole new content, on the medium
    std::uint64_t newSize;     // bytes
    std::uint64_t keptPrefix;  // bytes at the start that stay as they are
};

// Fails with errno's number and text; the file then has its old content and modification time again. Should even that
// be impossible, the backup and the new content stay beside the file, and the failure's text names them.
void fillOwnInode(const OwnInodeChange& change);

} // namespace corvane
