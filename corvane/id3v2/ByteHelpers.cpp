#include "corvane/id3v2/ByteHelpers.h"

#include "corvane/platform/ByteReader.h"
#include "corvane/platform/CodePage.h"
#include "corvane/platform/Numbers.h"
#include "corvane/platform/Picture.h"
#include "corvane/platform/Utf.h"
#include "corvane/platform/Utf16Text.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace corvane {

namespace {

constexpr std::uint32_t kLittleEndianMark = 0xFFFE; // the mark's two bytes in file order
constexpr std::uint32_t kBigEndianMark = 0xFEFF;

constexpr char16_t swapped(std::uint32_t unit) { return static_cast<char16_t>(unit << 8 | unit >> 8); }

} // namespace

std::int32_t SynchsafeToLong(Bytes bytes) {
    std::int32_t result = 0;
    for (const std::uint8_t byte : bytes) {
        result = narrowed<std::int32_t>(std::int64_t{ShiftLeft(result, 7)} + byte, "SynchsafeToLong");
    }
    return result;
}

std::string BytesToString(Bytes bytes, std::int32_t start, std::int32_t count) {
    ByteReader reader = readerAt(bytes, static_cast<std::size_t>(std::max(start, 0)));
    const std::size_t wanted = count > 0 ? std::min(static_cast<std::size_t>(count), reader.left()) : reader.left();
    std::string text;
    for (const std::uint8_t byte : reader.take(wanted).value_or(Bytes{})) appendUtf8(text, byte);
    return text;
}

std::string AnsiBytesToString(Bytes bytes) { return decodeCodePage(bytes); }

std::string Utf16BytesToString(Bytes bytes) {
    ByteReader reader(bytes);
    ByteReader ahead = reader;
    if (ahead.number<2>() == kLittleEndianMark) { // how nearly all texts begin, and most go on in ASCII
        if (auto ascii = asciiOfUtf16(ahead.takeRest(), false)) return std::move(*ascii);
    }
    std::u16string units;
    units.reserve(bytes.size() / 2);
    bool bigEndian = false;
    while (const auto unit = reader.number<2>()) {
        if (*unit == kLittleEndianMark || *unit == kBigEndianMark) {
            bigEndian = *unit == kBigEndianMark;
        } else {
            units.push_back(bigEndian ? static_cast<char16_t>(*unit) : swapped(*unit));
        }
    }
    return utf8FromUtf16(units);
}

std::shared_ptr<Picture> PictureFromBytes(ByteArray bytes) { return Picture::fromBytes(std::move(bytes)); }

std::string LfToCrLf(std::string_view text) {
    std::string converted;
    converted.reserve(text.size());
    for (const char character : text) {
        if (character == '\n') converted.push_back('\r');
        converted.push_back(character);
    }
    return converted;
}

} // namespace corvane
