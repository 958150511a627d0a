// How the genre list fills its entries.
#pragma once

#include "corvane/id3v1/Genre.h"
#include "corvane/id3v1/GenreTable.h"

#include <memory>

namespace corvane {

template <>
struct Internals<Genre> {
    static std::shared_ptr<Genre> of(const GenreRow& row) {
        auto genre = std::make_shared<Genre>();
        genre->Num(static_cast<std::int16_t>(row.number));
        genre->Description(row.name);
        return genre;
    }
};

} // namespace corvane
