// A frame as it is to stand in a tag, with everything settled that its bytes depend on.
#pragma once

#include "corvane/id3v230/FieldWriter.h"
#include "corvane/id3v230/FrameContent.h"
#include "corvane/id3v230/FrameEncoder.h"
#include "corvane/id3v230/SyncedLyrics.h"
#include "corvane/platform/Bytes.h"
#include "corvane/platform/EncodedText.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace corvane {

struct WantedFrame {
    ID3_FrameID frame = ID3_FrameID::ID3FID_NOFRAME;
    std::string_view letters; // of its ID
    TextEncoding encoding = TextEncoding::CodePage;
    std::string description;
    std::string language; // three characters, of which those at the end may be zeros
    std::string text;     // the value of all frames but those that follow
    std::uint32_t count = 0;
    SyncedLyrics lyrics;
    std::uint8_t contentType = 1;
    std::shared_ptr<Picture> picture;
    std::uint8_t pictureType = 3;
};

// Fails with an EncodingFailure when the value cannot stand in the frame.
WantedFrame wantedFrame(const FrameToWrite& frame);

// Stores the description, the language and the value in the fields. Fails when the frame has no field for the value;
// the user has been told then. A description or a language without a field is told to the user and left out.
void writeFields(FieldWriter& fields, const WantedFrame& frame);

// Whether a frame's data say all that is wanted.
bool says(Bytes payload, const WantedFrame& frame);

} // namespace corvane
