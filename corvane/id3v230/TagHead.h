// The header that begins an ID3v2 tag, for those who change tags (ID3v2.3.0 section 3.1).
//
//   offset  size
//        0     3  "ID3"
//        3     2  major version and revision
//        5     1  flags
//        6     4  size of what follows, four groups of 7 bits, most significant first
#pragma once

#include "corvane/platform/Bytes.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace corvane {

struct TagHead {
    static constexpr std::size_t kByteCount = 10;
    static constexpr std::uint32_t kLargestBody = 0x0FFF'FFFF; // what 28 bits can tell
    static constexpr std::uint8_t kUnsynchronised = 0x80, kExtendedHeader = 0x40, kExperimental = 0x20, kFooter = 0x10;

    unsigned majorVersion = 0;
    unsigned revision = 0;
    std::uint8_t flags = 0;
    std::optional<std::uint32_t> bodySize; // nothing when the four bytes are no such number

    // Bytes of header and body.
    std::uint64_t tagSize() const { return kByteCount + std::uint64_t{bodySize.value_or(0)}; }

    friend bool operator==(const TagHead&, const TagHead&) = default;
};

// Nothing when there are fewer than 10 bytes or they do not begin with "ID3".
std::optional<TagHead> decodeTagHead(Bytes bytes);
// The header of version 2.3.0 with these flags; bodySize is at most kLargestBody.
std::array<std::uint8_t, TagHead::kByteCount> encodedTagHead(std::uint8_t flags, std::uint32_t bodySize);

} // namespace corvane
