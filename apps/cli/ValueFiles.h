// Values that are given as files.
#pragma once

#include "corvane/platform/Picture.h"

#include <memory>
#include <string>

namespace corvane::cli {

// The text of a file, or of standard input for "-": UTF-8 with or without a byte-order mark, else Windows-1252. Lines
// end with a line feed, the last one with nothing. Fails with a FileFailure when it is no text, with a RuntimeFailure
// when it cannot be read.
std::string textIn(const std::string& path);

// The picture in a file, or on standard input. Fails like textIn.
std::shared_ptr<Picture> pictureIn(const std::string& path);

} // namespace corvane::cli
