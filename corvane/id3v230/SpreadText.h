// Text spread with blanks, "ab" as "a b ": the form in which the identifier of a UFID frame is kept. Odd on purpose:
// the published format knows no such blanks, but hosts find their identifiers by them.
#pragma once

#include "corvane/platform/Bytes.h"

#include <string>
#include <string_view>

namespace corvane {

// Each character of the text and a blank behind it, in the code page; as UTF-8 where the code page has no place for one
// of them.
ByteArray spreadText(std::string_view text);

// The text of spread data, of either form; data that are not spread, as they stand, in the code page.
std::string unspreadText(Bytes data);

} // namespace corvane
