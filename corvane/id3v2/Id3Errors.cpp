#include "corvane/id3v2/Id3Errors.h"

#include <array>
#include <cstddef>

namespace corvane {

namespace {

// By error number.
constexpr std::array<std::string_view, 14> kTexts{"No error reported",
                                                  "No available memory",
                                                  "No data to parse",
                                                  "Improperly formatted data",
                                                  "No buffer to write to",
                                                  "Buffer is too small",
                                                  "Invalid frame id",
                                                  "Requested field not found",
                                                  "Unknown field type",
                                                  "Tag is already attached to a file",
                                                  "Invalid tag version",
                                                  "No file to parse",
                                                  "Attempting to write to a read-only file",
                                                  "Error in compression/uncompression"};

} // namespace

std::string_view id3ErrorText(std::int32_t number) {
    const auto index = static_cast<std::size_t>(number);
    return number >= 0 && index < kTexts.size() ? kTexts[index] : "Unknown error";
}

} // namespace corvane
