// The byte and text helpers that the readers of all ID3v2 versions share.
#pragma once

#include "corvane/platform/ByteReader.h"
#include "corvane/platform/Bytes.h"

#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>

namespace corvane {

class Picture;

// value * 2^bits, rounded (half to even where `bits` is negative). A product that does not fit is 0: odd on purpose,
// the readers take a size that overflows for what its last byte says.
constexpr std::int32_t ShiftLeft(std::int32_t value, std::int16_t bits) {
    if (bits > 31 || bits < -31) return 0;
    if (bits >= 0) {
        const std::int64_t product = std::int64_t{value} * (std::int64_t{1} << bits);
        const bool fits =
            product >= std::numeric_limits<std::int32_t>::min() && product <= std::numeric_limits<std::int32_t>::max();
        return fits ? static_cast<std::int32_t>(product) : 0;
    }
    const std::int64_t divisor = std::int64_t{1} << -bits;
    const std::int32_t floor = value >> -bits;
    const std::int64_t doubledRest = 2 * (value - floor * divisor);
    const bool up = doubledRest > divisor || (doubledRest == divisor && floor % 2 != 0);
    return up ? floor + 1 : floor;
}

// Groups of 7 bits, most significant first. Bit 7 is not masked off, on purpose: a byte of 80 or more adds its whole
// value. No bytes give 0; a sum past 32 bits (never with 4 bytes) is an overflow failure.
std::int32_t SynchsafeToLong(Bytes bytes);

// `count` bytes from index `start` on as a big-endian number, each step a ShiftLeft: 80 00 00 05 is 5, on purpose.
// 0 when one of them lies outside the array or `count` is below 1.
constexpr std::int32_t BytesToLong(Bytes bytes, std::int32_t start, std::int32_t count) {
    if (start < 0 || count < 1) return 0;
    const auto digits = readerAt(bytes, static_cast<std::size_t>(start)).take(static_cast<std::size_t>(count));
    if (!digits) return 0;
    std::int32_t result = 0;
    for (const std::uint8_t byte : *digits) result = ShiftLeft(result, 8) + byte;
    return result;
}

// One character per byte (ISO-8859-1), from index `start` for `count` bytes, or to the end when `count` is 0 or less.
// What lies outside the array gives no character.
std::string BytesToString(Bytes bytes, std::int32_t start = 0, std::int32_t count = 0);

// All bytes from the system's single-byte code page.
std::string AnsiBytesToString(Bytes bytes);

// UTF-16, little-endian until a byte-order mark says otherwise. A mark anywhere in the bytes switches the order and is
// not copied. A trailing odd byte is ignored; a unit that is half of no pair becomes U+FFFD.
std::string Utf16BytesToString(Bytes bytes);

// The picture that the bytes of an image make; nothing when they are no JPEG, PNG, GIF or BMP image.
std::shared_ptr<Picture> PictureFromBytes(ByteArray bytes);

// Every line feed as carriage return and line feed, also one that has its carriage return already.
std::string LfToCrLf(std::string_view text);

} // namespace corvane
