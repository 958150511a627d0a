// Encoding ID3v2.3 frames: the way from values to the bytes that stand in a tag.
//
// Plain texts are put together here. Everything else is made by id3lib, which gets an empty file of its own to write
// to; it never sees a file of a user, nor bytes that the library did not make.
#pragma once

#include "corvane/id3v230/FrameVariant.h"
#include "corvane/id3v230/ID3_FrameID.h"
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
    std::string description;
    std::string language;             // three letters; "" lets the encoder choose where the frame has a language
    std::shared_ptr<Picture> picture; // APIC only
    std::uint8_t pictureType = 3;     // APIC only
};

// The frames, each with its header, in the order given. Fails with a RuntimeFailure whose number is that of id3lib's
// error table, when a value has no place in its frame or the encoding fails; nothing has been changed then.
std::vector<ByteArray> encodedFrames(std::span<const FrameToWrite> frames);

} // namespace corvane
