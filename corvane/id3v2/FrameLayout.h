// How the three versions of ID3v2 lay out a frame: a header, extra bytes that flags announce, the payload.
//
//   version  ID  size of what follows the header       flags  header
//   2.2       3  3 bytes, plain (ID3v2.2.0 section 3.2)     0       6
//   2.3       4  4 bytes, plain (ID3v2.3.0 section 3.3)     2      10
//   2.4       4  4 groups of 7 bits (ID3v2.4.0 section 4)   2      10
#pragma once

#include "corvane/id3v2/ByteHelpers.h"
#include "corvane/id3v2/FrameId.h"
#include "corvane/platform/ByteReader.h"
#include "corvane/platform/Bytes.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace corvane {

struct FrameHeader {
    FrameId id;
    std::uint32_t size = 0; // bytes of the frame data behind the header
    std::uint8_t formatFlags = 0;
    bool isPadding = false; // the first byte of the ID is 0: here is no frame
};

// How the frame data of one frame are to be read.
struct FrameForm {
    std::uint32_t extraCount = 0; // bytes of the frame data in front of the payload
    bool unsynchronised = false;  // to be undone first
    bool encrypted = false;       // the payload stays as it is, whatever else is set
    bool compressed = false;
    std::int32_t inflatedSize = 0; // bytes, as claimed
};

constexpr FrameHeader decodeFrameHeader(Bytes bytes, std::size_t idLength, std::int32_t size) {
    FrameHeader header;
    for (const std::uint8_t byte : bytes.first(idLength)) header.id.code = header.id.code << 8 | byte;
    header.size = static_cast<std::uint32_t>(size);
    header.isPadding = bytes.front() == 0;
    return header;
}

// `header(bytes)` takes exactly kHeaderSize bytes. `form(header, data)` takes the first kMostExtra bytes of the frame
// data, or all when there are fewer, and gives nothing when the announced extra bytes are not there.
struct Layout22 {
    static constexpr std::size_t kHeaderSize = 6;
    static constexpr std::size_t kMostExtra = 0;

    FrameHeader header(Bytes bytes) const { return decodeFrameHeader(bytes, 3, BytesToLong(bytes, 3, 3)); }
    std::optional<FrameForm> form(const FrameHeader&, Bytes) const { return FrameForm{}; }
};

struct Layout23 {
    static constexpr std::size_t kHeaderSize = 10;
    static constexpr std::size_t kMostExtra = 6;
    static constexpr std::uint8_t kCompressed = 0x80, kEncrypted = 0x40, kGrouped = 0x20;

    FrameHeader header(Bytes bytes) const;
    // The group identifier is taken first, then the encryption method, then the decompressed size. Odd on purpose: the
    // published format has them the other way round, and hosts rely on this order.
    std::optional<FrameForm> form(const FrameHeader& header, Bytes data) const;
};

struct Layout24 {
    static constexpr std::size_t kHeaderSize = 10;
    static constexpr std::size_t kMostExtra = 6;
    // Odd on purpose: the published format has compression in bit 08, encryption in 04, unsynchronisation in 02 and the
    // data-length indicator in 01.
    static constexpr std::uint8_t kCompressed = 0x80, kEncrypted = 0x40, kUnsynchronised = 0x20, kDataLength = 0x10;

    bool tagUnsynchronised = false; // the tag's header says it for all frames

    FrameHeader header(Bytes bytes) const;
    // Bit 40 announces two bytes, a group identifier and one more.
    std::optional<FrameForm> form(const FrameHeader& header, Bytes data) const;
};

} // namespace corvane
