// A frame that the library puts together itself: the same bytes that id3lib makes of the same fields, without a file.
// There is one difference: an empty string in UTF-16 has its byte-order mark here.
#pragma once

#include "corvane/id3v230/FieldWriter.h"
#include "corvane/id3v230/ID3_FrameID.h"
#include "corvane/platform/EncodedText.h"

#include <array>
#include <cstddef>

namespace corvane {

class OwnFrame final : public FieldWriter {
public:
    OwnFrame(ID3_FrameID frame, TextEncoding encoding);

    bool has(ID3_FieldID field) const override;
    void setNumber(ID3_FieldID field, std::uint32_t number) override;
    void setText(ID3_FieldID field, std::string_view text) override;
    void setBytes(ID3_FieldID field, Bytes bytes) override;

    // The data of the frame.
    ByteArray payload() const;

private:
    ByteArray& bytesOf(ID3_FieldID field) { return fields_.at(static_cast<std::size_t>(field)); }

    ID3_FrameID frame_;
    TextEncoding encoding_;
    std::array<ByteArray, static_cast<std::size_t>(ID3_FieldID::ID3FN_LASTFIELDID)> fields_; // by field number
};

} // namespace corvane
