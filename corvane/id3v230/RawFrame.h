// A frame of an ID3v2.3 tag as it stands there, whoever understands it or not (ID3v2.3.0 section 3.3).
//
//   offset  size
//        0     4  frame ID
//        4     4  bytes behind this header, a plain big-endian number
//        8     2  flags: status, format
#pragma once

#include "corvane/platform/Bytes.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace corvane {

struct RawFrame {
    static constexpr std::size_t kHeaderSize = 10; // bytes

    std::array<char, 4> id{}; // any bytes
    std::uint8_t statusFlags = 0;
    std::uint8_t formatFlags = 0;
    std::uint32_t dataSize = 0; // bytes behind the header
    std::uint64_t offset = 0;   // of the header: in the file, or in the body once its unsynchronisation is undone

    std::string_view idText() const { return {id.data(), id.size()}; }
    // Bytes of header and data.
    std::uint64_t size() const { return kHeaderSize + std::uint64_t{dataSize}; }
    // Four letters or digits; or three and a blank or a 0, as programs write that have made a tag of version 2.3 out of
    // one of version 2.2.
    bool hasFrameId() const;

    friend bool operator==(const RawFrame&, const RawFrame&) = default;
};

// The header that the first 10 of `bytes`, found at `offset`, make, whatever they say; nothing when there are fewer.
std::optional<RawFrame> decodeFrameHeader(Bytes bytes, std::uint64_t offset);
std::array<std::uint8_t, RawFrame::kHeaderSize> encodedFrameHeader(const RawFrame& frame);

} // namespace corvane
