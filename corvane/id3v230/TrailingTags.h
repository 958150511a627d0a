// The tags at the end of an MP3 file, where they stand behind one another: Lyrics3 (LyricsFormat.h), MusicMatch, and an
// ID3v1 record as the last one.
//
// A MusicMatch tag, numbers little-endian (MusicMatch tag format description, www.id3.org):
//
//   bytes
//   256          header, begins with "18273645"; may be missing
//     4          image extension
//     4 + image  size of the image, image
//     4          unused
//   256          version info, begins with "18273645" 00 00
//   7868, 7936, 8004 or 8132   audio meta-data
//    20          five numbers: where the sections from the image extension on begin. They are counted from wherever the
//                tag stood when it was written, so that only their differences tell something.
//    48          footer: "Brava Software Inc." and 13 blanks, version as "3.05", 12 blanks
#pragma once

#include "corvane/id3v230/ID3_TagType.h"

#include <cstdint>
#include <optional>

namespace corvane {

class FileReader;

struct TrailingTag {
    std::uint64_t offset = 0;
    std::uint64_t size = 0; // bytes
};

struct FoundTrailingTag {
    std::optional<TrailingTag> tag;
    bool isDamaged = false; // the end of such a tag is there, but it does not lead to its beginning
};

// The last tag of this kind among those that end the file.
FoundTrailingTag findTrailingTag(FileReader& file, ID3_TagType kind);

} // namespace corvane
