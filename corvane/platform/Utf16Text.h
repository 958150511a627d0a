// UTF-16 code units in frames.
#pragma once

#include "corvane/platform/Bytes.h"

#include <optional>
#include <string>

namespace corvane {

// The text of code units that are all ASCII, as most are, in one look and one copy; nothing for other texts. A trailing
// odd byte is ignored.
std::optional<std::string> asciiOfUtf16(Bytes units, bool bigEndian);

// The text of code units. A unit that is half of no pair becomes U+FFFD; a trailing odd byte is ignored. Byte-order
// marks are characters here.
std::string decodeUtf16(Bytes units, bool bigEndian);

} // namespace corvane
