// The technical data of the first MPEG audio frame.
#pragma once

#include "corvane/mpeg/MPEGHeader.h"

#include "apps/cli/Section.h"

namespace corvane::cli {

Section audioSection(const MPEGHeader& header);

} // namespace corvane::cli
