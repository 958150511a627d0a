#include "corvane/mpeg/AudioProof.h"

#include "corvane/mpeg/MpegTables.h"
#include "corvane/platform/ByteReader.h"
#include "corvane/platform/FileReader.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

namespace corvane {

namespace {

constexpr std::uint32_t kSync = 0x7FF;
constexpr std::uint32_t kReservedVersion = 1, kReservedLayer = 0, kReservedSamplingRate = 3, kReservedEmphasis = 2;
constexpr std::uint32_t kFreeFormat = 0, kForbiddenBitRate = 15;
constexpr std::uint32_t kLayerIII = 1;
constexpr std::size_t kHeaderSize = 4; // bytes
constexpr std::size_t kEnoughFrames = 10, kFewFrames = 3;

// Hz by version ID and sampling-rate index. MPEG 2.5 has half the rates of MPEG 2.
constexpr std::array<std::array<std::uint32_t, 3>, 4> kSamplingRates{{
    {11025, 12000, 8000},
    {0, 0, 0},
    {22050, 24000, 16000},
    {44100, 48000, 32000},
}};

// No encoder writes free format above 640 kbit/s, which at the lowest rates makes the longest frame, nor frames that
// have no room for the side information of Layer III.
constexpr std::size_t kLongestFreeFrame = 144 * 640'000 / 16'000 + 1, kShortestFreeFrame = 24;
// The longest frame that a header states: Layer II of MPEG 2 with 160 kbit/s at 8000 Hz.
constexpr std::size_t kLongestFrame = 144 * 160'000 / 8'000 + 1;
constexpr std::size_t kReach = kEnoughFrames * kLongestFrame + kHeaderSize;

constexpr std::size_t kMostZeros = std::size_t{1024} * 1024;

bool isFree(HeaderWord header) { return header.bitRateIndex() == kFreeFormat; }

std::uint32_t slotSize(HeaderWord header) { return header.layerId() == kLayerI ? 4 : 1; } // bytes
std::uint32_t paddingSize(HeaderWord header) { return header.paddingBit() ? slotSize(header) : 0; }

std::optional<HeaderWord> headerAt(Bytes bytes, std::size_t at) {
    const auto word = readerAt(bytes, at).number<kHeaderSize>();
    if (!word || !isStandardFrameHeader(HeaderWord(*word))) return std::nullopt;
    return HeaderWord(*word);
}

bool beginsWith(Bytes bytes, std::string_view text) {
    return bytes.size() >= text.size() && std::memcmp(bytes.data(), text.data(), text.size()) == 0;
}

// Whether the bytes after a frame are the end of the file or a tag that ends it.
bool isAudioEnd(Bytes rest) {
    constexpr std::size_t kId3v1RecordSize = 128;
    if (rest.empty() || (rest.size() == kId3v1RecordSize && beginsWith(rest, "TAG"))) return true;
    constexpr std::array<std::string_view, 3> kTagsAtTheEnd{"APETAGEX", "LYRICSBEGIN", "ID3"};
    return std::any_of(kTagsAtTheEnd.begin(), kTagsAtTheEnd.end(),
                       [rest](std::string_view tag) { return beginsWith(rest, tag); });
}

// The frames that follow one another from some position on.
struct Chain {
    std::size_t frames = 0;  // with whole headers; no more than kEnoughFrames are counted
    bool endsAudio = false;  // whether the last one ends where the audio does
    bool isCutShort = false; // whether the file ends inside the last one
};

// The size of a frame of free format without its padding is `freeSize`.
Chain chainAt(Bytes bytes, HeaderWord first, std::size_t at, std::size_t freeSize) {
    Chain chain;
    while (chain.frames < kEnoughFrames) {
        const auto header = at < bytes.size() ? headerAt(bytes, at) : std::nullopt;
        if (!header || !isSameKind(first, *header)) {
            chain.endsAudio = at <= bytes.size() && isAudioEnd(bytes.subspan(at));
            chain.isCutShort = at > bytes.size();
            break;
        }
        ++chain.frames;
        at += isFree(*header) ? freeSize + paddingSize(*header) : standardFrameSize(*header);
    }
    return chain;
}

// Structured data (tables of numbers, compiled programs) hold many words that pass for two or three headers at the
// right distance. Where something else precedes the frame, more of them must follow.
bool isProof(const Chain& chain, bool isCertainPlace) {
    if (chain.frames >= kEnoughFrames) return true;
    if (isCertainPlace) return chain.frames >= 2 || (chain.frames == 1 && chain.endsAudio);
    return chain.frames >= kFewFrames && (chain.endsAudio || chain.isCutShort);
}

// Free format: the next header of the same kind gives the size of all frames. Such headers are so common in other data,
// many of them at even distances, that they count only where the audio begins.
bool beginsInFreeFormat(Bytes bytes, HeaderWord header) {
    for (std::size_t size = kShortestFreeFrame; size <= kLongestFreeFrame; ++size) {
        const auto next = headerAt(bytes, size);
        if (!next || !isSameKind(header, *next)) continue;
        if (isProof(chainAt(bytes, header, 0, size - paddingSize(header)), false)) return true;
    }
    return false;
}

std::uint64_t zerosEnd(FileReader& file, std::uint64_t offset) {
    const std::uint64_t limit = offset + kMostZeros;
    while (offset < limit) {
        const Bytes block = file.view(offset, FileReader::kBlockSize);
        const auto other = std::find_if(block.begin(), block.end(), [](std::uint8_t byte) { return byte != 0; });
        offset += static_cast<std::uint64_t>(other - block.begin());
        if (other != block.end() || block.empty()) break;
    }
    return offset;
}

} // namespace

bool isStandardFrameHeader(HeaderWord header) {
    return header.frameSync() == kSync && header.versionId() != kReservedVersion &&
           header.layerId() != kReservedLayer && header.bitRateIndex() != kForbiddenBitRate &&
           header.samplingRateIndex() != kReservedSamplingRate && header.emphasis() != kReservedEmphasis;
}

bool isSameKind(HeaderWord one, HeaderWord other) {
    return one.versionId() == other.versionId() && one.layerId() == other.layerId() &&
           one.samplingRateIndex() == other.samplingRateIndex() && isFree(one) == isFree(other);
}

// ISO/IEC 11172-3 section 2.4.3.1: a frame of Layer I holds 384 samples in slots of 4 bytes, one of Layer II or III
// 1152 in slots of one byte. ISO/IEC 13818-3 halves the samples of Layer III.
std::uint32_t standardFrameSize(HeaderWord header) {
    if (isFree(header)) return 0;
    const auto kbps = static_cast<std::uint32_t>(
        mpegBitRateKbps(header.versionId(), header.layerId(), header.bitRateIndex(), "standardFrameSize"));
    const std::uint32_t rate = kSamplingRates[header.versionId()][header.samplingRateIndex()];
    const bool isHalf = header.layerId() == kLayerIII && header.versionId() != kVersionMpeg1;
    const std::uint32_t slotsOfOneBit = header.layerId() == kLayerI ? 12 : isHalf ? 72 : 144;
    const std::uint32_t slots = slotsOfOneBit * kbps * 1000 / rate + (header.paddingBit() ? 1 : 0);
    return slots * slotSize(header);
}

std::optional<std::size_t> findProvenFrame(Bytes bytes) {
    const std::size_t positions = std::min(bytes.size(), kSearchedPositions);
    for (std::size_t at = 0; at < positions; ++at) {
        if (bytes[at] != 0xFF) continue;
        const auto header = headerAt(bytes, at);
        if (!header) continue;
        const bool isStart = at == 0;
        if (isFree(*header) ? isStart && beginsInFreeFormat(bytes, *header)
                            : isProof(chainAt(bytes, *header, at, 0), isStart)) {
            return at;
        }
    }
    return std::nullopt;
}

std::optional<std::uint64_t> findProvenFrame(FileReader& file, std::uint64_t offset) {
    const std::uint64_t begin = zerosEnd(file, offset);
    const auto found = findProvenFrame(file.view(begin, kSearchedPositions + kReach));
    return found ? std::optional(begin + *found) : std::nullopt;
}

} // namespace corvane
