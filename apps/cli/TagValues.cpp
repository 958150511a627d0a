#include "apps/cli/TagValues.h"

#include "corvane/id3v2/StoredGenre.h"
#include "corvane/platform/Numbers.h"

#include <fmt/core.h>

#include <algorithm>
#include <cstdint>

namespace corvane::cli {

namespace {

bool isDigits(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

void takeTrack(Id3v1Part& part, const std::string& text) {
    part.values.track = parseTrack(text);
    if (part.values.track) return;
    part.values.track = std::uint8_t{0};
    part.lost.push_back(fmt::format("track: ID3v1 has no number {}, only 1 to 255", text));
}

void takeGenre(Id3v1Part& part, const std::string& text) {
    part.values.genre = genreNumber(text);
    if (part.values.genre) return;
    part.values.genre = kNoGenre;
    part.lost.push_back(fmt::format("genre: ID3v1 has no number for \"{}\"", text));
}

} // namespace

bool isTrack(std::string_view text) {
    const std::size_t slash = text.find('/');
    return isDigits(text.substr(0, slash)) && (slash == std::string_view::npos || isDigits(text.substr(slash + 1)));
}

bool isGenre(std::string_view text) { return !isDigits(text) || parseNumber<std::uint8_t>(text).has_value(); }

Id3v1Part id3v1Part(const TagValues& values) {
    Id3v1Part part;
    part.values.title = values.title;
    part.values.artist = values.artist;
    part.values.album = values.album;
    part.values.year = values.year;
    part.values.comment = values.comment;
    if (values.track) takeTrack(part, *values.track);
    if (values.genre) takeGenre(part, *values.genre);
    return part;
}

} // namespace corvane::cli
