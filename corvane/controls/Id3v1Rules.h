// What the ID3v1 editor knows about the record that will be written. No window is needed for any of it.
#pragma once

#include "corvane/id3v1/ID3V1Tag.h"

#include <QString>
#include <cstdint>

namespace corvane::controls {

// Characters that a record stores.
inline constexpr int kTextLimit = 30; // title, artist, album
inline constexpr int kYearLimit = 4;
constexpr int commentLimit(std::int16_t track) { return track == 0 ? 30 : 28; } // ID3v1.1 needs two for the track

// The record that keeps what the fields hold: only ID3v1.1 has a track, only plain ID3v1 the whole comment.
constexpr EID3TagConstants tagTypeFor(std::int16_t track) {
    return track == 0 ? EID3TagConstants::ID3v1 : EID3TagConstants::ID3V11;
}

// The track number that a text tells; 0 when it tells none or one beyond 16 bits.
inline std::int16_t trackOf(const QString& text) { return text.trimmed().toShort(); }

// Whether a file has this tag, or a host has put something into it for a file that has none yet.
inline bool holdsData(const ID3V1Tag& tag) {
    return tag.TagType() != EID3TagConstants::ID3Unknown || !tag.Title().empty() || !tag.Artist().empty() ||
           !tag.Album().empty() || !tag.Year().empty() || !tag.Comment().empty() || tag.Track() != 0 ||
           tag.Genre() != 255;
}

} // namespace corvane::controls
