#include "tests/support/MpegBuilder.h"

#include "tests/support/ByteBuilder.h"

namespace corvane::test {

namespace {

// ISO/IEC 11172-3 section 2.4.2.3 and ISO/IEC 13818-3 section 2.4.2.3, as their columns stand: kbit/s by index, for
// MPEG 1 Layer I, II, III and MPEG 2 Layer I, II and III.
constexpr unsigned kStandardBitRates[15][5] = {
    {0, 0, 0, 0, 0},           {32, 32, 32, 32, 8},       {64, 48, 40, 48, 16},     {96, 56, 48, 56, 24},
    {128, 64, 56, 64, 32},     {160, 80, 64, 80, 40},     {192, 96, 80, 96, 48},    {224, 112, 96, 112, 56},
    {256, 128, 112, 128, 64},  {288, 160, 128, 144, 80},  {320, 192, 160, 160, 96}, {352, 224, 192, 176, 112},
    {384, 256, 224, 192, 128}, {416, 320, 256, 224, 144}, {448, 384, 320, 256, 160}};

// Hz by version and sampling-rate index.
constexpr unsigned kStandardFrequencies[4][3] = {
    {11025, 12000, 8000}, {0, 0, 0}, {22050, 24000, 16000}, {44100, 48000, 32000}};

constexpr bool isMpeg1(const MpegFrame& frame) { return frame.version == 3; }

std::size_t sideInformationSize(const MpegFrame& frame) {
    const bool mono = frame.mode == 3;
    if (isMpeg1(frame)) return mono ? 17 : 32;
    return mono ? 9 : 17;
}

} // namespace

std::uint32_t headerWord(const MpegFrame& frame) {
    std::uint32_t word = 2047;
    const auto append = [&word](unsigned width, unsigned value) { word = word << width | value; };
    append(2, frame.version);
    append(2, frame.layer);
    append(1, frame.crc ? 0 : 1);
    append(4, frame.bitRateIndex);
    append(2, frame.samplingRateIndex);
    append(1, frame.padding ? 1 : 0);
    append(1, frame.privateBit ? 1 : 0);
    append(2, frame.mode);
    append(2, frame.modeExtension);
    append(1, frame.copyright ? 1 : 0);
    append(1, frame.original ? 1 : 0);
    append(2, frame.emphasis);
    return word;
}

unsigned standardBitRateKbps(const MpegFrame& frame) {
    if (frame.layer == 0 || frame.bitRateIndex > 14) return 0;
    const unsigned mpeg1Column = 3 - frame.layer;
    const unsigned mpeg2Column = frame.layer == 3 ? 3 : 4;
    return kStandardBitRates[frame.bitRateIndex][isMpeg1(frame) ? mpeg1Column : mpeg2Column];
}

unsigned standardFrequencyHz(const MpegFrame& frame) {
    return frame.samplingRateIndex < 3 ? kStandardFrequencies[frame.version][frame.samplingRateIndex] : 0;
}

std::size_t standardFrameSize(const MpegFrame& frame) {
    const std::size_t bitsPerSecond = standardBitRateKbps(frame) * std::size_t{1000};
    const std::size_t frequency = standardFrequencyHz(frame);
    if (bitsPerSecond == 0 || frequency == 0) return 0;
    const std::size_t padding = frame.padding ? 1 : 0;
    if (frame.layer == 3) return (12 * bitsPerSecond / frequency + padding) * 4;
    const std::size_t coefficient = frame.layer == 1 && !isMpeg1(frame) ? 72 : 144;
    return coefficient * bitsPerSecond / frequency + padding;
}

ByteArray mpegHeaderBytes(const MpegFrame& frame) { return ByteBuilder().bigEndian(headerWord(frame), 4).done(); }

ByteArray mpegFrame(const MpegFrame& frame) {
    return ByteBuilder().bytes(mpegHeaderBytes(frame)).padTo(standardFrameSize(frame)).done();
}

ByteArray mpegStream(const MpegFrame& frame, std::size_t count) {
    const ByteArray one = mpegFrame(frame);
    ByteBuilder stream;
    for (std::size_t i = 0; i < count; ++i) stream.bytes(one);
    return stream.done();
}

ByteArray xingFrame(const MpegFrame& frame, const XingFields& xing) {
    ByteBuilder whole;
    whole.bytes(mpegHeaderBytes(frame)).repeat(0, sideInformationSize(frame));
    whole.text("Xing").bigEndian(xing.flags, 4);
    if ((xing.flags & 1U) != 0) whole.bigEndian(xing.frames, 4);
    if ((xing.flags & 2U) != 0) whole.bigEndian(xing.bytes, 4);
    return whole.padTo(standardFrameSize(frame)).done();
}

} // namespace corvane::test
