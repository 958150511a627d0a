// The list of genres: 0 to 147 in ascending order, then 255 "<Undefined>".
//
// An entry is found by its key, which is its number as decimal text, or by its position, which counts from 1. So genre
// n is getGenreByID of n's text, and getGenreByIndex(n + 1) for 0 to 147 only.
//
// Every list has entries of its own, made when they are first asked for: creating a list costs next to nothing, and an
// entry that a host changes is changed in this list alone. Different threads may use different lists.
#pragma once

#include "corvane/id3v1/Genre.h"
#include "corvane/platform/Export.h"
#include "corvane/platform/Variant.h"

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string_view>
#include <vector>

namespace corvane {

class CORVANE_EXPORT Genres {
public:
    class Iterator;

    // The whole list.
    Genres();
    ~Genres();
    Genres(const Genres&) = delete; // a copy would have to share its entries, or to lose a host's changes
    Genres& operator=(const Genres&) = delete;

    // The entry at a position (number) or with a key (text); nothing when there is none.
    std::shared_ptr<Genre> Item(const Variant& vntIndexKey) const;
    std::shared_ptr<Genre> operator[](const Variant& vntIndexKey) const { return Item(vntIndexKey); }
    // 149.
    std::int32_t Count() const;
    // The entry whose key is FieldID ("0" to "147", "255"); nothing when there is none.
    std::shared_ptr<Genre> getGenreByID(std::string_view FieldID) const;
    // The entry at a position from 1 to Count; nothing for any other.
    std::shared_ptr<Genre> getGenreByIndex(std::int32_t Index) const;

    // The entries in order.
    Iterator begin() const;
    Iterator end() const;

private:
    std::shared_ptr<Genre> entryAt(std::size_t offset) const;

    // By offset in the table. Empty until an entry is asked for; an entry that nobody asked for is nothing.
    mutable std::vector<std::shared_ptr<Genre>> entries_;
};

// Goes through a list in its order. The list must live as long.
class Genres::Iterator {
public:
    // What the standard library asks of an input iterator.
    using iterator_category = std::input_iterator_tag;
    using value_type = std::shared_ptr<Genre>;
    using difference_type = std::ptrdiff_t;
    using pointer = void;
    using reference = value_type;

    // The operations of an input iterator; those of a default-made one may only be to assign and to compare.
    Iterator() = default;
    value_type operator*() const { return genres_->getGenreByIndex(position_); }
    Iterator& operator++() {
        ++position_;
        return *this;
    }
    Iterator operator++(int) {
        const Iterator before = *this;
        ++position_;
        return before;
    }
    bool operator==(const Iterator&) const = default;

private:
    friend class Genres;
    Iterator(const Genres& genres, std::int32_t position) : genres_(&genres), position_(position) {}

    const Genres* genres_ = nullptr;
    std::int32_t position_ = 1; // counts from 1
};

inline Genres::Iterator Genres::begin() const { return {*this, 1}; }
inline Genres::Iterator Genres::end() const { return {*this, Count() + 1}; }

} // namespace corvane
