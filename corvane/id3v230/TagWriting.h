// The ways in which a tag gets into its file, each for a tag that may be written and a file that is still the one that
// was loaded; otherwise, and when anything goes wrong, they fail and the file is what it was.
#pragma once

#include "corvane/platform/FileIdentity.h"

#include <optional>

namespace corvane {

class ComposedTag;
class TagImage;

// Replaces the file by one with the new tag. `image` is that of the new tag; what has been written is compared with it
// before it takes the file's name. The result is the file's state then.
FileIdentity replaceTag(const TagImage& loaded, const ComposedTag& tag, const TagImage& image);

// Replaces the file by one without the tag. The result is the file's state then.
FileIdentity removeTag(const TagImage& loaded);

// Writes what differs over the old tag, which has the same size. The result is the file's state then; nothing, with
// nothing written, when the old padding is not empty.
std::optional<FileIdentity> writeInPlace(const TagImage& loaded, const ComposedTag& tag);

} // namespace corvane
