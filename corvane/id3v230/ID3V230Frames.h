// The frame records of an ID3V230, in the order of the tag and then of addition.
//
// Positions count from 1. The records are the tag's own, not copies. Setting a property of the tag may add a record at
// the end, also while the records are iterated: iterators and references to records stay valid as long as the
// collection exists, and end() is the end at the moment of its call, so that a loop visits the records of its start.
#pragma once

#include "corvane/id3v230/ID3V230Frame.h"
#include "corvane/platform/Export.h"
#include "corvane/platform/Internals.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <iterator>
#include <memory>
#include <utility>

namespace corvane {

class CORVANE_EXPORT ID3V230Frames {
    // A deque: its elements stay in place when others are added.
    using Records = std::deque<std::shared_ptr<ID3V230Frame>>;

public:
    // A place in the collection.
    class Iterator {
    public:
        // What the standard library asks of a forward iterator: it gives the records as pointers that share them.
        using iterator_category = std::forward_iterator_tag;
        using value_type = std::shared_ptr<ID3V230Frame>;
        using difference_type = std::ptrdiff_t;
        using pointer = const value_type*;
        using reference = const value_type&;

        // Of no collection, to be assigned to.
        Iterator() = default;
        // The record at this place, which must not be the end.
        reference operator*() const { return (*records_)[index_]; }
        pointer operator->() const { return &(*records_)[index_]; }
        // The next place; the second form returns this one.
        Iterator& operator++() {
            ++index_;
            return *this;
        }
        Iterator operator++(int) {
            Iterator before = *this;
            ++index_;
            return before;
        }
        // Whether both are the same place of one collection.
        bool operator==(const Iterator&) const = default;

    private:
        friend class ID3V230Frames;
        Iterator(const Records& records, std::size_t index) : records_(&records), index_(index) {}

        const Records* records_ = nullptr;
        std::size_t index_ = 0;
    };

    // Number of records, deleted ones too.
    std::int32_t Count() const { return static_cast<std::int32_t>(records_.size()); }
    // The record at a position from 1 to Count; nothing for any other.
    std::shared_ptr<ID3V230Frame> Item(std::int32_t Index) const {
        return Index < 1 || Index > Count() ? nullptr : records_[static_cast<std::size_t>(Index) - 1];
    }
    std::shared_ptr<ID3V230Frame> operator[](std::int32_t Index) const { return Item(Index); }

    // The records in order.
    Iterator begin() const { return {records_, 0}; }
    Iterator end() const { return {records_, records_.size()}; }

private:
    friend struct Internals<ID3V230Frames>;
    Records records_;
};

template <>
struct Internals<ID3V230Frames> {
    static void add(ID3V230Frames& frames, std::shared_ptr<ID3V230Frame> record) {
        frames.records_.push_back(std::move(record));
    }
};

} // namespace corvane
