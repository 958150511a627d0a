// Versions of a Lyrics3 tag.
#pragma once

#include <cstdint>

namespace corvane {

enum class ELyricsVersionConstants : std::int32_t {
    lvcUnknown = 0, // no tag
    lvcV100 = 1,    // Lyrics3 v1.00: lyrics only
    lvcV200 = 2     // Lyrics3 v2.00: fields
};

} // namespace corvane
