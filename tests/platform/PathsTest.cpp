#include "corvane/platform/Paths.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/Failures.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

namespace corvane::paths_test {
namespace {

using test::ScratchFolder;

struct Case {
    const char* name;
    const char* path;
    const char* folder;
    const char* fileName;
    const char* extension;
};

class PathParts : public testing::TestWithParam<Case> {};

TEST_P(PathParts, AreFolderNameAndExtension) {
    EXPECT_EQ(folderOf(GetParam().path), GetParam().folder);
    EXPECT_EQ(fileNameOf(GetParam().path), GetParam().fileName);
    EXPECT_EQ(extensionOf(GetParam().path), GetParam().extension);
}

INSTANTIATE_TEST_SUITE_P(Paths, PathParts,
                         testing::Values(Case{"Absolute", "/music/rock/a.mp3", "/music/rock/", "a.mp3", "mp3"},
                                         Case{"Relative", "music/a.b.mp3", "music/", "a.b.mp3", "mp3"},
                                         Case{"NameAlone", "a.mp3", "", "a.mp3", "mp3"},
                                         Case{"InTheRoot", "/a.mp3", "/", "a.mp3", "mp3"},
                                         Case{"WithoutExtension", "/music.old/song", "/music.old/", "song", ""},
                                         Case{"NothingButExtension", "/x/.mp3", "/x/", ".mp3", "mp3"},
                                         Case{"DotAtTheEnd", "song.", "", "song.", ""},
                                         Case{"Folder", "/music/a.b/", "/music/a.b/", "", ""},
                                         Case{"BackslashesAreNoSeparators", "a\\b.c\\d", "", "a\\b.c\\d", "c\\d"},
                                         Case{"Nothing", "", "", "", ""},
                                         Case{"BytesThatAreNoText", "\xFF/\xFE.\xFD", "\xFF/", "\xFE.\xFD", "\xFD"}),
                         [](const auto& tested) { return tested.param.name; });

struct AbsoluteCase {
    const char* name;
    const char* path;
    const char* absolute;
};

class AbsolutePath : public testing::TestWithParam<AbsoluteCase> {};

TEST_P(AbsolutePath, StartsAtTheRootWithoutEmptyParts) {
    const ScratchFolder folder;
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    const std::string found = absolutePath(GetParam().path);
    std::filesystem::current_path(before);
    std::string expected = GetParam().absolute;
    if (const auto at = expected.find('@'); at != std::string::npos) expected.replace(at, 1, folder.path());
    EXPECT_EQ(found, expected);
}

INSTANTIATE_TEST_SUITE_P(Paths, AbsolutePath, // @ is the current folder
                         testing::Values(AbsoluteCase{"NameAlone", "a.mp3", "@/a.mp3"},
                                         AbsoluteCase{"HereExplicitly", "./a.mp3", "@/a.mp3"},
                                         AbsoluteCase{"DotsInside", "x/././y/./a.mp3", "@/x/y/a.mp3"},
                                         AbsoluteCase{"ParentsStay", "x/../a.mp3", "@/x/../a.mp3"},
                                         AbsoluteCase{"DoubledSeparators", "//x///a.mp3", "/x/a.mp3"},
                                         AbsoluteCase{"AbsoluteStays", "/x/a.mp3", "/x/a.mp3"},
                                         AbsoluteCase{"NamesThatBeginWithADot", "./.a/..b", "@/.a/..b"},
                                         AbsoluteCase{"Folder", "./x/", "@/x/"},
                                         AbsoluteCase{"CurrentFolder", ".", "@/"}, AbsoluteCase{"Root", "/", "/"},
                                         AbsoluteCase{"Nothing", "", ""}),
                         [](const auto& tested) { return tested.param.name; });

TEST(Paths, ALastingPathIsARelativeOneSeenFromTheRoot) {
    const ScratchFolder folder;
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    const std::string found = lastingPath("x/a.mp3");
    std::filesystem::current_path(before);
    EXPECT_EQ(found, folder.path("x/a.mp3"));
    EXPECT_EQ(lastingPath("/x//./a.mp3"), "/x//./a.mp3");
    EXPECT_EQ(lastingPath(""), "");
}

TEST(Paths, AnAbsolutePathKeepsLinks) {
    const ScratchFolder folder;
    ASSERT_EQ(::symlink("nowhere", folder.path("link").c_str()), 0);
    EXPECT_EQ(absolutePath(folder.path("link")), folder.path("link"));
}

TEST(Paths, AResolvedPathIsTheFileBehindAllLinks) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", {});
    ASSERT_EQ(::symlink("f", folder.path("link").c_str()), 0);
    EXPECT_EQ(resolvedPath(folder.path("./link")), path);
    EXPECT_EQ(test::failureNumberOf([&] { resolvedPath(folder.path("none")); }), ENOENT);
    EXPECT_EQ(test::failureNumberOf([&] { resolvedPath(path + std::string(1, '\0')); }), EINVAL);
}

TEST(Paths, NoPathBeginsWithADriveName) {
    EXPECT_EQ(driveNameOf("/music/a.mp3"), "");
    EXPECT_EQ(driveNameOf("C:\\music\\a.mp3"), "");
}

TEST(Paths, AFileExistsWhenTheNameLeadsToARegularFile) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", {});
    ASSERT_EQ(::symlink("f", folder.path("link").c_str()), 0);
    ASSERT_EQ(::symlink("none", folder.path("broken").c_str()), 0);
    ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
    EXPECT_TRUE(fileExists(path));
    EXPECT_TRUE(fileExists(folder.path("link")));
    EXPECT_FALSE(fileExists(folder.path("broken")));
    EXPECT_FALSE(fileExists(folder.path("pipe")));
    EXPECT_FALSE(fileExists(folder.path()));
    EXPECT_FALSE(fileExists(folder.path("none")));
    EXPECT_FALSE(fileExists(""));
    EXPECT_FALSE(fileExists(path + std::string(1, '\0') + "x")) << "a name is not cut at a NUL byte";
}

} // namespace
} // namespace corvane::paths_test
