// The values of a file's summary under the names that scripts know, in the order in which they are listed. Names and
// order are a promise.
#pragma once

#include "corvane/core/FileSummary.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace corvane::scan {

struct TextValue {
    std::string_view name;
    std::string FileSummary::*text;
};

struct NumberValue {
    std::string_view name;
    std::int32_t FileSummary::*number;
};

// Behind "path".
inline constexpr std::array kTexts{
    TextValue{"title", &FileSummary::title},    TextValue{"artist", &FileSummary::artist},
    TextValue{"album", &FileSummary::album},    TextValue{"year", &FileSummary::year},
    TextValue{"track", &FileSummary::track},    TextValue{"genre", &FileSummary::genre},
    TextValue{"comment", &FileSummary::comment}};

// Behind the texts; "vbr" and "tags" follow.
inline constexpr std::array kNumbers{NumberValue{"duration", &FileSummary::durationSeconds},
                                     NumberValue{"bitRate", &FileSummary::bitRateKbps},
                                     NumberValue{"frequency", &FileSummary::frequencyHz}};

} // namespace corvane::scan
