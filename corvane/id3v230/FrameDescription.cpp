#include "corvane/id3v230/FrameDescription.h"

#include "corvane/id3v230/FrameFields.h"
#include "corvane/id3v230/FrameTextEncoding.h"
#include "corvane/platform/ByteReader.h"
#include "corvane/platform/EncodedText.h"

#include <utility>

namespace corvane {

namespace {

using enum ID3_FieldID;

void append(ByteArray& bytes, Bytes more) { bytes.insert(bytes.end(), more.begin(), more.end()); }

class Rewriter {
public:
    Rewriter(Bytes payload, std::string_view description) : payload_(payload), rest_(payload), wanted_(description) {}

    std::optional<ByteArray> rewritten(ID3_FrameID frame) {
        for (const ID3_FieldID field : fieldsOf(frame).inOrder) {
            if (!copyField(field)) return std::nullopt;
        }
        return std::move(result_);
    }

private:
    bool copyField(ID3_FieldID field);
    bool copyEncoding();
    bool copyPlainString();
    bool copyFileName();
    bool copyByte();
    bool replaceDescription();

    Bytes payload_;
    ByteReader rest_;
    std::string_view wanted_;
    std::optional<EncodedTextReader> text_;
    TextEncoding encoding_ = TextEncoding::CodePage; // of the result
    bool isSameEncoding_ = true;
    ByteArray result_;
};

bool Rewriter::copyField(ID3_FieldID field) {
    switch (field) {
    case ID3FN_TEXTENC:
        return copyEncoding();
    case ID3FN_IMAGEFORMAT: // takes no bytes
        return true;
    case ID3FN_MIMETYPE:
        return copyPlainString();
    case ID3FN_FILENAME:
        return copyFileName();
    case ID3FN_PICTURETYPE:
        return copyByte();
    case ID3FN_DESCRIPTION:
        return replaceDescription();
    case ID3FN_DATA:
        append(result_, rest_.takeRest());
        return true;
    default:
        return false;
    }
}

bool Rewriter::copyEncoding() {
    ByteReader ahead = rest_;
    const auto before = ahead.number<1>();
    text_ = EncodedTextReader::begin(rest_);
    if (!text_) return false;
    const bool isPlain = before == static_cast<std::uint32_t>(TextEncoding::CodePage);
    encoding_ = isPlain ? encodingFor(wanted_) : TextEncoding::Utf16;
    isSameEncoding_ = before == static_cast<std::uint32_t>(encoding_);
    result_.push_back(static_cast<std::uint8_t>(encoding_));
    return true;
}

bool Rewriter::copyPlainString() {
    while (const auto byte = rest_.number<1>()) {
        result_.push_back(static_cast<std::uint8_t>(*byte));
        if (*byte == 0) return true;
    }
    return false;
}

bool Rewriter::copyFileName() {
    const std::size_t before = rest_.left();
    const std::string name = text_->takeTerminated(rest_);
    const std::size_t taken = before - rest_.left();
    if (taken == 0) return false;
    if (isSameEncoding_) {
        append(result_, payload_.subspan(payload_.size() - before, taken));
    } else {
        appendString(result_, name, encoding_);
        appendEnd(result_, encoding_);
    }
    return true;
}

bool Rewriter::copyByte() {
    const auto byte = rest_.number<1>();
    if (byte) result_.push_back(static_cast<std::uint8_t>(*byte));
    return byte.has_value();
}

bool Rewriter::replaceDescription() {
    const std::size_t before = rest_.left();
    text_->takeTerminated(rest_);
    if (rest_.left() == before) return false;
    appendString(result_, wanted_, encoding_);
    appendEnd(result_, encoding_);
    return true;
}

} // namespace

std::optional<ByteArray> withDescription(ID3_FrameID frame, Bytes payload, std::string_view description) {
    if (!hasField(frame, ID3FN_DATA) || !hasField(frame, ID3FN_DESCRIPTION) || !hasField(frame, ID3FN_MIMETYPE))
        return std::nullopt;
    return Rewriter(payload, description).rewritten(frame);
}

} // namespace corvane
