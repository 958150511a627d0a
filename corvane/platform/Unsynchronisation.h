// Undoing ID3v2's unsynchronisation (ID3v2.3.0 section 5): a 00 was put behind an FF wherever the two bytes might have
// been taken for the start of an audio frame.
#pragma once

#include "corvane/platform/Bytes.h"

namespace corvane {

// Drops every 00 that directly follows an FF.
void undoUnsynchronisation(ByteArray& bytes);

// Whether every FF is followed by what the format puts there, and no 00 stands where it puts none: only then does
// undoing bring back what was meant. Programs that set the flag and do nothing are known.
bool isUnsynchronised(Bytes bytes);

} // namespace corvane
