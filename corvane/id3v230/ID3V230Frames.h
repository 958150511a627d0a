// The frame records of an ID3V230, in the order of the tag and then of addition.
//
// Positions count from 1. The records are the tag's own, not copies.
#pragma once

#include "corvane/id3v230/ID3V230Frame.h"
#include "corvane/platform/Export.h"
#include "corvane/platform/Internals.h"

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace corvane {

class CORVANE_EXPORT ID3V230Frames {
public:
    // Number of records, deleted ones too.
    std::int32_t Count() const { return static_cast<std::int32_t>(records_.size()); }
    // The record at a position from 1 to Count; nothing for any other.
    std::shared_ptr<ID3V230Frame> Item(std::int32_t Index) const {
        return Index < 1 || Index > Count() ? nullptr : records_[static_cast<std::size_t>(Index) - 1];
    }
    std::shared_ptr<ID3V230Frame> operator[](std::int32_t Index) const { return Item(Index); }

    // The records in order.
    auto begin() const { return records_.begin(); }
    auto end() const { return records_.end(); }

private:
    friend struct Internals<ID3V230Frames>;
    std::vector<std::shared_ptr<ID3V230Frame>> records_;
};

template <>
struct Internals<ID3V230Frames> {
    static void add(ID3V230Frames& frames, std::shared_ptr<ID3V230Frame> record) {
        frames.records_.push_back(std::move(record));
    }
};

} // namespace corvane
