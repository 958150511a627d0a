// Which name of a frame is asked for.
#pragma once

#include <cstdint>

namespace corvane {

enum class enumShortOrLongText : std::int32_t {
    eslSHORT = 1, // the four letters
    eslLONG = 2   // the title
};

} // namespace corvane
