// Any bytes are a picture or are none; a picture gives them back unchanged and has a size.
#include "corvane/platform/Picture.h"

#include <algorithm>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const corvane::Bytes bytes{data, size};
    const auto picture = corvane::Picture::fromBytes({bytes.begin(), bytes.end()});
    if (picture == nullptr) return 0;
    if (!std::ranges::equal(picture->bytes(), bytes)) std::abort();
    if (picture->width() < 1 || picture->height() < 1 || picture->handle() == 0) std::abort();
    return 0;
}
