// The frames of an ID3v2 tag.
#pragma once

#include "corvane/id3v2/ID3V2Tag.h"

#include "apps/cli/Section.h"

#include <string>

namespace corvane::cli {

// Every frame of the tag of the file `path`, also a second one of the same ID. A tag that cannot be read, or not to its
// end, says so, and so does one that cannot be changed. Fails with a RuntimeFailure when the file cannot be read.
Section id3v2Section(ID3V2Tag& tag, const std::string& path);

} // namespace corvane::cli
