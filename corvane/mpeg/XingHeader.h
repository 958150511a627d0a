// The Xing header: an encoder's note in the first frame of a file with a variable bit rate. It stands where the side
// information of a Layer III frame ends and tells how many frames and bytes the stream has.
//
//   4 bytes "Xing", 4 bytes flags, 4 bytes frame count (flag bit 0), 4 bytes audio size (flag bit 1), ...
#pragma once

#include "corvane/mpeg/HeaderWord.h"
#include "corvane/platform/Bytes.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace corvane {

// The numbers are bit patterns of 32 bits: those above 0x7FFFFFFF come out negative.
struct XingHeader {
    std::optional<std::int32_t> frameCount;
    std::optional<std::int32_t> audioSize; // bytes

    friend bool operator==(const XingHeader&, const XingHeader&) = default;
};

// The number of bytes of a frame, from its header's first byte, that can matter to readXingHeader.
inline constexpr std::size_t kXingReach = 4 + 32 + 16;

// Where the Xing header of a frame starts, counted from the first byte of the frame's header. A CRC behind the header
// does not move it.
std::size_t xingOffset(HeaderWord header);

// The Xing header of the frame whose bytes these are; nothing when there is none, or when fewer than 14 of its bytes
// are there. Bytes 15 and 16, where missing, count as 0.
//
// The audio size is read only beside a frame count, although its own flag stands for it; and encoders' other notes, an
// "Info" or a VBRI header, are none, so that such a file counts as one of a constant bit rate. Hosts rely on both.
std::optional<XingHeader> readXingHeader(Bytes frame, HeaderWord header);

} // namespace corvane
