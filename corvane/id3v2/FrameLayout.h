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

namespace corvane {

struct FrameHeader {
    FrameId id;
    std::uint32_t size = 0; // bytes of the frame data behind the header
    std::uint8_t formatFlags = 0;
    bool isPadding = false; // the first byte of the ID is 0: here is no frame

    constexpr bool has(std::uint8_t formatFlag) const { return (formatFlags & formatFlag) != 0; }
};

// How the frame data of one frame are to be read.
struct FrameForm {
    bool unsynchronised = false; // to be undone first
    bool encrypted = false;      // the payload stays as it is, whatever else is set
    bool compressed = false;
    std::int32_t inflatedSize = 0; // bytes, as claimed
};

// A header of ID3v2.3 and ID3v2.4; `decodeSize` decodes its 4 size bytes.
template <class DecodeSize>
constexpr FrameHeader decodeFrameHeader(Bytes bytes, DecodeSize decodeSize) {
    ByteReader reader(bytes);
    FrameHeader header;
    header.id = FrameId(reader.number<4>().value_or(0));
    header.isPadding = header.id.code >> 24 == 0;
    header.size = static_cast<std::uint32_t>(decodeSize(reader.take(4).value_or(Bytes{})));
    reader.take(1); // the status flags
    header.formatFlags = static_cast<std::uint8_t>(reader.number<1>().value_or(0));
    return header;
}

// `header(bytes)` takes exactly kHeaderSize bytes. `extraCount(header)` bytes in front of the payload are what
// `form(header, extra)` takes.
struct Layout22 {
    static constexpr std::size_t kHeaderSize = 6;

    constexpr FrameHeader header(Bytes bytes) const {
        ByteReader reader(bytes);
        const FrameId id(reader.number<3>().value_or(0));
        return {.id = id, .size = reader.number<3>().value_or(0), .isPadding = id.code >> 16 == 0};
    }
    constexpr std::uint32_t extraCount(const FrameHeader&) const { return 0; }
    constexpr FrameForm form(const FrameHeader&, Bytes) const { return {}; }
};

struct Layout23 {
    static constexpr std::size_t kHeaderSize = 10;
    static constexpr std::uint8_t kCompressed = 0x80, kEncrypted = 0x40, kGrouped = 0x20;

    constexpr FrameHeader header(Bytes bytes) const {
        return decodeFrameHeader(bytes, [](Bytes size) { return BytesToLong(size, 0, 4); });
    }
    constexpr std::uint32_t extraCount(const FrameHeader& header) const {
        return (header.has(kGrouped) ? 1U : 0U) + (header.has(kEncrypted) ? 1U : 0U) +
               (header.has(kCompressed) ? 4U : 0U);
    }
    // The group identifier comes first, then the encryption method, then the decompressed size. Odd on purpose: the
    // published format has them the other way round, and hosts rely on this order.
    constexpr FrameForm form(const FrameHeader& header, Bytes extra) const {
        FrameForm form;
        form.encrypted = header.has(kEncrypted);
        form.compressed = header.has(kCompressed);
        if (form.compressed) form.inflatedSize = BytesToLong(extra, static_cast<std::int32_t>(extra.size()) - 4, 4);
        return form;
    }
};

struct Layout24 {
    static constexpr std::size_t kHeaderSize = 10;
    // Odd on purpose: the published format has compression in bit 08, encryption in 04, unsynchronisation in 02 and the
    // data-length indicator in 01.
    static constexpr std::uint8_t kCompressed = 0x80, kEncrypted = 0x40, kUnsynchronised = 0x20, kDataLength = 0x10;

    bool tagUnsynchronised = false; // the tag's header says it for all frames

    FrameHeader header(Bytes bytes) const {
        return decodeFrameHeader(bytes, [](Bytes size) { return SynchsafeToLong(size); });
    }
    // Bit 40 announces two bytes, a group identifier and one more; the data length stands behind them.
    constexpr std::uint32_t extraCount(const FrameHeader& header) const {
        return (header.has(kEncrypted) ? 2U : 0U) + (header.has(kDataLength) ? 4U : 0U);
    }
    FrameForm form(const FrameHeader& header, Bytes extra) const {
        FrameForm form;
        form.unsynchronised = tagUnsynchronised || header.has(kUnsynchronised);
        form.encrypted = header.has(kEncrypted);
        form.compressed = header.has(kCompressed);
        if (header.has(kDataLength)) {
            form.inflatedSize = SynchsafeToLong(readerAt(extra, header.has(kEncrypted) ? 2 : 0).takeRest());
        }
        return form;
    }
};

} // namespace corvane
