// What a save makes of the records of a tag: frames that are carried over as they stand, and frames that are encoded.
#pragma once

#include "corvane/id3v230/FrameEncoder.h"
#include "corvane/id3v230/FrameSource.h"
#include "corvane/id3v230/ID3V230Frames.h"

#include <memory>
#include <optional>
#include <vector>

namespace corvane {

struct RecordToWrite {
    std::shared_ptr<ID3V230Frame> record;
    std::optional<FrameToWrite> changed; // to be encoded; nothing for a frame that is carried over
};

// Replaces the double quotes in the texts of all records but deleted ones by apostrophes.
void cleanQuotes(const ID3V230Frames& records);

// The records that will have a frame, in order. Left out are deleted ones, those of an empty value, and pictures that
// are none. A frame that says what it said when it was read is carried over byte for byte, whoever understands it.
std::vector<RecordToWrite> recordsToWrite(const ID3V230Frames& records);

} // namespace corvane
