#include "corvane/id3v2/EncodedText.h"

#include "corvane/id3v2/Utf16Text.h"
#include "corvane/platform/CodePage.h"
#include "corvane/platform/Utf.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace corvane {

namespace {

constexpr std::uint32_t kBigEndianMark = 0xFEFF; // the first two bytes, read big-endian
constexpr std::uint32_t kLittleEndianMark = 0xFFFE;
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

std::string decodedUtf8(Bytes bytes) {
    std::string text(bytes.begin(), bytes.end());
    if (text.starts_with(kUtf8Mark)) text.erase(0, kUtf8Mark.size());
    return isUtf8(text) ? text : repairedUtf8(text);
}

} // namespace

std::optional<EncodedTextReader> EncodedTextReader::begin(ByteReader& payload) {
    const auto encoding = payload.number<1>();
    if (!encoding || *encoding > static_cast<std::uint32_t>(TextEncoding::Utf8)) return std::nullopt;
    return EncodedTextReader(static_cast<TextEncoding>(*encoding));
}

std::size_t EncodedTextReader::unitSize() const {
    return encoding_ == TextEncoding::Utf16 || encoding_ == TextEncoding::Utf16BigEndian ? 2 : 1;
}

bool EncodedTextReader::isMarkedUtf16(ByteReader payload) const {
    const auto mark = payload.number<2>();
    return unitSize() == 2 && (mark == kBigEndianMark || mark == kLittleEndianMark);
}

// Bytes in front of the first unit 0, or all whole units.
std::size_t EncodedTextReader::lengthOfString(Bytes bytes) const {
    if (unitSize() == 1) return static_cast<std::size_t>(std::find(bytes.begin(), bytes.end(), 0) - bytes.begin());
    ByteReader reader(bytes);
    while (const auto unit = reader.number<2>()) {
        if (*unit == 0) return bytes.size() - reader.left() - 2;
    }
    return bytes.size() - bytes.size() % 2;
}

std::string EncodedTextReader::takeTerminated(ByteReader& payload) {
    ByteReader ahead = payload;
    const Bytes rest = ahead.takeRest();
    const std::size_t length = lengthOfString(rest);
    if (rest.size() - length < unitSize()) return {};
    const Bytes string = *payload.take(length);
    payload.take(unitSize());
    return decoded(string);
}

std::vector<std::string> EncodedTextReader::takeValues(ByteReader& payload) {
    std::vector<std::string> values;
    while (payload.left() >= unitSize()) {
        ByteReader ahead = payload;
        std::string value = decoded(*payload.take(lengthOfString(ahead.takeRest())));
        payload.take(unitSize());
        if (!value.empty()) values.push_back(std::move(value));
    }
    payload.takeRest();
    return values;
}

std::string EncodedTextReader::decoded(Bytes string) {
    switch (encoding_) {
    case TextEncoding::CodePage:
        return decodeCodePage(string);
    case TextEncoding::Utf8:
        return decodedUtf8(string);
    default:
        return decodedUtf16(string);
    }
}

std::string EncodedTextReader::decodedUtf16(Bytes string) {
    ByteReader reader(string);
    if (isMarkedUtf16(reader)) bigEndian_ = reader.number<2>() == kBigEndianMark;
    return decodeUtf16(reader.takeRest(), bigEndian_);
}

std::string joinedValues(const std::vector<std::string>& values) {
    std::string text;
    for (const std::string& value : values) {
        if (!text.empty()) text.append("; ");
        text.append(value);
    }
    return text;
}

} // namespace corvane
