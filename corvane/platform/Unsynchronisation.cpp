#include "corvane/platform/Unsynchronisation.h"

#include <algorithm>

namespace corvane {

void undoUnsynchronisation(ByteArray& bytes) {
    std::uint8_t previous = 0;
    const auto isStuffing = [&previous](std::uint8_t byte) {
        const bool stuffing = previous == 0xFF && byte == 0;
        previous = byte;
        return stuffing;
    };
    // A plain loop: std::remove_if may copy its predicate, which carries state here.
    auto kept = bytes.begin();
    for (const std::uint8_t byte : bytes) {
        if (!isStuffing(byte)) *kept++ = byte;
    }
    bytes.erase(kept, bytes.end());
}

} // namespace corvane
