// A value whose type the caller chooses: empty, a number or a text.
#pragma once

#include <cstdint>
#include <string>
#include <variant>

namespace corvane {

using Variant = std::variant<std::monostate, std::int32_t, std::string>;

} // namespace corvane
