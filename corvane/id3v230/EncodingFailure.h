// Why a frame cannot be made.
#pragma once

#include "corvane/id3v230/Id3libError.h"
#include "corvane/platform/RuntimeFailure.h"

#include <cstdint>
#include <string>

namespace corvane {

// Its number is of id3lib's error table; any other RuntimeFailure has errno or a FailureNumber.
class EncodingFailure : public RuntimeFailure {
public:
    EncodingFailure(Id3libError error, const std::string& description)
        : RuntimeFailure(static_cast<std::int32_t>(error), "encode frames", description) {}
};

} // namespace corvane
