// Genres as people read them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvane {

// The genre that a content type names (ID3v2.3.0 section 4.2.1 TCON, ID3v2.4.0 section 4.2.3): "(17)" and "17" are
// "Rock", "(31)(39)" is "Trance; Noise", "(RX)" is "Remix", "(CR)" is "Cover". A name behind the references is more
// precise than they are and stands alone: "(17)Hard Rock" is "Hard Rock", "((draft)" is "(draft)". A number that names
// no genre stays as it is; 255, which says that there is none, is "".
std::string readableGenre(std::string_view contentType);

// The same for several, joined by "; ", each one once.
std::string readableGenre(const std::vector<std::string>& contentTypes);

} // namespace corvane
