#include "corvane/id3v230/QuoteCleaning.h"

#include "corvane/id3v230/FrameFields.h"
#include "corvane/platform/ByteReader.h"
#include "corvane/platform/EncodedText.h"

#include <algorithm>
#include <cstdint>
#include <optional>

namespace corvane {

namespace {

using enum ID3_FieldID;

// Bytes.
constexpr std::size_t kLanguageLength = 3, kTimeSize = 4;

constexpr std::uint32_t kQuote = '"', kBigEndianMark = 0xFEFF, kLittleEndianMark = 0xFFFE;

constexpr std::uint32_t swapped(std::uint32_t unit) { return unit >> 8 | (unit & 0xFF) << 8; }

class QuoteCleaner {
public:
    QuoteCleaner(ID3_FrameID frame, Bytes payload)
        : frame_(frame), rest_(payload), cleaned_(payload.begin(), payload.end()) {}

    ByteArray cleaned() {
        for (const ID3_FieldID field : fieldsOf(frame_).inOrder) cleanField(field);
        return std::move(cleaned_);
    }

private:
    void cleanField(ID3_FieldID field);
    void takeEncoding();
    void cleanString();
    void cleanStrings();
    void cleanUrl();
    void cleanData();
    bool isMarked() const;
    std::optional<std::uint32_t> takeUnit();
    void replaceLastUnit();

    ID3_FrameID frame_;
    ByteReader rest_;
    ByteArray cleaned_;
    bool isWide_ = false; // UTF-16
    bool isBigEndian_ = false;
};

void QuoteCleaner::cleanField(ID3_FieldID field) {
    switch (field) {
    case ID3FN_TEXTENC:
        return takeEncoding();
    case ID3FN_LANGUAGE:
        rest_.take(std::min(kLanguageLength, rest_.left()));
        return;
    case ID3FN_DESCRIPTION:
        return cleanString();
    case ID3FN_TEXT:
        return cleanStrings();
    case ID3FN_URL:
        return cleanUrl();
    case ID3FN_DATA:
        return cleanData();
    default:
        rest_.take(1);
        return;
    }
}

// A text may lack its encoding: then it begins with a character.
void QuoteCleaner::takeEncoding() {
    ByteReader ahead = rest_;
    const std::uint32_t encoding = ahead.number<1>().value_or(0);
    if (encoding >= ' ' && fieldsOf(frame_).inOrder.size() == 2) return;
    rest_ = ahead;
    isBigEndian_ = encoding == static_cast<std::uint32_t>(TextEncoding::Utf16BigEndian);
    isWide_ = isBigEndian_ || encoding == static_cast<std::uint32_t>(TextEncoding::Utf16);
}

bool QuoteCleaner::isMarked() const {
    ByteReader ahead = rest_;
    const auto mark = ahead.number<2>();
    return isWide_ && (mark == kBigEndianMark || mark == kLittleEndianMark);
}

std::optional<std::uint32_t> QuoteCleaner::takeUnit() {
    if (!isWide_) return rest_.number<1>();
    const auto unit = rest_.number<2>();
    return unit && !isBigEndian_ ? swapped(*unit) : unit;
}

void QuoteCleaner::replaceLastUnit() {
    const std::size_t end = cleaned_.size() - rest_.left();
    cleaned_.at(isWide_ && !isBigEndian_ ? end - 2 : end - 1) = '\'';
}

// Up to its end, or to the end of the data.
void QuoteCleaner::cleanString() {
    if (isMarked()) isBigEndian_ = rest_.number<2>() == kBigEndianMark;
    while (const auto unit = takeUnit()) {
        if (*unit == 0) return;
        if (*unit == kQuote) replaceLastUnit();
    }
}

void QuoteCleaner::cleanStrings() {
    const std::size_t unitSize = isWide_ ? 2 : 1;
    while (rest_.left() >= unitSize) cleanString();
}

// In one byte a character whatever the encoding is, but for writers that put UTF-16 with its mark there.
void QuoteCleaner::cleanUrl() {
    isWide_ = isWide_ && isMarked();
    cleanString();
}

void QuoteCleaner::cleanData() {
    if (frame_ != ID3_FrameID::ID3FID_SYNCEDLYRICS) return;
    while (rest_.left() > 0) {
        const std::size_t before = rest_.left();
        cleanString();
        if (rest_.left() == before || !rest_.take(kTimeSize)) return;
    }
}

} // namespace

ByteArray withoutQuotes(ID3_FrameID frame, Bytes payload) { return QuoteCleaner(frame, payload).cleaned(); }

} // namespace corvane
