// Values that tags are to be given, whatever kind of tag a file has.
#pragma once

#include "corvane/platform/Picture.h"

#include "apps/cli/Id3v1Edit.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::cli {

// Those that are nothing stay. An empty text deletes.
struct TagValues {
    // Of every kind of tag. The track as "5" or "5/12", the genre as a number from 0 to 255 or any text.
    std::optional<std::string> title, artist, album, year, track, genre, comment;
    // Of ID3v2 alone.
    std::optional<std::string> composer, originalArtist, copyright, url, encodedBy, lyrics;
    std::optional<std::string> syncedLyrics;         // lines "[mm:ss.f] text"; the command has no option for them
    std::optional<std::shared_ptr<Picture>> picture; // the front cover; without a picture inside it is deleted
    // The picture that an editor shows, see shownPicture in FrontCover.h. The command has no option for it.
    std::optional<std::shared_ptr<Picture>> shownPicture;
};

// "7" or "7/12".
bool isTrack(std::string_view text);

// Whether a text is a genre number, or could be a genre's name.
bool isGenre(std::string_view text);

// What ID3v1 takes of the values.
struct Id3v1Part {
    Id3v1Values values;
    // A line for each value that has no number in ID3v1: the tag's own is deleted then, for it is not true any more.
    std::vector<std::string> lost;
};
Id3v1Part id3v1Part(const TagValues& values);

} // namespace corvane::cli
