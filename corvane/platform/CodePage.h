// The single-byte code page of ID3v1, Lyrics3 and ID3v2 encoding 0: Windows-1252.
//
// Its five undefined bytes (81, 8D, 8F, 90, 9D) stand for the C1 control characters of the same code, as the WHATWG
// Encoding Standard has it, so that every byte survives decoding and encoding.
#pragma once

#include "corvane/platform/Bytes.h"

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

// Every byte as its character, as UTF-8.
std::string decodeCodePage(Bytes bytes);

// The byte of a character, or nothing when the code page has no place for it.
std::optional<std::uint8_t> codePageByte(char32_t character);

// Text in the code page. A character that has no place there becomes "?" and is counted.
struct CodePageText {
    ByteArray bytes;
    std::size_t replacedCount = 0;
};
CodePageText encodeCodePage(std::string_view text);

} // namespace corvane
