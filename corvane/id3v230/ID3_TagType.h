// Kinds of tags as bits, under the names that id3lib gives them.
#pragma once

#include <cstdint>

namespace corvane {

enum class ID3_TagType : std::int32_t {
    ID3TT_NONE = 0,        // no tag
    ID3TT_ID3V1 = 1,       // the record of 128 bytes
    ID3TT_ID3V2 = 2,       // the tag in front
    ID3TT_LYRICS3 = 4,     // Lyrics3 v1.00
    ID3TT_LYRICS3V2 = 8,   // Lyrics3 v2.00
    ID3TT_MUSICMATCH = 16, // the tag of MusicMatch
    ID3TT_LYRICS = 4,      // another name of ID3TT_LYRICS3
    ID3TT_ID3 = 3,         // ID3v1 and ID3v2
    ID3TT_ALL = -1,        // all of them
    ID3TT_PREPENDED = 2,   // what stands in front of the audio
    ID3TT_APPENDED = -3    // what stands behind it
};

} // namespace corvane
