// Types of the fields of a frame, under the names that id3lib gives them.
#pragma once

#include <cstdint>

namespace corvane {

enum class ID3_FieldType : std::int32_t {
    ID3FTY_NONE = -1,      // not told
    ID3FTY_INTEGER = 0,    // a number
    ID3FTY_BINARY = 1,     // bytes
    ID3FTY_TEXTSTRING = 2, // text
    ID3FTY_NUMTYPES = 3    // how many types there are
};

} // namespace corvane
