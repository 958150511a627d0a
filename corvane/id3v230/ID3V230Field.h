// One field of a frame, as a frame record lists it.
#pragma once

#include "corvane/id3v230/ID3_FieldID.h"
#include "corvane/id3v230/ID3_FieldType.h"

#include <cstdint>

namespace corvane {

struct ID3V230Field {
    ID3_FieldID FieldID = ID3_FieldID::ID3FN_NOFIELD;     // which field
    ID3_FieldType FieldType = ID3_FieldType::ID3FTY_NONE; // for hosts; reading a frame leaves it alone
    std::int32_t NumTextItems = 0;                        // texts in the field, 0 when it is no text
    std::int32_t Size = 0;                                // bytes
};

} // namespace corvane
