// Changes the description of a frame whose other content stays as it is: of a picture or of an object, whatever it is.
#pragma once

#include "corvane/id3v230/ID3_FrameID.h"
#include "corvane/platform/Bytes.h"

#include <optional>
#include <string_view>

namespace corvane {

// The payload of an APIC or GEOB frame with another description. Its encoding stays where it can hold the description,
// else both the description and a file name are UTF-16. Nothing for other frames, and when the payload ends too early.
std::optional<ByteArray> withDescription(ID3_FrameID frame, Bytes payload, std::string_view description);

} // namespace corvane
