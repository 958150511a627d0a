// What the data of an ID3v2.3 frame say (ID3v2.3.0 section 4): its fields, and the one of them that is its value.
#pragma once

#include "corvane/id3v230/FrameVariant.h"
#include "corvane/id3v230/ID3V230Field.h"
#include "corvane/id3v230/ID3_FrameID.h"
#include "corvane/id3v230/SyncedLyrics.h"
#include "corvane/platform/Bytes.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace corvane {

// What stands in front of the image of an attached picture, and where the image begins.
struct PictureHead {
    std::string mimeType;
    std::uint8_t type = 0;       // 3 is the front cover (ID3v2.3.0 section 4.15)
    std::size_t imageOffset = 0; // from the start of the payload, in bytes
};

struct FrameContent {
    // Text, without the zeros at its end and with U+0000 between several values; the count of PCNT, 2^31 - 1 for all
    // that is more; nothing for frames without such a value. The value of SYLT is its lines with their times
    // (SyncedLyrics.h), that of UFID its identifier (SpreadText.h), that of a W frame its address.
    FrameVariant value;
    std::string description;          // "" for frames without one
    std::string language;             // three letters, without zeros at their end; "" for frames without one
    PictureHead picture;              // APIC only
    SyncedLyrics lyrics;              // SYLT only
    std::uint8_t contentType = 0;     // SYLT only; 1 is lyrics (ID3v2.3.0 section 4.10)
    std::vector<ID3V230Field> fields; // those that the frame has, in ascending order
};

// Takes the payload of a frame: its data, inflated, without the bytes that format flags announce. Damaged data give
// what can be understood of them. Of an attached picture the bytes up to the image are enough; the size of its data
// field is that of the image bytes given.
FrameContent contentOfFrame(ID3_FrameID frame, Bytes payload);

} // namespace corvane
