// The facts of a tag that lists show, as the published formats mean them.
#pragma once

#include "corvane/id3v2/TagFrames.h"
#include "corvane/id3v2/WholeFrames.h"

#include <span>
#include <string>

namespace corvane {

// Texts are UTF-8, "" where the tag says nothing.
struct ReadableTag {
    std::string title, artist, album;
    std::string year;    // of TYER (TYE); else the leading year of TDRC, TDRL or TDOR, in this order
    std::string track;   // such as "3" or "3/12"
    std::string genre;   // by name, several joined by "; "
    std::string comment; // the first without a description, else the first that is none of a program's own notes
};

// Every fact is that of the first frame that says something. Fails with a RuntimeFailure when such a frame stands in
// the file (text above 64 KB) and can no longer be read.
ReadableTag readableTag(const TagFrames& frames);
// The same of a tag that cannot be loaded as a whole.
ReadableTag readableTag(std::span<const WholeFrame> frames);

} // namespace corvane
