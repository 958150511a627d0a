// A value whose type the caller chooses: empty, a number or a text.
#pragma once

#include <cstdint>
#include <string>
#include <variant>

namespace corvane {

// The empty value. Not std::monostate, because a variant whose alternatives all move without failing never counts as
// being without a value in libstdc++ 12: where memory runs out while such a variant is copied, it destroys the value
// that it has not made.
struct NoValue {
    // There is one value only; making and copying it never fails.
    NoValue() = default;
    NoValue(const NoValue&) noexcept {}                           // NOLINT(modernize-use-equals-default): see above
    NoValue& operator=(const NoValue&) noexcept { return *this; } // NOLINT(modernize-use-equals-default)
    ~NoValue() = default;

    // All are equal.
    friend bool operator==(const NoValue&, const NoValue&) { return true; }
};

// Empty, a number or a text.
using Variant = std::variant<NoValue, std::int32_t, std::string>;

} // namespace corvane
