// Why a frame cannot be made, by the numbers of id3lib's error table.
#pragma once

#include "corvane/platform/RuntimeFailure.h"

#include <cstdint>
#include <string>

namespace corvane {

enum class EncodingError : std::int32_t {
    BadData = 3,         // the value cannot stand in this frame
    NoBuffer = 4,        // id3lib's result is missing or wrong, as on a full temporary disk
    InvalidFrame = 6,    // there is no such frame
    FieldNotFound = 7,   // the frame has no field for a value
    LibraryNotFound = 11 // id3lib is not there
};

inline RuntimeFailure encodingFailure(EncodingError error, const std::string& description) {
    return {static_cast<std::int32_t>(error), "encode frames", description};
}

} // namespace corvane
