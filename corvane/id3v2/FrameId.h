// The ID of a frame: 4 characters, or 3 in ID3v2.2, in one number. IDs of different lengths are never equal, since no
// ID begins with a byte 0 (that is padding).
#pragma once

#include "corvane/platform/Bytes.h"

#include <compare>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

struct FrameId {
    std::uint32_t code = 0; // the characters' codes, the last one lowest

    constexpr FrameId() = default;
    constexpr explicit FrameId(std::uint32_t characters) : code(characters) {}
    template <std::size_t Size>
    requires(Size == 4 || Size == 5) constexpr FrameId(const char (&letters)[Size]) { // NOLINT: reads as the text does
        for (std::size_t i = 0; i + 1 < Size; ++i) code = code << 8 | static_cast<std::uint8_t>(letters[i]);
    }

    // The ID that a text names: 3 or 4 characters of one byte each (ISO-8859-1).
    static std::optional<FrameId> named(std::string_view text);

    constexpr std::size_t length() const { return code >> 24 == 0 ? 3 : 4; }
    constexpr char first() const { return static_cast<char>(code >> 8 * (length() - 1)); }
    // Whether nothing is left of it without its blanks.
    constexpr bool isBlank() const { return code == 0x20202020 || code == 0x202020; }
    // The ID as text.
    std::string text() const;

    // clang-tidy 14 takes the 0 with which the compiler compares the result for a pointer.
    friend constexpr auto operator<=>(const FrameId&, const FrameId&) = default; // NOLINT(modernize-use-nullptr)
};

} // namespace corvane
