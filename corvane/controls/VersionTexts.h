// What the library says of itself.
#pragma once

namespace corvane::controls {

inline constexpr const char* kCompanyName = "The Corvane authors";
inline constexpr const char* kProductName = "Corvane";
inline constexpr const char* kLegalCopyright = "Copyright © 2026 The Corvane authors";

} // namespace corvane::controls
