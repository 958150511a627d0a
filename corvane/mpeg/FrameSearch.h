// The search for the first MPEG audio frame of a file.
//
// The rule: positions p = StartPosition, StartPosition + 1, ... of the file are examined one after the other until a
// 4-byte word at p is accepted by IsFrameHeader. The search ends without a frame when p > StartPosition + 15000 or
// p + 4 >= file size (positions count from 1, so two bytes of the file must follow the word). The search here looks at
// blocks instead of bytes, and gives exactly the results of that rule.
#pragma once

#include "corvane/mpeg/HeaderWord.h"
#include "corvane/platform/Bytes.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace corvane {

class FileReader;

inline constexpr std::size_t kMpegHeaderBytes = 4;
inline constexpr std::size_t kExaminedPositions = 15'001;

struct FoundFrame {
    std::uint64_t offset = 0; // of the header's first byte
    HeaderWord header;

    friend bool operator==(const FoundFrame&, const FoundFrame&) = default;
};

// The number of bytes behind `startOffset` that the search of a file of `fileSize` bytes may look at.
std::size_t searchWindowSize(std::int64_t startOffset, std::uint64_t fileSize);

// The first word of the window that IsFrameHeader accepts; its offset counts from the front of the window.
std::optional<FoundFrame> findFrameHeader(Bytes window);

// The first frame of a file from a 1-based position. Looks at a small block first and at the rest of the window only
// when there is no frame in it. Fails with errno's number when the file cannot be read, or with EINVAL when there is
// something to search and the position lies before the file.
std::optional<FoundFrame> findFirstFrame(FileReader& file, std::int32_t startPosition);

} // namespace corvane
