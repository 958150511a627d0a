#include "corvane/id3v230/OwnFrame.h"

#include "corvane/id3v230/FrameFields.h"
#include "corvane/id3v230/FrameTextEncoding.h"

namespace corvane {

using enum ID3_FieldID;

// A field that is never set is empty, but what ends it stands there.
OwnFrame::OwnFrame(ID3_FrameID frame, TextEncoding encoding) : frame_(frame), encoding_(encoding) {
    setNumber(ID3FN_TEXTENC, static_cast<std::uint32_t>(encoding));
    for (const ID3_FieldID field : {ID3FN_DESCRIPTION, ID3FN_FILENAME, ID3FN_OWNER, ID3FN_MIMETYPE, ID3FN_EMAIL}) {
        setText(field, {});
    }
}

bool OwnFrame::has(ID3_FieldID field) const { return hasField(frame_, field); }

void OwnFrame::setNumber(ID3_FieldID field, std::uint32_t number) {
    const int bits = field == ID3FN_COUNTER ? 32 : 8;
    bytesOf(field).clear();
    for (int shift = bits - 8; shift >= 0; shift -= 8) {
        bytesOf(field).push_back(static_cast<std::uint8_t>(number >> shift & 0xFF));
    }
}

void OwnFrame::setText(ID3_FieldID field, std::string_view text) {
    ByteArray& bytes = bytesOf(field);
    bytes.clear();
    switch (field) {
    case ID3FN_TEXT:
        return appendValues(bytes, text, encoding_);
    case ID3FN_DESCRIPTION:
    case ID3FN_FILENAME:
        appendString(bytes, text, encoding_);
        return appendEnd(bytes, encoding_);
    case ID3FN_OWNER:
    case ID3FN_MIMETYPE:
    case ID3FN_EMAIL:
        appendString(bytes, text, TextEncoding::CodePage);
        return appendEnd(bytes, TextEncoding::CodePage);
    default:
        return appendString(bytes, text, TextEncoding::CodePage);
    }
}

void OwnFrame::setBytes(ID3_FieldID field, Bytes bytes) { bytesOf(field).assign(bytes.begin(), bytes.end()); }

ByteArray OwnFrame::payload() const {
    ByteArray payload;
    for (const ID3_FieldID field : fieldsOf(frame_).inOrder) {
        const ByteArray& bytes = fields_.at(static_cast<std::size_t>(field));
        payload.insert(payload.end(), bytes.begin(), bytes.end());
    }
    return payload;
}

} // namespace corvane
