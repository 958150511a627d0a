// MPEG audio frames as encoders write them: headers by their fields, frames of the length that the standard gives them,
// streams of such frames, Xing headers. The audio in the frames is silence of zero bytes.
#pragma once

#include "corvane/platform/Bytes.h"

#include <cstddef>
#include <cstdint>

namespace corvane::test {

// The fields of a frame header as raw bits. As it stands: MPEG 1 Layer III, 128 kbit/s, 44100 Hz, stereo, without a
// CRC, 417 bytes.
struct MpegFrame {
    unsigned version = 3;           // 3 MPEG 1, 2 MPEG 2, 1 reserved, 0 MPEG 2.5
    unsigned layer = 1;             // 1 Layer III, 2 Layer II, 3 Layer I, 0 reserved
    unsigned bitRateIndex = 9;      // 0 free format, 15 forbidden
    unsigned samplingRateIndex = 0; // 3 reserved
    unsigned mode = 0;              // 0 stereo, 1 joint stereo, 2 dual channel, 3 single channel
    unsigned modeExtension = 0;
    unsigned emphasis = 0;
    bool padding = false;
    bool privateBit = false;
    bool copyright = false;
    bool original = false;
    bool crc = false; // the protection bit is 0 then; the CRC's two bytes are left 0
};

// A Xing header. A number is written when its flag is set: bit 0 frames, bit 1 bytes.
struct XingFields {
    std::uint32_t flags = 3;
    std::uint32_t frames = 0;
    std::uint32_t bytes = 0;
};

std::uint32_t headerWord(const MpegFrame& frame);

// What the standard says of a frame: kbit/s, Hz and bytes; 0 where it says nothing (reserved and free-format fields).
unsigned standardBitRateKbps(const MpegFrame& frame);
unsigned standardFrequencyHz(const MpegFrame& frame);
std::size_t standardFrameSize(const MpegFrame& frame);

// The 4 bytes of a header.
ByteArray mpegHeaderBytes(const MpegFrame& frame);
// A whole frame; only the header when the standard gives the frame no length.
ByteArray mpegFrame(const MpegFrame& frame);
// `count` frames, one after the other.
ByteArray mpegStream(const MpegFrame& frame, std::size_t count);
// A whole frame with a Xing header, the first frame of a VBR file; longer than a frame where the header needs it.
ByteArray xingFrame(const MpegFrame& frame, const XingFields& xing);

} // namespace corvane::test
