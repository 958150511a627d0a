// Changes of an ID3v1 record: what is to be set, and what becomes of it in the record's narrow fields.
#pragma once

#include "corvane/id3v1/ID3V1Tag.h"
#include "corvane/id3v1/Id3v1Record.h"

#include "apps/cli/TagOutcome.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvane::cli {

// Values to set; those that are nothing stay. An empty text deletes, as 0 does for the track and 255 for the genre.
struct Id3v1Values {
    std::optional<std::string> title, artist, album, year, comment;
    std::optional<std::uint8_t> track, genre;
};

// Sets the values. A tag without a kind becomes an ID3v1.1 one, as does a plain ID3v1 tag that is given a track number.
void applyValues(ID3V1Tag& tag, const Id3v1Values& values);

// The values of a tag object, which must come from a record or be new.
Id3v1Fields fieldsOf(const ID3V1Tag& tag);

// How the record of `tag` would differ from one with the values `before`.
TagOutcome outcomeOf(const Id3v1Fields& before, const ID3V1Tag& tag);

// "7" or "7/12" (of which the 7 is kept) as a track number, "" as 0; nothing for anything else or a number above 255.
std::optional<std::uint8_t> parseTrack(std::string_view text);

// "Rock"; "" for 255; "<Undefined (200)>" for a number without a name.
std::string genreText(std::uint8_t genre);

} // namespace corvane::cli
