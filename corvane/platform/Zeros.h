// Whether bytes are all 0, as padding is.
#pragma once

#include "corvane/platform/Bytes.h"

#include <cstring>

namespace corvane {

inline bool isAllZero(Bytes bytes) {
    // Each byte equals the one before it: the library's comparison looks at many of them at once.
    return bytes.empty() || (bytes[0] == 0 && std::memcmp(bytes.data(), bytes.data() + 1, bytes.size() - 1) == 0);
}

} // namespace corvane
