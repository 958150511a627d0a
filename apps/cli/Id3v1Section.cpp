#include "apps/cli/Id3v1Section.h"

#include "corvane/id3v1/GenreTable.h"

#include <fmt/core.h>

namespace corvane::cli {

namespace {

std::string genreLine(int genre) {
    const std::string_view name = genreName(genre);
    return name.empty() ? fmt::format("no name ({})", genre) : fmt::format("{} ({})", name, genre);
}

} // namespace

Section id3v1Section(const ID3V1Tag& tag) {
    const bool hasTrack = tag.TagType() == EID3TagConstants::ID3V11;
    Section section{hasTrack ? "ID3v1.1 tag" : "ID3v1 tag",
                    {{"", "Title", tag.Title()},
                     {"", "Artist", tag.Artist()},
                     {"", "Album", tag.Album()},
                     {"", "Year", tag.Year()},
                     {"", "Comment", tag.Comment()}}};
    if (hasTrack) section.rows.push_back({"", "Track", fmt::format("{}", tag.Track())});
    section.rows.push_back({"", "Genre", genreLine(tag.Genre())});
    return section;
}

} // namespace corvane::cli
