// Whether the ID3v2 tag of a file can be changed or removed.
#pragma once

#include "corvane/id3v230/TagImage.h"

#include <memory>
#include <string>

namespace corvane::cli {

// The ID3v2 tag of a file as it stands there, also where there is none. Fails with a RuntimeFailure.
std::shared_ptr<TagImage> readTagImage(const std::string& path);

// Why this tag cannot be written anew, in one line; "" when nothing is in the way. Loads id3lib only where nothing else
// is.
std::string obstacleToSaving(const TagImage& image);

// Why this tag cannot be removed, in one line; "" when nothing is in the way.
std::string obstacleToRemoval(const TagImage& image);

} // namespace corvane::cli
