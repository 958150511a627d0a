// The cursor through which every parser reads file bytes. A read that does not fit returns nothing and moves nothing,
// so a length found in a file can never lead past the bytes that are really there.
#pragma once

#include "corvane/platform/Bytes.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace corvane {

class ByteReader {
public:
    constexpr explicit ByteReader(Bytes bytes) : rest_(bytes) {}

    // Bytes not yet taken.
    constexpr std::size_t left() const { return rest_.size(); }

    // The next `count` bytes.
    constexpr std::optional<Bytes> take(std::size_t count) {
        if (count > rest_.size()) return std::nullopt;
        const Bytes head = rest_.first(count);
        rest_ = rest_.subspan(count);
        return head;
    }

    // Everything that is left.
    constexpr Bytes takeRest() {
        const Bytes all = rest_;
        rest_ = {};
        return all;
    }

    // The next N bytes as a big-endian number.
    template <std::size_t N>
    requires(N >= 1 && N <= 4) constexpr std::optional<std::uint32_t> number() {
        const auto bytes = take(N);
        if (!bytes) return std::nullopt;
        std::uint32_t value = 0;
        for (const std::uint8_t byte : *bytes) value = value << 8 | byte;
        return value;
    }

private:
    Bytes rest_;
};

// A reader that stands at `offset` of `bytes`; one with nothing left when the offset lies past the end.
constexpr ByteReader readerAt(Bytes bytes, std::size_t offset) {
    return ByteReader(offset > bytes.size() ? Bytes{} : bytes.subspan(offset));
}

} // namespace corvane
