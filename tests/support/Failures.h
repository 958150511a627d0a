// What an operation raises.
#pragma once

#include "corvane/platform/RuntimeFailure.h"

#include <cstdint>
#include <optional>

namespace corvane::test {

// The failure that `body` raises, if it does.
std::optional<RuntimeFailure> failureOf(const auto& body) {
    try {
        body();
    } catch (const RuntimeFailure& failure) {
        return failure;
    }
    return std::nullopt;
}

// Its number; 0 for success.
std::int32_t failureNumberOf(const auto& body) {
    const auto failure = failureOf(body);
    return failure ? failure->number() : 0;
}

} // namespace corvane::test
