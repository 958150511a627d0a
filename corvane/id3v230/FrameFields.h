// Which fields the frames of ID3v2.3 have, as id3lib divides them (ID3v2.3.0 section 4), and which field is the value.
// Frames that nobody has divided, those without a known name among them, have one field of data.
#pragma once

#include "corvane/id3v230/ID3_FieldID.h"
#include "corvane/id3v230/ID3_FrameID.h"

#include <span>

namespace corvane {

struct FrameFields {
    std::span<const ID3_FieldID> inOrder;           // as they stand in the data
    ID3_FieldID value = ID3_FieldID::ID3FN_NOFIELD; // NOFIELD: the frame has no value
};

FrameFields fieldsOf(ID3_FrameID frame);

bool hasField(ID3_FrameID frame, ID3_FieldID field);

} // namespace corvane
