// Kinds of ID3v1 record.
#pragma once

#include <cstdint>

namespace corvane {

enum class EID3TagConstants : std::int32_t {
    ID3Unknown = 0, // no record
    ID3v1 = 1,      // a comment of 30 characters, no track number
    ID3V11 = 2      // ID3v1.1: a comment of 28 characters and a track number
};

} // namespace corvane
