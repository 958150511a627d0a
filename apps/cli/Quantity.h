// Quantities as people read them.
#pragma once

#include <cstdint>
#include <string>

namespace corvane::cli {

// "1,234,567".
std::string grouped(std::int64_t number);
// "1,234 bytes"; from one mebibyte on also the rounded size: "5,242,880 bytes (5.0 MiB)".
std::string byteText(std::uint64_t bytes);
// "12.3 GiB", "17 bytes".
std::string roundedByteText(std::uint64_t bytes);
// "4:10", "1:02:03".
std::string durationText(std::int32_t seconds);

} // namespace corvane::cli
