// Encoding ID3v2.3 frames: the way from values to the bytes that stand in a tag.
//
// Plain texts are put together here, and texts of several values, of which id3lib would keep the first. Everything else
// is made by id3lib, which gets an empty file of its own to write to; it never sees a file of a user, nor bytes that
// the library did not make.
//
// Text is written in ISO-8859-1 where that loses nothing, else as UTF-16. In the addresses of W frames, which have one
// byte a character, other characters are escaped with "%".
#pragma once

#include "corvane/id3v230/FrameVariant.h"
#include "corvane/id3v230/ID3_FrameID.h"
#include "corvane/id3v230/SyncedLyrics.h"
#include "corvane/platform/Bytes.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace corvane {

class Picture;

struct FrameToWrite {
    ID3_FrameID frame = ID3_FrameID::ID3FID_NOFRAME;
    FrameVariant value; // never an empty text: such frames are left out by the caller
    // A description or language of a frame that has no field for it is told to the user in a message box and left out.
    std::string description;
    // Where the frame has one: three characters, "" for "eng"; any other text is written as "XXX". Zeros at the end of
    // the three are written as they are, for frames that were found like that.
    std::string language;
    std::shared_ptr<Picture> picture; // APIC only
    std::uint8_t pictureType = 3;     // APIC only
    SyncedLyrics lyricsBefore;        // SYLT only: what the frame held, whose times are kept where the lines stay
    std::uint8_t contentType = 1;     // SYLT only
};

// The frames, each with its header, in the order given. A failure is an EncodingFailure, whose number is one of
// id3lib's error table, and nothing has been made then:
//
//   3  the value cannot stand in the frame: none at all, lyrics whose times cannot be read back, a count that is none,
//   a
//      zero where the frame has no place for several values, more than a tag can hold
//   4  there is no temporary file, or what id3lib has made in it is missing or wrong, as on a full disk
//   6  there is no such frame
//   7  the frame has no field for a value (PRIV, GEOB, ...); the user has been told in a message box
//  11  id3lib is not there
std::vector<ByteArray> encodedFrames(std::span<const FrameToWrite> frames);

} // namespace corvane
