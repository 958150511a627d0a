// What a frame says to a person, by the rules of the published formats.
//
// The frame objects decode text as their hosts have always known it (FrameText.h), which for some encodings is not what
// the writer meant. Programs that show tags to people read them here.
#pragma once

#include "corvane/id3v2/FrameId.h"
#include "corvane/id3v2/TagFrames.h"
#include "corvane/platform/Bytes.h"

#include <string>

namespace corvane {

// Texts are UTF-8 without trailing zeros. A frame that has no such part has "" there.
struct ReadableFrame {
    std::string language = {};    // three letters, as the frame has them
    std::string description = {}; // what tells it from other frames of its ID; of POPM the user, of UFID the owner
    std::string text = {}; // several values joined by "; "; lines of SYLT joined by line feeds; genres by their names
};

// Whether frames of this ID hold anything that can be read: text, addresses, comments, lyrics, counters, ratings and
// identifiers of all three versions.
bool isReadable(FrameId id);

// The readable parts of a payload; all empty when the frame holds none or its encoding has no meaning.
ReadableFrame readableFrame(FrameId id, Bytes payload);
// Its text alone.
std::string readableText(FrameId id, Bytes payload);

// The same of a frame of a tag; all empty for an encrypted one and for one that is too large to inflate. Reads the
// payload from the file where it was left there, and only when there is something to read in it; fails with a
// RuntimeFailure when it cannot.
ReadableFrame readableFrame(const TagFrames& frames, const FrameRecord& frame);

} // namespace corvane
