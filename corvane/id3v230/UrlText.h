// Addresses in W frames, which have one byte a character (ID3v2.3.0 section 4.3).
#pragma once

#include <string>
#include <string_view>

namespace corvane {

// The address with every character outside ISO-8859-1 written as addresses write it: "%" and two hexadecimal digits
// for each of its bytes in UTF-8.
std::string escapedUrl(std::string_view url);

} // namespace corvane
