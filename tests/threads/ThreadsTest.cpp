// Different threads use different objects without locks. Under ThreadSanitizer (`make tsan`) this proves that objects
// share no state that anybody changes.
#include "corvane/core/FileHandler.h"
#include "corvane/id3v1/ID3V1Tag.h"
#include "corvane/id3v2/ID3V2Tag.h"
#include "corvane/lyrics/LyricsTag.h"
#include "corvane/mpeg/MPEGHeader.h"
#include "corvane/platform/MessageBox.h"
#include "corvane/platform/Picture.h"

#include "tests/support/Id3v1Builder.h"
#include "tests/support/Id3v2Builder.h"
#include "tests/support/ImageBuilder.h"
#include "tests/support/LyricsBuilder.h"
#include "tests/support/Mp3File.h"
#include "tests/support/MpegBuilder.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <thread>
#include <vector>

namespace corvane::threads_test {
namespace {

constexpr int kThreads = 4;
constexpr int kRounds = 20;

ByteArray fileWithEveryTag() {
    return test::joined({
        test::Id3v2Builder(3)
            .text("TIT2", "Title")
            .text("TCON", "(17)Rock")
            .frame("APIC", test::pictureFrame(test::pngImage(4, 4)))
            .done(),
        test::mpegStream({}, 20),
        test::LyricsBuilder().field("LYR", "Lyrics").done(),
        test::Id3v1Builder().title("Title").track(7).genre(17).done(),
    });
}

// Runs `body(thread, round)` in all threads at once; gives how often it answered false.
int failuresIn(const std::function<bool(int, int)>& body) {
    std::atomic<int> failures = 0;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread)
        threads.emplace_back([&body, &failures, thread] {
            for (int round = 0; round < kRounds; ++round)
                if (!body(thread, round)) ++failures;
        });
    for (auto& thread : threads) thread.join();
    return failures;
}

TEST(Threads, ReadOneFileThroughHandlersOfTheirOwn) {
    const test::ScratchFolder folder;
    const auto path = folder.write("shared.mp3", fileWithEveryTag());
    EXPECT_EQ(failuresIn([&](int, int) {
                  FileHandler file;
                  return file.Create(path) && file.ID3V2Tag()->Title() == "Title" &&
                         file.ID3V2Tag()->Picture() != nullptr && file.HasLyricsTag() &&
                         file.LyricsTag()->Lyrics() == "Lyrics" && file.MPEGHeader()->BitRate() == 128 &&
                         file.ID3v1xTag()->GenreList()->Count() == 149;
              }),
              0);
}

// A title of the library's own making and a comment of id3lib's, which is loaded by whichever thread comes first.
TEST(Threads, SaveTagsOfFilesOfTheirOwn) {
    const test::ScratchFolder folder;
    std::vector<test::Mp3File> files;
    for (int thread = 0; thread < kThreads; ++thread) {
        files.emplace_back(folder, test::Id3v2Builder(3).text("TIT2", "Title").text("TCON", "(17)Rock").done(),
                           std::to_string(thread) + ".mp3");
    }
    EXPECT_EQ(failuresIn([&](int thread, int round) {
                  const std::string& path = files[static_cast<std::size_t>(thread)].path();
                  const std::string text = std::to_string(thread) + " in round " + std::to_string(round);
                  FileHandler file;
                  if (!file.Create(path) || file.ID3V2Tag()->Genre() != "(17)Rock") return false;
                  file.ID3V2Tag()->Title(text);
                  file.ID3V2Tag()->Comment(text);
                  FileHandler again;
                  return file.ID3V2Tag()->saveTag() && again.Create(path) && again.ID3V2Tag()->Title() == text &&
                         again.ID3V2Tag()->Comment() == text &&
                         files[static_cast<std::size_t>(thread)].audioIsUntouched();
              }),
              0);
}

TEST(Threads, RenderTheSameDocument) {
    const test::ScratchFolder folder;
    const auto path = folder.write("shared.mp3", fileWithEveryTag());
    const auto documentOf = [&path] {
        FileHandler file;
        return file.Create(path) ? file.ID3V2Tag()->xml() + file.ID3v1xTag()->xml() + file.MPEGHeader()->xml() : "";
    };
    const auto expected = documentOf();
    ASSERT_NE(expected, "");
    EXPECT_EQ(failuresIn([&](int, int) { return documentOf() == expected; }), 0);
}

TEST(Threads, WriteFilesOfTheirOwn) {
    const test::ScratchFolder folder;
    std::vector<std::string> paths;
    for (int thread = 0; thread < kThreads; ++thread)
        paths.push_back(folder.write(std::to_string(thread) + ".mp3", fileWithEveryTag()));
    EXPECT_EQ(failuresIn([&](int thread, int round) {
                  const auto& path = paths[static_cast<std::size_t>(thread)];
                  const auto title = std::to_string(thread) + " " + std::to_string(round);
                  FileHandler writer;
                  if (!writer.Create(path)) return false;
                  writer.ID3v1xTag()->Title(title);
                  FileHandler reader;
                  return writer.writeID3v1xTag() && reader.Create(path) && reader.ID3v1xTag()->Title() == title;
              }),
              0);
}

TEST(Threads, RecordFailuresOfTheirOwnAndShowThemThroughTheOneHook) {
    const test::ScratchFolder folder;
    std::atomic<int> shown = 0;
    setMessageBoxHook([&shown](const MessageBoxRequest&) { ++shown; });
    EXPECT_EQ(failuresIn([&](int thread, int) {
                  setHostTexts({.title = std::to_string(thread), .fileDescription = "Threads"});
                  FileHandler file;
                  const bool created = file.Create(folder.path("missing.mp3"));
                  file.LastError()->Show();
                  return !created && file.LastError()->Stream() != "";
              }),
              0);
    setMessageBoxHook({});
    EXPECT_EQ(shown, kThreads * kRounds);
}

} // namespace
} // namespace corvane::threads_test
