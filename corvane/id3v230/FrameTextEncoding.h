// The way of text into frames (ID3v2.3.0 section 3.3): one byte a character where that loses nothing, else UTF-16.
#pragma once

#include "corvane/platform/Bytes.h"
#include "corvane/platform/EncodedText.h"

#include <string>
#include <string_view>

namespace corvane {

// Encoding 0 when every character is one of ISO-8859-1, else UTF-16. The characters that only Windows-1252 has are not
// taken for such: other readers see control characters there.
TextEncoding encodingFor(std::string_view text);

// The text as UTF-16 units. Malformed UTF-8 gives U+FFFD.
std::u16string utf16Of(std::string_view text);

// The characters as bytes, for text that encodingFor finds fit for one byte a character.
std::string latin1Of(std::string_view text);

// Appends the text in encoding 0 or UTF-16 (little-endian with its mark), without its end.
void appendString(ByteArray& bytes, std::string_view text, TextEncoding encoding);
// Appends the end of a string.
void appendEnd(ByteArray& bytes, TextEncoding encoding);
// Appends the values of a text, which U+0000 separates; the last one without its end.
void appendValues(ByteArray& bytes, std::string_view text, TextEncoding encoding);

} // namespace corvane
