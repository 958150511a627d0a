#include "corvane/platform/InflationLimit.h"

#include <atomic>

namespace corvane {

namespace {

std::atomic<std::uint64_t> limit = kDefaultInflationLimit;

} // namespace

void setInflationLimit(std::uint64_t bytesBeyondFile) { limit = bytesBeyondFile; }

std::uint64_t inflationLimit() { return limit; }

} // namespace corvane
