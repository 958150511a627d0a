#include "corvane/platform/InPlaceFile.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/Failures.h"
#include "tests/support/Process.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace corvane::inplacefile_test {
namespace {

using test::bytesOf;
using test::contentOf;
using test::failureNumberOf;
using test::ScratchFolder;

TEST(InPlaceFile, BytesAreWrittenOverOldOnesOrBehindTheLast) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", bytesOf("0123456789"));
    InPlaceFile(path).write(3, bytesOf("abc"));
    EXPECT_EQ(contentOf(path), bytesOf("012abc6789"));
    InPlaceFile(path).write(10, bytesOf("xyz"));
    EXPECT_EQ(contentOf(path), bytesOf("012abc6789xyz"));
    EXPECT_EQ(InPlaceFile(path).read(10, 99), bytesOf("xyz"));
    EXPECT_TRUE(InPlaceFile(path).read(13, 1).empty());
}

TEST(InPlaceFile, AFailedAppendIsCutBack) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", ByteArray(1000, 7));
    const test::LoweredFileSizeLimit limit(1050);
    EXPECT_EQ(failureNumberOf([&] { InPlaceFile(path).write(1000, ByteArray(128, 1)); }), EFBIG);
    EXPECT_EQ(contentOf(path), ByteArray(1000, 7));
}

TEST(InPlaceFile, AFailedOverwriteBringsTheOldBytesBack) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", ByteArray(1000, 7));
    const test::LoweredFileSizeLimit limit(950);
    const auto failure = test::failureOf([&] { InPlaceFile(path).write(900, ByteArray(100, 1)); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->number(), EFBIG);
    EXPECT_EQ(failure->description(), std::generic_category().message(EFBIG));
    EXPECT_EQ(contentOf(path), ByteArray(1000, 7));
}

TEST(InPlaceFile, WhatWasNotWrittenNeedNotBeTakenBack) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", ByteArray(1000, 7));
    const test::LoweredFileSizeLimit limit(500);
    const auto failure = test::failureOf([&] { InPlaceFile(path).write(900, ByteArray(200, 1)); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->description(), std::generic_category().message(EFBIG));
    EXPECT_EQ(contentOf(path), ByteArray(1000, 7));
}

TEST(InPlaceFile, BytesThatHaveJustBeenReadAreWrittenOver) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", bytesOf("0123456789"));
    InPlaceFile file(path);
    const ByteArray old = file.read(3, 3);
    file.overwrite(3, bytesOf("abc"), old);
    EXPECT_EQ(contentOf(path), bytesOf("012abc6789"));
    const test::LoweredFileSizeLimit limit(8);
    EXPECT_EQ(failureNumberOf([&] { file.overwrite(6, bytesOf("defg"), bytesOf("6789")); }), EFBIG);
    EXPECT_EQ(contentOf(path), bytesOf("012abc6789"));
}

TEST(InPlaceFile, TellsTheStateInWhichItWasOpened) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", bytesOf("0123"));
    InPlaceFile file(path);
    const FileIdentity opened = file.openedIdentity();
    EXPECT_EQ(opened, identityOf(test::statusOf(path)));
    file.write(4, bytesOf("4"));
    EXPECT_EQ(file.openedIdentity(), opened);
    EXPECT_EQ(file.identity(), identityOf(test::statusOf(path)));
}

TEST(InPlaceFile, TheSignalOfTheSizeLimitNeitherKillsNorStaysPending) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", ByteArray(10, 7));
    const test::LoweredFileSizeLimit limit(10);
    EXPECT_EQ(failureNumberOf([&] { InPlaceFile(path).write(10, ByteArray(10, 1)); }), EFBIG);
    sigset_t pending;
    sigpending(&pending);
    EXPECT_EQ(sigismember(&pending, SIGXFSZ), 0);
}

TEST(InPlaceFile, ANameIsNotCutAtANulByte) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", ByteArray(10, 7));
    EXPECT_EQ(test::failureNumberOf([&] { InPlaceFile file(path + std::string("\0x", 2)); }), EINVAL);
}

TEST(InPlaceFile, WhatIsNoRegularFileIsRefusedAtOnce) {
    const ScratchFolder folder;
    ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(failureNumberOf([&] { InPlaceFile file(folder.path()); }), EISDIR);
    EXPECT_EQ(failureNumberOf([&] { InPlaceFile file(folder.path("pipe")); }), EINVAL);
    EXPECT_EQ(failureNumberOf([&] { InPlaceFile file("/dev/null"); }), EINVAL);
    EXPECT_EQ(failureNumberOf([&] { InPlaceFile file(folder.path("none")); }), ENOENT);
}

TEST(InPlaceFile, ALinkIsFollowed) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", bytesOf("0123"));
    ASSERT_EQ(::symlink(path.c_str(), folder.path("link").c_str()), 0);
    InPlaceFile(folder.path("link")).write(4, bytesOf("4"));
    EXPECT_EQ(contentOf(path), bytesOf("01234"));
}

} // namespace
} // namespace corvane::inplacefile_test
