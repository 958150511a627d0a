// The encodings of document files.
#pragma once

#include "corvane/platform/Bytes.h"

#include <string>

namespace corvane {

// The name of the encoding that the first bytes of a document show: by a byte-order mark, or by the zeros beside its
// first "<". nullptr when they show none; then its declaration counts.
const char* visibleEncoding(Bytes document);

// A document as UTF-8. `encoding` is a name as declarations have it; the C library knows what it means. Fails with a
// RuntimeFailure (0x80040000) when it does not, and when the bytes are no text in that encoding.
std::string utf8Document(Bytes document, const std::string& encoding);

} // namespace corvane
