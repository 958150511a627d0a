#include "apps/scan/FileWalk.h"

#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace corvane::scan::filewalk_test {
namespace {

using Paths = std::vector<std::string>;

class Walk : public testing::Test {
protected:
    void make(const std::string& name) {
        std::filesystem::create_directories(std::filesystem::path(folder_.path(name)).parent_path());
        folder_.write(name, {});
    }
    // Paths below the scratch folder.
    Paths walked(Paths roots) {
        FileWalk walk(std::move(roots), [this](std::string_view path, std::string_view reason) {
            unreadable_.push_back(std::string(path) + ": " + std::string(reason));
        });
        Paths found;
        while (const auto path = walk.next()) found.push_back(*path);
        return found;
    }
    Paths walked() {
        Paths found = walked({folder_.path()});
        for (std::string& path : found) path.erase(0, folder_.path().size() + 1);
        return found;
    }

    test::ScratchFolder folder_;
    Paths unreadable_;
};

TEST_F(Walk, FindsMp3FilesOfAnyCaseAtAnyDepth) {
    for (const char* name : {"a.mp3", "b.MP3", "c.Mp3", "d/e/f/g.mP3", "h.mp4", "mp3", "i.mp3.txt", ".mp3", "d/j"})
        make(name);
    EXPECT_EQ(walked(), (Paths{".mp3", "a.mp3", "b.MP3", "c.Mp3", "d/e/f/g.mP3"}));
}

TEST_F(Walk, OrderIsThatOfTheBytesOfWholePaths) {
    const Paths names{"a/z.mp3",   "a.mp3",   "a-b/c.mp3",    "a b/c.mp3", "A.mp3",
                      "a/b/c.mp3", "a/b.mp3", "\xc3\xa9.mp3", "\xff.mp3",  "z.mp3"};
    for (const std::string& name : names) make(name);
    Paths sorted = names;
    std::sort(sorted.begin(), sorted.end());
    EXPECT_EQ(walked(), sorted);
}

TEST_F(Walk, EmptyFolderHoldsNothing) { EXPECT_EQ(walked(), Paths{}); }

TEST_F(Walk, FolderNamedLikeAFileIsEntered) {
    make("album.mp3/a.mp3");
    EXPECT_EQ(walked(), Paths{"album.mp3/a.mp3"});
}

TEST_F(Walk, LinksToFoldersAreNotFollowedLinksToFilesAre) {
    make("real/a.mp3");
    make("other.bin");
    std::filesystem::create_directory_symlink(folder_.path("real"), folder_.path("link"));
    std::filesystem::create_directory_symlink(folder_.path("real"), folder_.path("link.mp3"));
    std::filesystem::create_directory_symlink(folder_.path(), folder_.path("real/up"));
    std::filesystem::create_symlink(folder_.path("other.bin"), folder_.path("song.mp3"));
    EXPECT_EQ(walked(), (Paths{"real/a.mp3", "song.mp3"}));
}

TEST_F(Walk, LinkThatLeadsNowhereIsHandedOut) {
    std::filesystem::create_symlink("nowhere", folder_.path("lost.mp3"));
    EXPECT_EQ(walked(), Paths{"lost.mp3"});
}

TEST_F(Walk, GivenLinkToAFolderIsFollowed) {
    make("real/a.mp3");
    std::filesystem::create_directory_symlink("real", folder_.path("link"));
    EXPECT_EQ(walked({folder_.path("link")}), Paths{folder_.path("link/a.mp3")});
}

TEST_F(Walk, GivenFileIsTakenWhateverItsName) {
    make("song.bin");
    EXPECT_EQ(walked({folder_.path("song.bin"), folder_.path("missing")}),
              (Paths{folder_.path("song.bin"), folder_.path("missing")}));
}

TEST_F(Walk, RootsStayInTheirOrderAndPathsBeginWithThem) {
    make("b/1.mp3");
    make("a/2.mp3");
    EXPECT_EQ(walked({folder_.path("b/"), folder_.path("a"), folder_.path("b")}),
              (Paths{folder_.path("b/1.mp3"), folder_.path("a/2.mp3"), folder_.path("b/1.mp3")}));
}

TEST_F(Walk, FolderThatCannotBeOpenedIsReportedAndTheWalkGoesOn) {
    make("a.mp3");
    make("z.mp3");
    // Deeper than a path may be long: nobody, not even root, can open the lowest folder by its path.
    const std::string name(200, 'd');
    const auto start = std::filesystem::current_path();
    std::filesystem::current_path(folder_.path());
    for (int depth = 0; depth < 25; ++depth) {
        std::filesystem::create_directory(name);
        std::filesystem::current_path(name);
    }
    std::filesystem::current_path(start);
    EXPECT_EQ(walked(), (Paths{"a.mp3", "z.mp3"}));
    ASSERT_EQ(unreadable_.size(), 1u);
    EXPECT_TRUE(unreadable_.front().ends_with(": File name too long")) << unreadable_.front();
}

} // namespace
} // namespace corvane::scan::filewalk_test
