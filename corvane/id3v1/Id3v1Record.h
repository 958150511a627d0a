// The ID3v1 record: the last 128 bytes of a file, without any file access.
//
//   offset  size
//        0     3  "TAG"
//        3    30  title
//       33    30  artist
//       63    30  album
//       93     4  year
//       97    30  comment, in ID3v1
//       97    28  comment, in ID3v1.1, followed by
//      125     1  0, and
//      126     1  track number, 1 to 255
//      127     1  genre number, see GenreTable.h
//
// Texts are Windows-1252, one byte a character, and end at the first byte 0 or at the end of their field. ID3v1.1 is
// told by byte 125 = 0 with byte 126 not 0, so a record with track 0 is a plain ID3v1 one (ID3v1 has no standard
// document; this is the layout of www.id3.org/ID3v1).
#pragma once

#include "corvane/id3v1/EID3TagConstants.h"
#include "corvane/platform/Bytes.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

class ID3V1Tag;

inline constexpr std::size_t kId3v1RecordSize = 128; // bytes
inline constexpr std::string_view kId3v1Marker = "TAG";
inline constexpr std::uint8_t kNoGenre = 255;

struct Id3v1Fields {
    std::string title, artist, album, year, comment; // UTF-8, without blanks at either end
    std::uint8_t track = 0;                          // 0 in ID3v1
    std::uint8_t genre = kNoGenre;
    EID3TagConstants tagType = EID3TagConstants::ID3Unknown;
};

// The fields of a record; nothing when these are not 128 bytes that begin with "TAG".
std::optional<Id3v1Fields> decodeRecord(Bytes record);

// Gives a tag object all the values of a record.
void assignFields(ID3V1Tag& tag, Id3v1Fields fields);

struct EncodedRecord {
    std::array<std::uint8_t, kId3v1RecordSize> bytes{};
    std::size_t replacedCount = 0; // characters that Windows-1252 lacks, written as "?"
    bool textsCut = false;         // a text had more characters than its field
};

// The record of a tag: plain ID3v1 when its TagType says so, else ID3v1.1. Texts are cut to the width of their field,
// characters behind the cut are not counted as replaced. Fails with an overflow when the Track of an ID3v1.1 record
// lies outside 0 to 255: it must not be written as another number.
EncodedRecord encodeRecord(const ID3V1Tag& tag);

} // namespace corvane
