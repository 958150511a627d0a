// A MusicMatch tag, section by section.
#pragma once

#include "corvane/platform/Bytes.h"

#include <cstddef>
#include <cstdint>

namespace corvane::test {

struct MusicMatchTag {
    bool hasHeader = false;
    std::size_t imageSize = 0;
    std::size_t metadataSize = 7868;
    std::uint32_t writtenAt = 1;     // where the tag stood when its offsets were written
    std::uint32_t versionOffset = 0; // told instead of the right one
    const char* versionInfo = "18273645\0\0"
                              "3.05"; // 14 bytes that begin the section
};

ByteArray musicMatch(const MusicMatchTag& tag);

} // namespace corvane::test
