// Numbers written as text, and numbers that must fit a narrower type.
#pragma once

#include "corvane/platform/RuntimeFailure.h"

#include <charconv>
#include <concepts>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace corvane {

// The number that the whole of `text` writes in decimal ASCII digits, with a leading "-" for signed types; nothing for
// any other text or a number that the type cannot hold.
template <std::integral Number>
std::optional<Number> parseNumber(std::string_view text) {
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return value;
}

// `value` in a narrower type; an overflow failure, never a wrapped number, when it does not fit.
template <std::integral Narrow, std::integral Wide>
Narrow narrowed(Wide value, const char* source) {
    if (!std::in_range<Narrow>(value)) throw overflowFailure(source);
    return static_cast<Narrow>(value);
}

} // namespace corvane
