#include "corvane/id3v2/Inflate.h"

#include <zlib.h>

#include <algorithm>
#include <new>
#include <utility>

namespace corvane {

namespace {

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

std::optional<ByteArray> inflated(Bytes stream, std::int32_t claimedSize) {
    const std::int64_t mostPossible = kLargestInflation * static_cast<std::int64_t>(stream.size());
    if (claimedSize <= 0 || claimedSize > mostPossible) return std::nullopt;
    // One byte more than claimed: a stream that fills it makes too much.
    const auto limit = static_cast<std::size_t>(claimedSize) + 1;
    Inflater inflater(stream);
    ByteArray bytes(std::min(limit, std::max<std::size_t>(4 * stream.size(), 64)));
    std::size_t done = 0;
    while (true) {
        const auto [answer, written] = inflater.into(std::span(bytes).subspan(done));
        done += written;
        if (done == limit || (answer != Z_OK && answer != Z_STREAM_END)) return std::nullopt;
        if (answer == Z_STREAM_END) break;
        if (done == bytes.size()) bytes.resize(std::min(limit, 2 * bytes.size()));
    }
    bytes.resize(done);
    return bytes;
}

} // namespace corvane
