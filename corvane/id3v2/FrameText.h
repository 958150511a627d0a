// What a frame's payload says, as the frame objects give it.
//
// These rules are those that hosts of the interface know. Where they differ from the published format they do so on
// purpose; ReadableText.h has the format's own reading.
#pragma once

#include "corvane/id3v2/FrameId.h"
#include "corvane/platform/Bytes.h"

#include <string>

namespace corvane {

// The payload without its leading fields: of COMM, USLT and SYLT without language and description, of WXXX without the
// description, of APIC the picture's bytes; of any other frame, or without the 0 byte that ends the fields, all of it.
// Odd on purpose: the description ends at the first single 0 byte in every encoding, also in UTF-16.
Bytes removeHeader(FrameId id, Bytes payload);

// The text of an ID3v2.3 or ID3v2.4 frame.
// - T frames: by the encoding byte, 0 the code page, 1 UTF-16; any other value, UTF-8 and UTF-16BE among them, gives
// the
//   whole payload from the code page without its 0 bytes (odd on purpose).
// - PCNT: its first 4 bytes as a number, in decimal.
// - SYLT, USLT, COMM: the same two encodings of what removeHeader leaves; any other value gives the whole payload from
//   the code page without its bytes 0, 1 and 2. So does APIC.
// - Every other frame, an encrypted one, and one whose payload is empty: "".
std::string textData(FrameId id, bool encrypted, Bytes payload);

// The text of an ID3v2.2 frame: T frames in encoding 0 and 1; "" for everything else.
std::string textDataOfVersion22(FrameId id, Bytes payload);

} // namespace corvane
