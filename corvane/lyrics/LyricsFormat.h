// A Lyrics3 tag as bytes, without any file access. It ends the file, or stands directly before an ID3v1 record.
//
//   v1.00   "LYRICSBEGIN" lyrics "LYRICSEND"
//   v2.00   "LYRICSBEGIN" fields size "LYRICS200"   size: 6 digits, the bytes of "LYRICSBEGIN" and the fields
//   field   3 characters ID, 5 digits length, so many bytes of data
//
// (Lyrics3 v1.00 and v2.00, www.id3.org/Lyrics3 and www.id3.org/Lyrics3v2.) Reading begins at the last 15 bytes of the
// tag, its trailer: 9 bytes that tell the version, and in v2.00 the size before them.
#pragma once

#include "corvane/lyrics/ELyricsVersionConstants.h"
#include "corvane/platform/ByteReader.h"
#include "corvane/platform/Bytes.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace corvane {

inline constexpr std::size_t kLyricsTrailerSize = 15; // bytes
inline constexpr std::size_t kLyricsBeginSize = 11;   // bytes of "LYRICSBEGIN"
// Bytes that are read as the lyrics of a v1.00 tag. The format allows lyrics of 5100 bytes at most and does not tell
// how long they are.
inline constexpr std::int32_t kLyricsV100Size = 5100;

// The version that a trailer tells; unknown for other bytes, and when these are not 15.
ELyricsVersionConstants lyricsVersionOf(Bytes trailer);

// The bytes in front of the trailer that are the tag's body. Nothing when the version is unknown, or when a v2.00
// trailer has anything but digits there.
std::optional<std::int32_t> lyricsBodySize(Bytes trailer);

// A field of a v2.00 body. The views are good as long as the body.
struct LyricsFieldBytes {
    Bytes id;            // 3 bytes
    std::int32_t size{}; // the length that the field tells, 0 to 99999
    Bytes data;          // so many bytes, fewer when the body ends before
};

// Takes the next field off a body. A body that ends inside the length has the number of the digits that are there, and
// no data. Nothing when it ends before them, or when the length has anything but digits.
std::optional<LyricsFieldBytes> takeLyricsField(ByteReader& body);

} // namespace corvane
