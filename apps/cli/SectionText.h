// Sections as lines of text, aligned and wrapped for the reader.
#pragma once

#include "apps/cli/Colours.h"
#include "apps/cli/Section.h"

#include <string>

namespace corvane::cli {

// columns: width of the terminal, to which values are wrapped; 0 wraps nothing.
std::string sectionText(const Section& section, const Colours& colours, unsigned columns);

} // namespace corvane::cli
