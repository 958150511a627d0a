// The fields of one frame that is being made, whoever makes it.
#pragma once

#include "corvane/id3v230/FrameVariant.h"
#include "corvane/id3v230/ID3_FieldID.h"
#include "corvane/platform/Bytes.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane {

class FieldWriter {
public:
    FieldWriter() = default;
    virtual ~FieldWriter() = default;
    FieldWriter(const FieldWriter&) = delete;
    FieldWriter& operator=(const FieldWriter&) = delete;

    virtual bool has(ID3_FieldID field) const = 0;
    // Of a field that the frame has.
    virtual void setNumber(ID3_FieldID field, std::uint32_t number) = 0;
    virtual void setText(ID3_FieldID field, std::string_view text) = 0;
    virtual void setBytes(ID3_FieldID field, Bytes bytes) = 0;
};

// Stores a value in a field: in field 0 as a number, in field 4 (data) as text spread with blanks (SpreadText.h), in
// every other field as text. Odd on purpose: the number of the field decides, not its type, as hosts expect it. A
// field that the frame does not have is told to the user in a message box, and nothing is stored.
void id3SetField(FieldWriter& frame, const FrameVariant& value, ID3_FieldID field);

// Reports in a message box that a value is not stored because its frame has no such field.
void reportMissingField(const FrameVariant& value, ID3_FieldID field);

// A value as text: numbers in decimal digits, "" for a picture or for nothing.
std::string fieldText(const FrameVariant& value);

} // namespace corvane
