// Why a frame cannot be made, by the numbers of id3lib's error table.
#pragma once

#include "corvane/platform/RuntimeFailure.h"

#include <cstdint>
#include <string>

namespace corvane {

enum class EncodingError : std::int32_t {
    BadData = 3,         // the value cannot stand in this frame
    NoBuffer = 4,        // there is no temporary file, or id3lib's result in it is missing or wrong
    InvalidFrame = 6,    // there is no such frame
    FieldNotFound = 7,   // the frame has no field for a value
    LibraryNotFound = 11 // id3lib is not there
};

// Its number is of that table; any other RuntimeFailure has errno or a FailureNumber.
class EncodingFailure : public RuntimeFailure {
public:
    EncodingFailure(EncodingError error, const std::string& description)
        : RuntimeFailure(static_cast<std::int32_t>(error), "encode frames", description) {}
};

} // namespace corvane
