#include "corvane/id3v2/RecordIndex.h"

#include "corvane/id3v2/FrameInternals.h"
#include "corvane/id3v230/ID3V230FrameInternals.h"
#include "corvane/id3v230/ID3V230Frames.h"

#include <algorithm>

namespace corvane {

namespace {

// Up to so many records a plain search beats every index.
constexpr std::int32_t kFewRecords = 64;

std::shared_ptr<ID3V230Frame> searched(const ID3V230Frames& records, std::string_view id) {
    const auto found = std::find_if(records.begin(), records.end(),
                                    [id](const auto& record) { return Internals<ID3V23Frame>::idOf(*record) == id; });
    return found == records.end() ? nullptr : *found;
}

} // namespace

bool RecordIndex::isOf(const std::shared_ptr<ID3V230Frames>& records) const {
    return records_ == records && count_ == records->Count() && retypeCount_ == Internals<ID3V230Frame>::retypeCount();
}

void RecordIndex::build(const std::shared_ptr<ID3V230Frames>& records) {
    positions_.clear();
    positions_.reserve(static_cast<std::size_t>(records->Count()));
    for (std::int32_t position = 1; position <= records->Count(); ++position) {
        positions_.emplace_back(Internals<ID3V23Frame>::idOf(*records->Item(position)), position);
    }
    std::sort(positions_.begin(), positions_.end());
    records_ = records;
    count_ = records->Count();
    retypeCount_ = Internals<ID3V230Frame>::retypeCount();
}

std::shared_ptr<ID3V230Frame> RecordIndex::find(const std::shared_ptr<ID3V230Frames>& records, std::string_view id) {
    if (records->Count() <= kFewRecords) return searched(*records, id);
    if (!isOf(records)) build(records);
    const auto found =
        std::ranges::lower_bound(positions_, id, {}, [](const auto& entry) -> std::string_view { return entry.first; });
    return found == positions_.end() || found->first != id ? nullptr : records->Item(found->second);
}

} // namespace corvane
