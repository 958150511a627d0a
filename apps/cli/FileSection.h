// What the file system knows about a file and the drive that holds it.
#pragma once

#include "corvane/core/FileHandler.h"

#include "apps/cli/Section.h"

namespace corvane::cli {

Section fileSection(const FileHandler& handler);

} // namespace corvane::cli
