// Saving a changed title: in place, where the tag keeps its size, and by a safe replacement of a file of 10 MB, where
// it grows. The limit in place is the system calls that read and write the tag; for the replacement it is `cp`.
//
// The files are made in the system's temporary folder (TMPDIR), whose medium makes much of the time.
#include "corvane/id3v230/ID3V230Internals.h"

#include "bench/Flushing.h"
#include "tests/support/Id3v2Builder.h"
#include "tests/support/ScratchFolder.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <mpegfile.h>
#include <spawn.h>
#include <sys/wait.h>
#include <tag.h>
#include <unistd.h>

#include <array>
#include <filesystem>

extern char** environ;

namespace corvane {
namespace {

using Updatable = Internals<ID3V230>;

constexpr std::size_t kSmallFile = 300'000; // bytes of audio
constexpr std::size_t kLargeFile = 10 * 1024 * 1024;
constexpr std::array<const char*, 2> kTitles{"one title", "and a longer one in its place"};

ByteArray content(std::size_t audio, std::size_t padding) {
    const ByteArray tag = test::Id3v2Builder(3)
                              .text("TIT2", "a title")
                              .text("TPE1", "an artist")
                              .text("TALB", "an album")
                              .text("TRCK", "3/12")
                              .padding(padding)
                              .done();
    return test::joined({tag, ByteArray(audio, 0x55)});
}

// ---- in place

void limitInPlace(benchmark::State& state, const std::string& path, bool flushes) {
    bench::flushes(flushes);
    std::array<std::uint8_t, 2148> tag{};
    std::size_t round = 0;
    for (auto _ : state) {
        const int file = ::open(path.c_str(), O_RDWR | O_CLOEXEC);
        if (::pread(file, tag.data(), tag.size(), 0) < 10) state.SkipWithError("cannot read the file");
        tag[100] = static_cast<std::uint8_t>(++round);
        if (::pwrite(file, tag.data(), tag.size(), 0) < 10) state.SkipWithError("cannot write the file");
        ::fdatasync(file);
        ::close(file);
    }
}

void saveInPlace(benchmark::State& state, const std::string& path, bool flushes) {
    bench::flushes(flushes);
    ID3V230 tag;
    tag.UseTempCopy(false);
    if (!Updatable::LoadFromFile(tag, path)) state.SkipWithError("cannot read the tag");
    std::size_t round = 0;
    for (auto _ : state) {
        tag.Title(kTitles[++round % kTitles.size()]);
        if (!Updatable::SaveTag(tag)) state.SkipWithError("cannot save the tag");
    }
}

void tagLibInPlace(benchmark::State& state, const std::string& path) {
    TagLib::MPEG::File file(path.c_str(), false);
    std::size_t round = 0;
    for (auto _ : state) {
        file.tag()->setTitle(kTitles[++round % kTitles.size()]);
        if (!file.save(TagLib::MPEG::File::ID3v2, TagLib::MPEG::File::StripNone, TagLib::ID3v2::v3))
            state.SkipWithError("cannot save the tag");
    }
}

// ---- growing

void restore(benchmark::State& state, const std::string& original, const std::string& path) {
    state.PauseTiming();
    std::filesystem::copy_file(original, path, std::filesystem::copy_options::overwrite_existing);
    state.ResumeTiming();
}

// The file that `cp` copies is on the medium as well.
void bringToMedium(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    ::fsync(file);
    ::close(file);
}

// Both `cp` and the save find the file as it is after a copy of `original` has been brought to the medium.
void prepare(const std::string& original, const std::string& path) {
    std::filesystem::copy_file(original, path, std::filesystem::copy_options::overwrite_existing);
    bringToMedium(path);
}

void copyByCp(benchmark::State& state, const std::string& original, const std::string& path) {
    std::string program = "/bin/cp";
    std::string from = path;
    std::string to = path + ".copy";
    std::array<char*, 4> words{program.data(), from.data(), to.data(), nullptr};
    for (auto _ : state) {
        std::filesystem::remove(to);
        prepare(original, path);
        const double start = bench::secondsNow();
        pid_t child = 0;
        int status = 0;
        if (::posix_spawn(&child, program.c_str(), nullptr, nullptr, words.data(), environ) != 0 ||
            ::waitpid(child, &status, 0) != child || status != 0) {
            state.SkipWithError("cannot copy");
        }
        state.SetIterationTime(bench::secondsNow() - start);
    }
}

// The whole save, or what it takes before it begins to wait for the medium.
enum class Until { FirstFlush, End };

void saveGrowing(benchmark::State& state, const std::string& original, const std::string& path, Until until) {
    bench::flushes(true);
    for (auto _ : state) {
        prepare(original, path);
        bench::forgetFlush();
        const double start = bench::secondsNow();
        ID3V230 tag;
        if (!Updatable::LoadFromFile(tag, path)) state.SkipWithError("cannot read the tag");
        tag.Title(std::string(4000, 't'));
        if (!Updatable::SaveTag(tag)) state.SkipWithError("cannot save the tag");
        state.SetIterationTime((until == Until::End ? bench::secondsNow() : bench::secondsOfFirstFlush()) - start);
    }
}

void tagLibGrowing(benchmark::State& state, const std::string& original, const std::string& path) {
    for (auto _ : state) {
        restore(state, original, path);
        TagLib::MPEG::File file(path.c_str(), false);
        file.tag()->setTitle(std::string(4000, 't'));
        if (!file.save(TagLib::MPEG::File::ID3v2, TagLib::MPEG::File::StripNone, TagLib::ID3v2::v3))
            state.SkipWithError("cannot save the tag");
    }
}

template <class Work, class... Arguments>
void measure(const char* name, Work work, Arguments... arguments) {
    benchmark::RegisterBenchmark(name, work, arguments...)->UseRealTime();
}

template <class Work, class... Arguments>
void measureByHand(const char* name, Work work, Arguments... arguments) {
    benchmark::RegisterBenchmark(name, work, arguments...)->UseManualTime();
}

void registerAll(const test::ScratchFolder& folder) {
    const auto inPlace = [&](const char* name) { return folder.write(name, content(kSmallFile, 2048)); };
    measure("inPlace/limit", limitInPlace, inPlace("a.mp3"), false);
    measure("inPlace/limitFlushed", limitInPlace, inPlace("b.mp3"), true);
    measure("inPlace/corvane", saveInPlace, inPlace("c.mp3"), false);
    measure("inPlace/corvaneFlushed", saveInPlace, inPlace("d.mp3"), true);
    measure("inPlace/taglib", tagLibInPlace, inPlace("e.mp3"));
    const std::string original = folder.write("original.mp3", content(kLargeFile, 0));
    measureByHand("grow/limit", copyByCp, original, folder.path("copy.mp3"));
    measureByHand("grow/corvane", saveGrowing, original, folder.path("f.mp3"), Until::FirstFlush);
    measureByHand("grow/corvaneFlushed", saveGrowing, original, folder.path("g.mp3"), Until::End);
    measure("grow/taglib", tagLibGrowing, original, folder.path("h.mp3"));
}

} // namespace
} // namespace corvane

int main(int argumentCount, char** arguments) {
    const corvane::test::ScratchFolder folder;
    corvane::registerAll(folder);
    benchmark::Initialize(&argumentCount, arguments);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
