#include "corvane/platform/EncodedText.h"

#include "corvane/platform/CodePage.h"
#include "corvane/platform/Utf.h"
#include "corvane/platform/Utf16Text.h"

#include <cstring>
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

std::string& appendValue(std::string& text, std::string_view value) {
    if (!text.empty()) text.append("; ");
    return text.append(value);
}

std::size_t lengthUpToZero(Bytes bytes) {
    const void* const zero = bytes.empty() ? nullptr : std::memchr(bytes.data(), 0, bytes.size());
    if (zero == nullptr) return bytes.size();
    return static_cast<std::size_t>(static_cast<const std::uint8_t*>(zero) - bytes.data());
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
    return unitSize() == 2 && mark && (*mark == kBigEndianMark || *mark == kLittleEndianMark);
}

// Bytes in front of the first unit 0, or all whole units.
std::size_t EncodedTextReader::lengthOfString(Bytes bytes) const {
    if (unitSize() == 1) return lengthUpToZero(bytes);
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

template <class Take>
void EncodedTextReader::takeEachValue(ByteReader& payload, Take&& take) {
    while (payload.left() >= unitSize()) {
        ByteReader ahead = payload;
        std::string value = decoded(*payload.take(lengthOfString(ahead.takeRest())));
        payload.take(unitSize());
        if (!value.empty()) take(std::move(value));
    }
    payload.takeRest();
}

std::string EncodedTextReader::takeJoinedValues(ByteReader& payload) {
    std::string text;
    takeEachValue(payload, [&text](std::string value) {
        // Most frames hold one value.
        text.empty() ? text = std::move(value) : appendValue(text, value);
    });
    return text;
}

std::vector<std::string> EncodedTextReader::takeValues(ByteReader& payload) {
    std::vector<std::string> values;
    takeEachValue(payload, [&values](std::string value) { values.push_back(std::move(value)); });
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
    for (const std::string& value : values) appendValue(text, value);
    return text;
}

} // namespace corvane
