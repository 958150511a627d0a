#include "corvane/id3v2/GenreText.h"

namespace corvane {

namespace {

// Index of the ")" of a leading "(...)"; npos when the text has none.
std::size_t endOfReference(std::string_view contentType) {
    return contentType.starts_with('(') ? contentType.find(')') : std::string_view::npos;
}

} // namespace

std::string genreIdOf(std::string_view contentType) {
    const std::size_t end = endOfReference(contentType);
    return std::string(end == std::string_view::npos ? contentType : contentType.substr(1, end - 1));
}

std::string genreNameOf(std::string_view contentType) {
    const std::size_t end = endOfReference(contentType);
    return std::string(end == std::string_view::npos ? contentType : contentType.substr(end + 1));
}

} // namespace corvane
