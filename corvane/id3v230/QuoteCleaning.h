// Replaces the double quotes in the texts of a frame, and no other byte of it.
#pragma once

#include "corvane/id3v230/ID3_FrameID.h"
#include "corvane/platform/Bytes.h"

namespace corvane {

// The payload with an apostrophe for each double quote of its description and of its value, where they are strings.
// What precedes, separates and follows the strings stays, and so does their encoding, also of strings that are damaged.
ByteArray withoutQuotes(ID3_FrameID frame, Bytes payload);

} // namespace corvane
