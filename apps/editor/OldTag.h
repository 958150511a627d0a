// What a save takes out of a file and a step back would have to bring back: pictures, which steps do not hold unless
// the user has chosen them.
#pragma once

#include "apps/editor/FileTags.h"

#include <cstdint>
#include <memory>
#include <string>

namespace corvane::editor {

// Of an ID3v2 tag before a save.
struct OldTag {
    OptionalPicture cover = {}, picture = {}; // nothing where they stay, or cannot be kept
    bool isLostForGood = false;               // the tag will be removed, and no step can write one of its version
};

// Reads the old pictures of the files of one save.
class PictureKeeper {
public:
    // Bytes of pictures that are kept for one save. Those beyond it are not kept: a step back leaves the new ones.
    static constexpr std::uint64_t kLimit = std::uint64_t{256} * 1024 * 1024;

    // Reads what is about to be changed. Nothing when pictures and tag stay, or when there is nothing to read.
    OldTag oldTag(const std::string& path, const TagValues& inFile, const TagValues& wanted);

private:
    OptionalPicture kept(const std::shared_ptr<Picture>& picture);

    std::shared_ptr<Picture> last_; // the files of an album have the same one
    std::uint64_t size_ = 0;
};

} // namespace corvane::editor
