// The few facts of a file that lists show, read with as few system calls as they take: one open, one fstat, one read of
// the first block, one of the last bytes, and one or two more where a tag is longer than a block. Pictures are not
// read.
#pragma once

#include "corvane/platform/Export.h"

#include <cstdint>
#include <string>
#include <vector>

namespace corvane {

// Texts are UTF-8: that of the ID3v2 tag when there is any, else that of the ID3v1 record, else "".
struct FileSummary {
    // As the tag writes them, the year and the track too ("3/12"); genres by their names.
    std::string title, artist, album, year, track, genre, comment;

    std::int32_t durationSeconds = -1; // -1 when unknown
    std::int32_t bitRateKbps = 0;      // -1 when a VBR file does not tell it; 0 without an MPEG frame
    std::int32_t frequencyHz = 0;      // 0 without an MPEG frame
    bool vbr = false;                  // whether a Xing header was found
    std::vector<std::string> tags;     // in file order, such as "ID3v2.3.0", "Lyrics3v2", "ID3v1.1"
};

// Reads the summary of one file. Fails with a RuntimeFailure when the file cannot be read or is no MP3 file.
CORVANE_EXPORT FileSummary summarize(const std::string& path);

} // namespace corvane
