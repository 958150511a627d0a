#include "corvane/platform/Unsynchronisation.h"

#include "corvane/platform/ByteReader.h"

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

bool isUnsynchronised(Bytes bytes) {
    constexpr std::uint8_t kSync = 0xE0; // and above: with an FF before it, the start of an audio frame
    ByteReader reader(bytes);
    while (const auto byte = reader.number<1>()) {
        if (*byte != 0xFF) continue;
        const auto next = ByteReader(reader).number<1>();
        if (next && *next >= kSync) return false;
        if (!next || *next != 0) continue;
        reader.take(1);
        const auto protectedByte = ByteReader(reader).number<1>();
        if (protectedByte && *protectedByte != 0 && *protectedByte < kSync) return false;
    }
    return true;
}

} // namespace corvane
