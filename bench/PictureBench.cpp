// The title of a file whose tag also holds a picture. Only the picture's place has to be known, so the time may not
// grow with it; the limit is the system calls that read the first block.
#include "corvane/core/FileHandler.h"
#include "corvane/id3v2/ID3V2Tag.h"

#include "tests/support/Id3v2Builder.h"
#include "tests/support/ImageBuilder.h"
#include "tests/support/MpegBuilder.h"
#include "tests/support/ScratchFolder.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <fileref.h>
#include <sys/stat.h>
#include <tag.h>
#include <unistd.h>

#include <array>

namespace corvane {
namespace {

const char* const kTitle = "In front of a picture";

void limit(benchmark::State& state, const std::string& path) {
    std::array<std::uint8_t, 4096> block;
    for (auto _ : state) {
        struct stat status {};
        const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
        if (::fstat(descriptor, &status) != 0 || ::pread(descriptor, block.data(), block.size(), 0) < 10)
            state.SkipWithError("cannot read the file");
        ::close(descriptor);
        benchmark::DoNotOptimize(block);
    }
}

void tagLib(benchmark::State& state, const std::string& path) {
    for (auto _ : state) {
        const TagLib::FileRef file(path.c_str(), false);
        if (file.tag()->title() != kTitle) state.SkipWithError("wrong title");
    }
}

void corvane(benchmark::State& state, const std::string& path) {
    for (auto _ : state) {
        FileHandler file;
        if (!file.Create(path) || file.ID3V2Tag()->Title() != kTitle) state.SkipWithError("wrong title");
    }
}

void compare(const test::ScratchFolder& folder, const std::string& name, std::size_t pictureBytes) {
    const auto picture = test::ByteBuilder().bytes(test::pngImage(16, 16)).padTo(pictureBytes, 0x5A).done();
    const auto tag = test::Id3v2Builder(3).text("TIT2", kTitle).frame("APIC", test::pictureFrame(picture)).done();
    const auto path = folder.write(name + ".mp3", test::joined({tag, test::mpegStream({}, 20)}));
    benchmark::RegisterBenchmark(("limit/" + name).c_str(), limit, path);
    benchmark::RegisterBenchmark(("taglib/" + name).c_str(), tagLib, path);
    benchmark::RegisterBenchmark(("corvane/" + name).c_str(), corvane, path);
}

} // namespace
} // namespace corvane

int main(int argumentCount, char** arguments) {
    const corvane::test::ScratchFolder folder;
    corvane::compare(folder, "1K", 1 << 10);
    corvane::compare(folder, "64K", 64 << 10);
    corvane::compare(folder, "1M", 1 << 20);
    corvane::compare(folder, "8M", 8 << 20);
    benchmark::Initialize(&argumentCount, arguments);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
