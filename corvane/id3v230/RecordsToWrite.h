// What a save makes of the records of a tag: frames that are copied, and frames that are encoded.
#pragma once

#include "corvane/id3v230/FrameEncoder.h"
#include "corvane/id3v230/FrameSource.h"
#include "corvane/id3v230/ID3V230Frames.h"
#include "corvane/platform/Bytes.h"

#include <memory>
#include <optional>
#include <vector>

namespace corvane {

struct RecordToWrite {
    std::shared_ptr<ID3V230Frame> record;
    std::optional<FrameToWrite> changed; // to be encoded; nothing for a frame that is copied
    ByteArray made;                      // the copied frame, header and data, where its texts differ; else empty
};

// Replaces the double quotes in the texts of all records but deleted ones by apostrophes.
void cleanQuotes(const ID3V230Frames& records);

// Returns whether a record says what its frame said when it was read or written. False for a record without a frame.
bool isAsRead(const ID3V230Frame& record);

// Returns whether the value of a record was taken out, or a new record got none: a save writes no frame then.
bool isEmptied(const ID3V230Frame& record);

// Returns whether a save replaces double quotes in the file's frame. They stay in frames that have flags, a group or a
// compression, in the identifier of a file, and in descriptions of frames without a text.
bool losesQuotes(const ID3V230Frame& record);

// The records that will have a frame, in order. Deleted records are left out, and those whose value was taken out. An
// unchanged frame is copied byte for byte, even if no parser understands it; where its quotes alone are replaced, or
// the description of a picture or an object, all its other data are.
//
// A value, description or language that the record's frame has no field for is reported in a message box and left out.
// Fails with an EncodingFailure when a change cannot be written, such as another description of an encrypted frame.
std::vector<RecordToWrite> recordsToWrite(const ID3V230Frames& records);

} // namespace corvane
