#include "corvane/platform/File.h"

#include "corvane/platform/FileStatus.h"
#include "corvane/platform/FileTypeName.h"
#include "corvane/platform/LocalTime.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/Failures.h"
#include "tests/support/Process.h"
#include "tests/support/ScratchFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <filesystem>

namespace corvane::file_test {
namespace {

using test::bytesOf;
using test::ScratchFolder;

TEST(File, TellsNamePathSizeAndType) {
    const ScratchFolder folder;
    const auto file = File::ofPath(folder.write("a b.MP3", test::countedBytes(1234)));
    EXPECT_EQ(file->Name(), "a b.MP3");
    EXPECT_EQ(file->Path(), folder.path("a b.MP3"));
    EXPECT_EQ(file->Size(), 1234U);
    EXPECT_EQ(file->TypeName(), "MPEG audio");
}

TEST(File, ItsPathIsSeenFromTheRoot) {
    const ScratchFolder folder;
    folder.write("a.mp3", {});
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    const auto file = File::ofPath("./a.mp3");
    std::filesystem::current_path(before);
    EXPECT_EQ(file->Path(), folder.path("a.mp3"));
    EXPECT_EQ(file->Name(), "a.mp3");
}

TEST(File, TellsItsDatesByTheLocalTime) {
    const ScratchFolder folder;
    const std::string path = folder.write("a.mp3", {});
    const timespec times[2] = {{1'000'000'000, 999'999'999}, {1'010'000'000, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    const int result = test::inChild([&] {
        ::setenv("TZ", "CET-1CEST,M3.5.0,M10.5.0", 1);
        ::tzset();
        const auto file = File::ofPath(path);
        EXPECT_EQ(file->DateLastAccessed(), "09/09/2001 03:46:40");
        EXPECT_EQ(file->DateLastModified(), "02/01/2002 20:33:20");
        return testing::Test::HasFailure() ? 1 : 0;
    });
    EXPECT_EQ(result, 0);
}

TEST(File, WasCreatedWhenItWasWrittenForTheFirstTimeWhereThatIsKept) {
    const ScratchFolder folder;
    const std::int64_t before = std::time(nullptr) - 1; // the clock of the file system may be a tick late
    const std::string path = folder.write("a.mp3", {});
    const std::int64_t after = std::time(nullptr);
    const timespec old[2] = {{1'000'000'000, 0}, {1'000'000'000, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), old, 0), 0);
    const auto created = fileStatusOf(path).created;
    const std::string date = File::ofPath(path)->DateCreated();
    if (!created) {
        EXPECT_EQ(date, "") << "the file system does not keep it";
        return;
    }
    EXPECT_GE(*created, before);
    EXPECT_LE(*created, after);
    EXPECT_EQ(date, documentDate(localTimeOf(*created)));
}

TEST(File, AFileSystemThatKeepsNoCreationDateGivesNone) {
    ASSERT_FALSE(fileStatusOf("/proc/self/status").created.has_value());
    EXPECT_EQ(File::ofPath("/proc/self/status")->DateCreated(), "");
}

TEST(File, FollowsLinks) {
    const ScratchFolder folder;
    folder.write("a.mp3", test::countedBytes(77));
    ASSERT_EQ(::symlink("a.mp3", folder.path("link.txt").c_str()), 0);
    const auto file = File::ofPath(folder.path("link.txt"));
    EXPECT_EQ(file->Size(), 77U);
    EXPECT_EQ(file->Name(), "link.txt");
}

TEST(File, AFileThatIsNotThereIsAFailure) {
    const ScratchFolder folder;
    EXPECT_EQ(test::failureNumberOf([&] { File::ofPath(folder.path("none")); }), ENOENT);
    EXPECT_EQ(test::failureNumberOf([&] { File::ofPath(folder.path() + std::string(1, '\0')); }), EINVAL);
    EXPECT_EQ(test::failureNumberOf([] { File::ofPath(""); }), ENOENT);
}

TEST(File, WhatIsNoRegularFileIsAFailure) {
    const ScratchFolder folder;
    ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(test::failureNumberOf([&] { File::ofPath(folder.path()); }), EISDIR);
    EXPECT_EQ(test::failureNumberOf([&] { File::ofPath(folder.path("pipe")); }), EINVAL);
    EXPECT_EQ(test::failureNumberOf([] { File::ofPath("/dev/null"); }), EINVAL);
}

struct TypeCase {
    const char* name;
    const char* extension;
    const char* typeName;
};

class FileTypeName : public testing::TestWithParam<TypeCase> {};

TEST_P(FileTypeName, IsThatOfItsExtension) { EXPECT_EQ(fileTypeNameOf(GetParam().extension), GetParam().typeName); }

INSTANTIATE_TEST_SUITE_P(Extensions, FileTypeName,
                         testing::Values(TypeCase{"Mp3", "mp3", "MPEG audio"},
                                         TypeCase{"InAnyCase", "Mp3", "MPEG audio"},
                                         TypeCase{"FirstOfTheTable", "aac", "AAC audio"},
                                         TypeCase{"LastOfTheTable", "zip", "ZIP archive"},
                                         TypeCase{"Unknown", "xyz", "XYZ File"}, TypeCase{"None", "", "File"},
                                         TypeCase{"LettersBeyondAscii", "m\u00FC", "M\u00FC File"}),
                         [](const auto& tested) { return tested.param.name; });

} // namespace
} // namespace corvane::file_test
