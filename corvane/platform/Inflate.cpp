#include "corvane/platform/Inflate.h"

#include "corvane/platform/InflationLimit.h"

#include <zlib.h>

#include <array>
#include <cerrno>
#include <limits>
#include <new>
#include <span>
#include <string>
#include <tuple>
#include <utility>

namespace corvane {

namespace {

constexpr std::size_t kScratchSize = std::size_t{32} * 1024; // bytes, the window of deflate

class Inflater { // a zlib stream, released on every way out
public:
    explicit Inflater(Bytes input) {
        stream_.next_in = const_cast<Bytef*>(input.data()); // zlib only reads through it
        stream_.avail_in = static_cast<uInt>(input.size());
        if (inflateInit(&stream_) != Z_OK) throw std::bad_alloc();
    }
    ~Inflater() { inflateEnd(&stream_); }
    Inflater(const Inflater&) = delete;
    Inflater& operator=(const Inflater&) = delete;

    // Fills `target` as far as it goes; zlib's answer and the bytes written.
    std::pair<int, std::size_t> into(std::span<std::uint8_t> target) {
        stream_.next_out = target.data();
        stream_.avail_out = static_cast<uInt>(target.size());
        const int answer = inflate(&stream_, Z_NO_FLUSH);
        return {answer, target.size() - stream_.avail_out};
    }

private:
    z_stream stream_{};
};

} // namespace

InflationBudget::InflationBudget(std::uint64_t fileSize) {
    const std::uint64_t limit = inflationLimit();
    left_ = limit > std::numeric_limits<std::uint64_t>::max() - fileSize ? limit : limit + fileSize;
}

bool InflationBudget::take(std::uint64_t streamSize, std::uint64_t claimedSize) {
    if (claimedSize / static_cast<std::uint64_t>(kLargestInflation) > streamSize) return true;
    if (claimedSize > left_) return false;
    left_ -= claimedSize;
    return true;
}

RuntimeFailure inflationFailure() {
    return {EFBIG, "ID3v2 frame",
            "The compressed frames of a tag may not make more than " + std::to_string(inflationLimit()) +
                " bytes beyond those of its file"};
}

std::optional<std::int32_t> inflatedSize(Bytes stream, std::int32_t claimedSize) {
    const std::int64_t mostPossible = kLargestInflation * static_cast<std::int64_t>(stream.size());
    if (claimedSize <= 0 || claimedSize > mostPossible) return std::nullopt;
    Inflater inflater(stream);
    std::array<std::uint8_t, kScratchSize> scratch;
    std::int64_t size = 0;
    int answer = Z_OK;
    while (answer == Z_OK && size <= claimedSize) {
        std::size_t written = 0;
        std::tie(answer, written) = inflater.into(scratch);
        size += static_cast<std::int64_t>(written);
    }
    if (answer != Z_STREAM_END || size > claimedSize) return std::nullopt;
    return static_cast<std::int32_t>(size);
}

std::optional<ByteArray> inflated(Bytes stream, std::int32_t size) {
    ByteArray bytes(static_cast<std::size_t>(size));
    if (bytes.empty()) return bytes;
    const std::size_t written = Inflater(stream).into(bytes).second;
    return written == bytes.size() ? std::optional(std::move(bytes)) : std::nullopt;
}

} // namespace corvane
