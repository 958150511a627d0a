// Another limit for what compressed frames make, as long as the object lives.
#pragma once

#include "corvane/platform/InflationLimit.h"

#include <cstdint>

namespace corvane::test {

class ScopedInflationLimit {
public:
    explicit ScopedInflationLimit(std::uint64_t bytesBeyondFile) { setInflationLimit(bytesBeyondFile); }
    ~ScopedInflationLimit() { setInflationLimit(kDefaultInflationLimit); }
    ScopedInflationLimit(const ScopedInflationLimit&) = delete;
    ScopedInflationLimit& operator=(const ScopedInflationLimit&) = delete;
};

} // namespace corvane::test
