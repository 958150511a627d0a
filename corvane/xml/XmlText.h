// Text on its way into and out of XML documents.
#pragma once

#include "corvane/platform/Bytes.h"

#include <string>
#include <string_view>

namespace corvane {

// The text with every character that XML 1.0 forbids (production 2 of the recommendation), and every malformed
// sequence, replaced by U+FFFD.
std::string xmlCharacters(std::string_view text);

// A document's UTF-8 text as the ISO-8859-1 bytes that its declaration promises. Characters that have no byte there,
// and the C1 controls that many programs take for Windows-1252, are written as character references; the document may
// hold them in text and attribute values only.
std::string latin1Document(std::string_view document);

// RFC 4648 base64, padded, in one line.
std::string base64(Bytes bytes);

} // namespace corvane
