// The first 10 bytes of an ID3v2 tag (ID3v2.3.0 section 3.1, ID3v2.4.0 section 3.1, ID3v2.2.0 section 3.1).
//
//   offset  size
//        0     3  "ID3"
//        3     2  major version (2, 3 or 4) and revision
//        5     1  flags
//        6     4  size of the tag without these 10 bytes, four groups of 7 bits, most significant first
#pragma once

#include "corvane/platform/Bytes.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace corvane {

struct ID3V2Header {
    static constexpr std::size_t kByteCount = 10; // bytes of a header in a file

    std::string ID;                        // whoever fills the record decides how; the readers do not look at it
    std::array<std::uint8_t, 2> Version{}; // major version, revision
    std::uint8_t Flags = 0;                // as the version of the tag defines them
    std::array<std::uint8_t, 4> Size{};    // four groups of 7 bits, most significant first
};

// The header that the first 10 of `bytes` make, whatever they say; nothing when there are fewer.
std::optional<ID3V2Header> decodeHeader(Bytes bytes);

// Whether the numbers of a header are those of a tag: neither version byte is FF and every size byte is below 80.
bool hasTagNumbers(const ID3V2Header& header);

// Bytes of the tag with its header. Bit 7 of a size byte is not masked off, on purpose: a byte of 80 or more adds its
// whole value.
std::int32_t tagSize(const ID3V2Header& header);

} // namespace corvane
