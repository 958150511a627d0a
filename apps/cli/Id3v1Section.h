// The fields of an ID3v1 record.
#pragma once

#include "corvane/id3v1/ID3V1Tag.h"

#include "apps/cli/Section.h"

namespace corvane::cli {

Section id3v1Section(const ID3V1Tag& tag);

} // namespace corvane::cli
