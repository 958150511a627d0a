// Inflating a compressed frame (zlib, RFC 1950).
#pragma once

#include "corvane/platform/Bytes.h"
#include "corvane/platform/RuntimeFailure.h"

#include <cstdint>
#include <optional>

namespace corvane {

// Deflate makes at most 1032 bytes of one (258 bytes of a length code of 2 bits).
inline constexpr std::int64_t kLargestInflation = 1032;

// What the compressed frames of one tag may make together: the size of their file and what inflationLimit allows.
class InflationBudget {
public:
    explicit InflationBudget(std::uint64_t fileSize);

    // Whether a stream that claims to make so many bytes may be inflated, besides those before it. One that may not
    // uses nothing up, and nor does one whose claim cannot be true.
    bool take(std::uint64_t streamSize, std::uint64_t claimedSize);

private:
    std::uint64_t left_;
};

// The failure of a frame that no budget was left for.
RuntimeFailure inflationFailure();

// How many bytes come out of the stream, which may be fewer than `claimedSize` but not more; bytes behind the end of
// the stream are ignored. Nothing when the stream is damaged or cut, makes more than it claims, or claims nothing or
// more than its bytes can hold. Takes no memory for what comes out.
std::optional<std::int32_t> inflatedSize(Bytes stream, std::int32_t claimedSize);

// The first `size` bytes that come out, where inflatedSize has told how many there are. Nothing when there are fewer.
std::optional<ByteArray> inflated(Bytes stream, std::int32_t size);

} // namespace corvane
