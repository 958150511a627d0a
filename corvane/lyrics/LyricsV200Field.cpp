#include "corvane/lyrics/LyricsV200Field.h"

#include "corvane/platform/Utf.h"

namespace corvane {

void LyricsV200Field::ID(std::string_view id) {
    std::string fixed;
    for (int count = 0; count < 3; ++count) appendUtf8(fixed, id.empty() ? U' ' : takeCodePoint(id));
    id_ = std::move(fixed);
}

} // namespace corvane
