// Genres as people enter them, and the one form in which they are stored.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

// The number of ID3v1 that an entered genre means: 17 for "17", "(17)", "(17)Rock", "(17)Hard Rock", "Rock" and "rock".
// Neither case nor blanks matter in a name of the genre table. 255 for "", nothing for a text without a number.
std::optional<std::uint8_t> genreNumber(std::string_view entered);

// The content type of an entered genre (ID3v2.3.0 section 4.2.1, TCON). A genre with a number is stored as the
// reference
// "(17)", in whichever way it is entered, because each program reads the name that it knows out of a reference and some
// read two genres out of "(27)Trip -Hop". A text without a number, or with a more precise name after it, such as
// "(17)Hard Rock", is stored as it is. "" for 255, which says that there is no genre.
std::string storedGenre(std::string_view entered);

} // namespace corvane
