#include "corvane/mpeg/MPEGHeader.h"

#include "corvane/mpeg/FrameSearch.h"
#include "corvane/mpeg/FrameValues.h"
#include "corvane/mpeg/HeaderWord.h"
#include "corvane/mpeg/MpegTables.h"
#include "corvane/mpeg/XingHeader.h"
#include "corvane/platform/FilePosition.h"
#include "corvane/platform/FileReader.h"
#include "corvane/platform/Numbers.h"

#include <cmath>
#include <filesystem>

namespace corvane {

bool MPEGHeader::LoadHeaderEx(FileReader& file, std::int32_t StartPosition) {
    return recordFailures(*error_, false, [&] { return loadFrom(file, StartPosition); });
}

bool MPEGHeader::loadFrom(FileReader& file, std::int32_t startPosition) {
    fileSize_ = narrowed<std::int32_t>(file.size(), "LoadHeaderEx");
    const auto frame = findFirstFrame(file, startPosition);
    if (!frame) return false;
    headerWord_ = frame->header.word();
    headerPosition_ = narrowed<std::int32_t>(filePositionOf(static_cast<std::int64_t>(frame->offset)), "LoadHeaderEx");
    // One byte less than the bytes behind the header's first one, and tags at the end count as audio: odd, but hosts
    // rely on the durations that come of it.
    audioSize_ = fileSize_ - headerPosition_ - 1;
    takeXingHeader(file, frame->offset);
    CalculateValues();
    return true;
}

// What an earlier file's Xing header said is never reset, and a later one overwrites only what it has: hosts rely on
// it.
void MPEGHeader::takeXingHeader(FileReader& file, std::uint64_t frameOffset) {
    const auto xing = readXingHeader(file.view(frameOffset, kXingReach), HeaderWord(headerWord_));
    if (!xing) return;
    xingFrameCount_ = xing->frameCount.value_or(xingFrameCount_);
    audioSize_ = xing->audioSize.value_or(audioSize_);
    vbr_ = true;
}

void MPEGHeader::CalculateValues() {
    const HeaderWord header(headerWord_);
    const bool averaged = xingFrameCount_ > 0;
    const double average = averaged ? averageFrameSize(audioSize_, xingFrameCount_) : 0;
    if (!vbr_) {
        bitRateKbps_ = mpegBitRateKbps(header.versionId(), header.layerId(), header.bitRateIndex(), "CalculateValues");
    } else {
        bitRateKbps_ = averaged ? averageBitRate(average, header.layerId(), Frequency()) : -1;
    }
    durationSeconds_ = durationSeconds(audioSize_, bitRateKbps_);
    frameSize_ = averaged ? roundedFrameSize(average)
                          : CalcFrameSize(narrowed<std::int16_t>(BitRate(), "FrameSize"), Frequency(), PaddingBit());
}

// No part of the system calls this, and it never loads: it opens the file only to fail. Hosts know the record.
bool MPEGHeader::LoadHeader(const std::string& FileName, [[maybe_unused]] std::int32_t StartPosition) {
    return recordFailures(*error_, false, [&]() -> bool {
        std::error_code unknown;
        if (!std::filesystem::is_regular_file(FileName, unknown)) return false;
        const FileReader file(FileName);
        throw RuntimeFailure(FailureNumber::ObjectDefined, "LoadHeader", error_->Stream());
    });
}

std::string MPEGHeader::Version() const {
    return std::string(entryAt(kMpegVersionNames, HeaderWord(headerWord_).versionId(), "Version"));
}

std::int32_t MPEGHeader::VersionID() const { return static_cast<std::int32_t>(HeaderWord(headerWord_).versionId()); }

std::string MPEGHeader::Layer() const {
    return std::string(entryAt(kMpegLayerNames, HeaderWord(headerWord_).layerId(), "Layer"));
}

std::int32_t MPEGHeader::LayerID() const { return static_cast<std::int32_t>(HeaderWord(headerWord_).layerId()); }

std::string MPEGHeader::Mode() const {
    return std::string(entryAt(kMpegModeNames, HeaderWord(headerWord_).channelMode(), "Mode"));
}

std::int32_t MPEGHeader::ModeID() const { return static_cast<std::int32_t>(HeaderWord(headerWord_).channelMode()); }

std::int32_t MPEGHeader::BitRate() const { return wholeNumber<std::int32_t>(std::floor(bitRateKbps_), "BitRate"); }

std::int32_t MPEGHeader::Frequency() const {
    const HeaderWord header(headerWord_);
    return mpegFrequencyHz(header.versionId(), header.samplingRateIndex(), "Frequency");
}

bool MPEGHeader::Copyright() const { return HeaderWord(headerWord_).copyrightBit(); }

bool MPEGHeader::Original() const { return HeaderWord(headerWord_).originalBit(); }

// The name is there from the first load on.
std::string MPEGHeader::Emphasis() const {
    return headerWord_ == 0 ? std::string() : std::string(EmphasisName(EmphasisID()));
}

std::int16_t MPEGHeader::EmphasisID() const { return static_cast<std::int16_t>(HeaderWord(headerWord_).emphasis()); }

bool MPEGHeader::PaddingBit() const { return HeaderWord(headerWord_).paddingBit(); }

bool MPEGHeader::PrivateBit() const { return HeaderWord(headerWord_).privateBit(); }

bool MPEGHeader::ProtectionBit() const { return HeaderWord(headerWord_).protectionBit(); }

std::int32_t MPEGHeader::NumFrames() const {
    return xingFrameCount_ > 0 ? xingFrameCount_ : frameCountOf(audioSize_, frameSize_);
}

} // namespace corvane
