#include "corvane/id3v2/ID3V2Header.h"

#include "corvane/platform/ByteReader.h"

#include <algorithm>
#include <limits>

namespace corvane {

namespace {

template <std::size_t Size>
std::array<std::uint8_t, Size> arrayOf(Bytes bytes) {
    std::array<std::uint8_t, Size> array{};
    std::copy(bytes.begin(), bytes.end(), array.begin());
    return array;
}

constexpr std::int64_t sizeWithHeader(const std::array<std::uint8_t, 4>& size) {
    std::int64_t sum = 0;
    for (const std::uint8_t byte : size) sum = sum * 128 + byte;
    return sum + static_cast<std::int64_t>(ID3V2Header::kByteCount);
}
static_assert(sizeWithHeader({0xFF, 0xFF, 0xFF, 0xFF}) <= std::numeric_limits<std::int32_t>::max());

} // namespace

std::optional<ID3V2Header> decodeHeader(Bytes bytes) {
    ByteReader reader(bytes);
    const auto identifier = reader.take(3);
    const auto version = reader.take(2);
    const auto flags = reader.number<1>();
    const auto size = reader.take(4);
    if (!size) return std::nullopt;
    return ID3V2Header{std::string(identifier->begin(), identifier->end()), arrayOf<2>(*version),
                       static_cast<std::uint8_t>(*flags), arrayOf<4>(*size)};
}

bool hasTagNumbers(const ID3V2Header& header) {
    return std::all_of(header.Version.begin(), header.Version.end(), [](auto byte) { return byte < 0xFF; }) &&
           std::all_of(header.Size.begin(), header.Size.end(), [](auto byte) { return byte < 0x80; });
}

std::int32_t tagSize(const ID3V2Header& header) { return static_cast<std::int32_t>(sizeWithHeader(header.Size)); }

} // namespace corvane
