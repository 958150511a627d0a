// 50 text frames in memory, walked and their texts read: the library's records, beside the least that can be done by
// hand with these bytes and beside TagLib. The budget is 1.5 times the hand-written walk (6 microseconds where that
// takes 4).
#include "corvane/id3v2/FrameGatherer.h"
#include "corvane/id3v2/FrameText.h"
#include "corvane/id3v2/TagFrames.h"

#include "tests/support/Id3v2Builder.h"

#include <benchmark/benchmark.h>
#include <id3v2framefactory.h>
#include <id3v2tag.h>
#include <mpegfile.h>
#include <tbytevectorstream.h>

#include <string>
#include <vector>

namespace corvane {
namespace {

constexpr std::size_t kFrameCount = 50;

// Frames T000;T001; ... of 8 to 40 characters. Every `utf16Every`-th is in UTF-16.
ByteArray bodyOfTexts(std::size_t utf16Every) {
    test::Id3v2Builder tag(3);
    for (std::size_t i = 0; i < kFrameCount; ++i) {
        const std::string number = std::to_string(1000 + i);
        const bool utf16 = utf16Every != 0 && i % utf16Every == 0;
        tag.text("T" + number.substr(1), std::string(8 + i * 7 % 33, 'a'),
                 utf16 ? test::Encoding::Utf16 : test::Encoding::CodePage);
    }
    return tag.padding(512).body();
}

struct PlainFrame {
    std::uint32_t id;
    std::string text;
};

// No checks beyond those that keep it from crashing, no second pass, ASCII in both encodings.
std::vector<PlainFrame> walkedByHand(Bytes body) {
    std::vector<PlainFrame> frames;
    std::size_t position = 0;
    const auto number = [&](std::size_t at) {
        return std::uint32_t{body[at]} << 24 | std::uint32_t{body[at + 1]} << 16 | std::uint32_t{body[at + 2]} << 8 |
               body[at + 3];
    };
    while (position + 10 < body.size() && body[position] != 0) {
        const std::size_t size = number(position + 4);
        if (size > body.size() - position - 10) break;
        const Bytes data = body.subspan(position + 10, size);
        std::string text;
        if (data[0] == 0) {
            text.assign(data.begin() + 1, data.end());
        } else {
            for (std::size_t i = 3; i + 1 < data.size(); i += 2) text.push_back(static_cast<char>(data[i]));
        }
        frames.push_back({number(position), std::move(text)});
        position += 10 + size;
    }
    return frames;
}

void byHand(benchmark::State& state, const ByteArray& body) {
    for (auto _ : state) {
        const auto frames = walkedByHand(body);
        if (frames.size() != kFrameCount) state.SkipWithError("frames are missing");
        benchmark::DoNotOptimize(frames.data());
    }
}

// What a tag in memory takes: records, keys and, through the collection, every text.
void library(benchmark::State& state, const ByteArray& body) {
    for (auto _ : state) {
        FrameGatherer gatherer{ByteArray(body)};
        const bool complete = gatherer.walk(Layout23{}, 0, body.size()).isComplete;
        const auto frames = gatherer.done();
        if (!complete || frames->count() != kFrameCount) state.SkipWithError("frames are missing");
        for (std::size_t i = 0; i < frames->count(); ++i) {
            const FrameRecord& frame = *frames->at(i);
            const std::string text = textData(frame.id, frame.encrypted, frames->payload(frame).bytes());
            benchmark::DoNotOptimize(text.data());
        }
    }
}

// The walk alone.
void walkOnly(benchmark::State& state, const ByteArray& body) {
    for (auto _ : state) {
        FrameGatherer gatherer{ByteArray(body)};
        gatherer.walk(Layout23{}, 0, body.size());
        benchmark::DoNotOptimize(gatherer.done());
    }
}

// A tag with its header, read with TagLib out of memory.
void tagLib(benchmark::State& state, const ByteArray& body) {
    const auto tag = test::Id3v2Builder(3).raw(body).done();
    const TagLib::ByteVector bytes(reinterpret_cast<const char*>(tag.data()), static_cast<unsigned>(tag.size()));
    for (auto _ : state) {
        TagLib::ByteVectorStream stream(bytes);
        TagLib::MPEG::File file(&stream, TagLib::ID3v2::FrameFactory::instance(), false);
        const TagLib::ID3v2::FrameList& frames = file.ID3v2Tag()->frameList();
        if (frames.size() != kFrameCount) state.SkipWithError("frames are missing");
        for (const TagLib::ID3v2::Frame* const frame : frames) {
            const std::string text = frame->toString().to8Bit(true);
            benchmark::DoNotOptimize(text.data());
        }
    }
}

void compare(const std::string& name, std::size_t utf16Every) {
    const ByteArray body = bodyOfTexts(utf16Every);
    benchmark::RegisterBenchmark(("byHand/" + name).c_str(), byHand, body);
    benchmark::RegisterBenchmark(("library/" + name).c_str(), library, body);
    benchmark::RegisterBenchmark(("taglib/" + name).c_str(), tagLib, body);
    benchmark::RegisterBenchmark(("walkOnly/" + name).c_str(), walkOnly, body);
}

const bool registered = [] {
    compare("codePage", 0);
    compare("mixed", 3);
    compare("utf16", 1);
    return true;
}();

} // namespace
} // namespace corvane

BENCHMARK_MAIN();
