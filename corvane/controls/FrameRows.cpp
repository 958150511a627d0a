#include "corvane/controls/FrameRows.h"

namespace corvane::controls {

namespace {

template <class Frame>
FrameRow rowOf(const Frame& frame) {
    FrameRow row{.frame = frame.ID(), .value = frame.TextData(), .description = {}, .language = {}};
    if (row.value.empty()) row.value = binaryValue(frame.RawData().size());
    if constexpr (requires { frame.Description(); }) {
        row.description = frame.Description();
        row.language = frame.Language();
    }
    return row;
}

template <class Reader>
std::vector<FrameRow> rowsOfReader(const Reader& reader) {
    std::vector<FrameRow> rows;
    for (std::int32_t index = 1; index <= reader.FrameCount(); ++index) {
        if (const auto frame = reader.GetFrameByIndex(index)) rows.push_back(rowOf(*frame));
    }
    return rows;
}

} // namespace

std::string binaryValue(std::size_t byteCount) {
    std::string digits = std::to_string(byteCount);
    for (std::size_t end = digits.size(); end > 3; end -= 3) digits.insert(end - 3, 1, ',');
    return "Binary (" + digits + " Bytes)";
}

std::vector<FrameRow> rowsOf(ID3V2Tag& tag) {
    if (const auto reader = tag.ID3V23Tag()) return rowsOfReader(*reader);
    if (const auto reader = tag.ID3V24Tag()) return rowsOfReader(*reader);
    if (const auto reader = tag.ID3V22Tag()) return rowsOfReader(*reader);
    return {};
}

} // namespace corvane::controls
