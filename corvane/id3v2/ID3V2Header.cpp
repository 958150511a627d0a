#include "corvane/id3v2/ID3V2Header.h"

#include "corvane/platform/ByteReader.h"

#include <algorithm>

namespace corvane {

namespace {

template <std::size_t Size>
std::array<std::uint8_t, Size> arrayOf(Bytes bytes) {
    std::array<std::uint8_t, Size> array{};
    std::copy(bytes.begin(), bytes.end(), array.begin());
    return array;
}

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

} // namespace corvane
