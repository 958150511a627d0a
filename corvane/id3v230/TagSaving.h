// Writing an ID3v2.3 tag into its file, without ever endangering the file.
#pragma once

#include "corvane/id3v230/ComposedTag.h"
#include "corvane/id3v230/Id3libError.h"
#include "corvane/id3v230/TagImage.h"

#include <memory>
#include <vector>

namespace corvane {

// Padding that a new tag gets where the old one has no room, and the most that an old one keeps; bytes.
inline constexpr std::uint64_t kNewPadding = 2048;
inline constexpr std::uint64_t kLargestPadding = std::uint64_t{64} * 1024;

struct SavedTag {
    TagChange change;
    // The tag as it stands in the file now, its frames those that were given, one by one; nullptr when nothing was
    // changed because of a failure. Where a removed tag was followed by another one, that one is not read: it must be
    // read before it is written over (TagImage::uncovered).
    std::shared_ptr<TagImage> image;
};

// Writes these frames as the tag of the file that `loaded` was read from. No frames: the tag is removed. The old tag's
// space is kept when the frames fit into it and do not leave more than kLargestPadding of it. Where the tag would be
// what it is already, nothing is written.
//
// safely: the file is replaced by a complete new one (FileReplacement.h). Otherwise, and only when the tag keeps its
// size, what differs is written in place with one system call.
//
// Nothing is changed when the loaded tag must not be written anew (TagImage::refusal), when the file is not the one
// that was loaded any more, and when anything fails; then the result tells why.
SavedTag saveTag(const TagImage& loaded, const std::vector<TagFrame>& frames, bool safely);

} // namespace corvane
