#include "corvane/id3v1/Genres.h"

#include "corvane/id3v1/GenreInternals.h"
#include "corvane/id3v1/GenreTable.h"
#include "corvane/platform/Numbers.h"

#include <optional>
#include <string>

namespace corvane {

namespace {

// Where the entry with a key stands. A key is a number as decimal text writes it, so "07" is none.
std::optional<std::size_t> offsetOfKey(std::string_view key) {
    const auto number = parseNumber<std::uint16_t>(key);
    if (!number || (key.size() > 1 && key.front() == '0')) return std::nullopt;
    return genreOffset(*number);
}

} // namespace

Genres::Genres() = default;

Genres::~Genres() = default;

std::shared_ptr<Genre> Genres::Item(const Variant& vntIndexKey) const {
    if (const auto* key = std::get_if<std::string>(&vntIndexKey)) return getGenreByID(*key);
    if (const auto* position = std::get_if<std::int32_t>(&vntIndexKey)) return getGenreByIndex(*position);
    return nullptr;
}

std::int32_t Genres::Count() const { return static_cast<std::int32_t>(kGenreTable.size()); }

std::shared_ptr<Genre> Genres::getGenreByID(std::string_view FieldID) const {
    const auto offset = offsetOfKey(FieldID);
    return offset ? entryAt(*offset) : nullptr;
}

std::shared_ptr<Genre> Genres::getGenreByIndex(std::int32_t Index) const {
    return Index >= 1 && Index <= Count() ? entryAt(static_cast<std::size_t>(Index - 1)) : nullptr;
}

std::shared_ptr<Genre> Genres::entryAt(std::size_t offset) const {
    if (entries_.empty()) entries_.resize(kGenreTable.size());
    auto& entry = entries_[offset];
    if (!entry) entry = Internals<Genre>::of(kGenreTable[offset]);
    return entry;
}

} // namespace corvane
