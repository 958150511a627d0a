// Formats that are not bare MPEG audio, recognised by the bytes with which they begin: pictures, other audio and video,
// documents, archives and programs.
#pragma once

#include "corvane/platform/Bytes.h"

#include <cstddef>
#include <string_view>

namespace corvane {

// Bytes from the start of a file that are enough to recognise each of them.
inline constexpr std::size_t kForeignFormatBytes = 4096;

// What begins with these bytes, with its article: "a JPEG image". "" where no other format is recognised. `head` holds
// the first kForeignFormatBytes of a file, or all of a shorter one.
std::string_view foreignFormat(Bytes head);

} // namespace corvane
