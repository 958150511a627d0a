#include "apps/cli/AudioSection.h"

#include "corvane/mpeg/MPEGHeaderInternals.h"
#include "corvane/platform/FilePosition.h"
#include "corvane/platform/RuntimeFailure.h"

#include "apps/cli/Quantity.h"

#include <fmt/core.h>

#include <array>

namespace corvane::cli {

namespace {

struct Flag {
    const char* name;
    bool (MPEGHeader::*isSet)() const;
};
constexpr std::array kFlags{Flag{"CRC", &MPEGHeader::CRC}, Flag{"copyright", &MPEGHeader::Copyright},
                            Flag{"original", &MPEGHeader::Original}, Flag{"padding", &MPEGHeader::PaddingBit},
                            Flag{"private", &MPEGHeader::PrivateBit}};

std::string flagsText(const MPEGHeader& header) {
    std::string text;
    for (const Flag& flag : kFlags) {
        if ((header.*flag.isSet)()) text.append(text.empty() ? "" : ", ").append(flag.name);
    }
    return text.empty() ? "none" : text;
}

std::string bitRateText(const MPEGHeader& header) {
    const char* kind = header.VBR() ? "variable" : "constant";
    try {
        const std::int32_t bitRate = header.BitRate();
        if (bitRate < 0) return fmt::format("unknown ({})", kind);
        return fmt::format("{} kbit/s ({}{})", bitRate, kind, header.VBR() ? ", average" : "");
    } catch (const RuntimeFailure&) { // a VBR header that lies can make it any number
        return fmt::format("unknown ({})", kind);
    }
}

std::string durationLine(std::int32_t seconds) {
    return seconds < 0 ? "unknown" : fmt::format("{} ({} s)", durationText(seconds), seconds);
}

} // namespace

Section audioSection(const MPEGHeader& header) {
    const std::int32_t position = Internals<MPEGHeader>::headerPosition(header);
    if (position == 0) return {"Audio", {{"", "Frames", "no MPEG audio frame found"}}};
    return {"Audio",
            {{"", "Format", fmt::format("{} Layer {}", header.Version(), header.Layer())},
             {"", "Mode", header.Mode()},
             {"", "Bit rate", bitRateText(header)},
             {"", "Frequency", fmt::format("{} Hz", header.Frequency())},
             {"", "Duration", durationLine(header.Duration())},
             {"", "Frames", fmt::format("{} of {} bytes", grouped(header.NumFrames()), grouped(header.FrameSize()))},
             {"", "Audio size", byteText(static_cast<std::uint64_t>(header.AudioSize()))},
             {"", "First frame", fmt::format("at byte {}", grouped(offsetOf(position)))},
             {"", "Emphasis", header.Emphasis()},
             {"", "Flags", flagsText(header)}}};
}

} // namespace corvane::cli
