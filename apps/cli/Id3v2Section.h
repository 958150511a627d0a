// The frames of an ID3v2 tag.
#pragma once

#include "corvane/id3v2/ID3V2Tag.h"

#include "apps/cli/Section.h"

namespace corvane::cli {

// Every frame, also a second one of the same ID; a tag that cannot be read says so.
Section id3v2Section(ID3V2Tag& tag);

} // namespace corvane::cli
