// The search for the first frame behind 15,000 bytes without one, beside the least that can be done with these bytes:
// memchr from sync byte to sync byte. The search may take twice as long.
#include "corvane/mpeg/FrameSearch.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/MpegBuilder.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <random>

namespace corvane {
namespace {

constexpr std::size_t kJunkSize = 15'000;

// Random bytes among which the search finds no frame.
ByteArray randomJunk() {
    std::mt19937 random(15'000);
    for (;;) {
        ByteArray junk(kJunkSize);
        for (auto& byte : junk) byte = static_cast<std::uint8_t>(random());
        if (!findFrameHeader(junk)) return junk;
    }
}

ByteArray junkOf(const ByteArray& pattern) {
    ByteArray junk(kJunkSize);
    for (std::size_t i = 0; i < kJunkSize; ++i) junk[i] = pattern[i % pattern.size()];
    return junk;
}

ByteArray withFrame(const ByteArray& junk) { return test::joined({junk, test::mpegHeaderBytes({})}); }

void plainMemchr(benchmark::State& state, const ByteArray& bytes) {
    for (auto _ : state) {
        Bytes rest = bytes;
        benchmark::DoNotOptimize(rest);
        while (const void* const found = std::memchr(rest.data(), 0xFF, rest.size())) {
            benchmark::DoNotOptimize(found);
            rest = rest.subspan(static_cast<std::size_t>(static_cast<const std::uint8_t*>(found) - rest.data()) + 1);
        }
    }
}

void frameSearch(benchmark::State& state, const ByteArray& bytes) {
    for (auto _ : state) {
        Bytes window = bytes;
        benchmark::DoNotOptimize(window);
        auto found = findFrameHeader(window);
        benchmark::DoNotOptimize(found);
        if (!found || found->offset != kJunkSize) state.SkipWithError("the frame was not found");
    }
}

void compare(const std::string& name, const ByteArray& junk) {
    const ByteArray bytes = withFrame(junk);
    benchmark::RegisterBenchmark(("memchr/" + name).c_str(), plainMemchr, bytes);
    benchmark::RegisterBenchmark(("search/" + name).c_str(), frameSearch, bytes);
}

const bool registered = [] {
    compare("zeros", junkOf({0}));
    compare("random", randomJunk());
    compare("all0xFF", junkOf({0xFF}));
    compare("every2ndByte0xFF", junkOf({0xFF, 0}));
    compare("every9thByte0xFF", junkOf({0xFF, 0, 0, 0, 0, 0, 0, 0, 0}));
    return true;
}();

} // namespace
} // namespace corvane

BENCHMARK_MAIN();
