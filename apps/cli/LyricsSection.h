// The fields of a Lyrics3 tag.
#pragma once

#include "corvane/lyrics/LyricsTag.h"

#include "apps/cli/Section.h"

namespace corvane::cli {

Section lyricsSection(const LyricsTag& tag);

} // namespace corvane::cli
