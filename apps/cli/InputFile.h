// A file that a run reads beside the music.
#pragma once

#include "corvane/platform/Bytes.h"

#include <string>

namespace corvane::cli {

// The whole content of a file, or of standard input for "-". Fails with a RuntimeFailure.
ByteArray readInput(const std::string& path);

} // namespace corvane::cli
