#include "corvane/platform/FileReplacement.h"

#include "corvane/platform/FileReader.h"
#include "corvane/platform/RuntimeFailure.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/Failures.h"
#include "tests/support/Process.h"
#include "tests/support/ScratchFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <thread>

namespace corvane::filereplacement_test {
namespace {

using test::bytesOf;
using test::contentOf;
using test::failureNumberOf;
using test::ScratchFolder;
using test::statusOf;
using Names = std::vector<std::string>;

// "head" in front of the old content without its last byte.
void replaceWithHead(const std::string& path) {
    FileReplacement replacement(path);
    replacement.append(bytesOf("head"));
    replacement.copy(0, replacement.originalSize() - 1);
    replacement.commit();
}

void cutTo(const std::string& path, std::uint64_t size) {
    FileReplacement replacement(path);
    replacement.copy(0, size);
    replacement.commit();
}

TEST(FileReplacement, PutsTheNewContentUnderTheOldName) {
    const ScratchFolder folder;
    const std::string path = folder.write("song.mp3", bytesOf("0123456789"));
    FileReplacement replacement(path);
    EXPECT_EQ(replacement.originalSize(), 10U);
    replacement.append(bytesOf("ab"));
    replacement.copy(3, 4);
    replacement.append(bytesOf("yz"));
    replacement.copy(0, 1);
    replacement.copy(10, 0);
    EXPECT_EQ(contentOf(path), bytesOf("0123456789")) << "nothing changes before commit";
    replacement.commit();
    EXPECT_EQ(contentOf(path), bytesOf("ab3456yz0"));
    EXPECT_EQ(folder.names(), Names{"song.mp3"});
}

TEST(FileReplacement, CopiesContentOfManyBlocks) {
    const ScratchFolder folder;
    const ByteArray content = test::countedBytes(3'000'001);
    const std::string path = folder.write("f", content);
    FileReplacement replacement(path);
    replacement.append(bytesOf("head"));
    replacement.copy(1, content.size() - 1);
    replacement.commit();
    EXPECT_EQ(contentOf(path), test::joined({bytesOf("head"), Bytes(content).subspan(1)}));
}

TEST(FileReplacement, MayLeaveAnEmptyFileAndFillAnEmptyOne) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", bytesOf("abc"));
    FileReplacement(path).commit();
    EXPECT_EQ(contentOf(path), ByteArray());
    FileReplacement replacement(path);
    replacement.append(bytesOf("xyz"));
    replacement.commit();
    EXPECT_EQ(contentOf(path), bytesOf("xyz"));
}

TEST(FileReplacement, LeavesEverythingAsItWasWithoutCommit) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", bytesOf("abc"));
    const struct stat before = statusOf(path);
    {
        FileReplacement replacement(path);
        replacement.append(bytesOf("xyz"));
        EXPECT_EQ(folder.names().size(), 2U);
    }
    EXPECT_EQ(folder.names(), Names{"f"});
    EXPECT_EQ(contentOf(path), bytesOf("abc"));
    EXPECT_EQ(identityOf(statusOf(path)), identityOf(before));
}

TEST(FileReplacement, TheTemporaryFileStandsBesideTheFileForItsOwnerOnly) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", bytesOf("abc"));
    ASSERT_EQ(::chmod(path.c_str(), 0666), 0);
    FileReplacement replacement(path, "mp3");
    EXPECT_EQ(replacement.temporaryName(), "");
    replacement.begin();
    const std::string temporary = replacement.temporaryName();
    EXPECT_TRUE(temporary.starts_with(folder.path() + "/tmp")) << temporary;
    EXPECT_TRUE(temporary.ends_with(".mp3")) << temporary;
    EXPECT_EQ(statusOf(temporary).st_mode & 07777, 0600U);
    replacement.commit();
    EXPECT_EQ(replacement.temporaryName(), temporary);
    EXPECT_EQ(folder.names(), Names{"f"});
}

TEST(FileReplacement, FollowsLinksAndLeavesThemLinks) {
    const ScratchFolder folder;
    const ScratchFolder other;
    const std::string path = folder.write("f", bytesOf("0123"));
    ASSERT_EQ(::symlink(path.c_str(), folder.path("near").c_str()), 0);
    ASSERT_EQ(::symlink(folder.path("near").c_str(), other.path("far").c_str()), 0);
    FileReplacement replacement(other.path("far"));
    replacement.append(bytesOf("new"));
    EXPECT_EQ(replacement.folder(), folder.path() + "/");
    EXPECT_EQ(other.names(), Names{"far"}) << "the temporary file stands beside the file, not beside the link";
    replacement.commit();
    EXPECT_TRUE(S_ISLNK(statusOf(other.path("far")).st_mode));
    EXPECT_TRUE(S_ISLNK(statusOf(folder.path("near")).st_mode));
    EXPECT_EQ(contentOf(path), bytesOf("new"));
    EXPECT_EQ(folder.names(), (Names{"f", "near"}));
}

TEST(FileReplacement, WorksWithTheLongestNameThatThereIs) {
    const ScratchFolder folder;
    const std::string path = folder.write(std::string(255, 'n'), bytesOf("0123"));
    replaceWithHead(path);
    EXPECT_EQ(contentOf(path), bytesOf("head012"));
}

TEST(FileReplacement, TakesOverTheAttributes) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", bytesOf("0123"));
    ASSERT_EQ(::chmod(path.c_str(), 0751), 0);
    replaceWithHead(path);
    EXPECT_EQ(statusOf(path).st_mode & 07777, 0751U);
}

TEST(FileReplacement, TheTimesAreThoseOfANewFileUnlessTheOldOneIsToBeKept) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", bytesOf("0123"));
    const timespec old[2] = {{1'000'000'000, 123'456'789}, {1'000'000'000, 123'456'789}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), old, 0), 0);
    {
        FileReplacement replacement(path);
        replacement.copy(0, 3);
        replacement.keepModificationTime();
        replacement.commit();
    }
    EXPECT_EQ(statusOf(path).st_mtim.tv_sec, 1'000'000'000);
    EXPECT_EQ(statusOf(path).st_mtim.tv_nsec, 123'456'789);
    cutTo(path, 2);
    EXPECT_GT(statusOf(path).st_mtim.tv_sec, 1'000'000'000);
}

struct Meddling {
    const char* name;
    void (*meddle)(const std::string& path);
    const char* content; // afterwards
};

class AFileThatSomebodyElseChanges : public testing::TestWithParam<Meddling> {};

TEST_P(AFileThatSomebodyElseChanges, IsNotReplaced) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", bytesOf("0123"));
    FileReplacement replacement(path);
    replacement.append(bytesOf("mine"));
    GetParam().meddle(path);
    EXPECT_EQ(failureNumberOf([&] { replacement.commit(); }), EBUSY);
    EXPECT_EQ(contentOf(path), bytesOf(GetParam().content));
    EXPECT_EQ(folder.names(), Names{"f"});
}

INSTANTIATE_TEST_SUITE_P(
    Ways, AFileThatSomebodyElseChanges,
    testing::Values(
        Meddling{"Appended", [](const std::string& path) { std::ofstream(path, std::ios::app) << "4"; }, "01234"},
        Meddling{"Rewritten", [](const std::string& path) { std::ofstream(path) << "abcd"; }, "abcd"},
        Meddling{"Replaced",
                 [](const std::string& path) {
                     std::ofstream(path + "2") << "abcd";
                     std::filesystem::rename(path + "2", path);
                 },
                 "abcd"},
        Meddling{"Protected", [](const std::string& path) { EXPECT_EQ(::chmod(path.c_str(), 0400), 0); }, "0123"}),
    [](const auto& tested) { return tested.param.name; });

TEST(FileReplacement, AFileThatHasGoneMeanwhileIsNotMadeAnew) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", bytesOf("0123"));
    FileReplacement replacement(path);
    replacement.append(bytesOf("mine"));
    ASSERT_EQ(::unlink(path.c_str()), 0);
    EXPECT_EQ(failureNumberOf([&] { replacement.commit(); }), ENOENT);
    EXPECT_EQ(folder.names(), Names{});
}

TEST(FileReplacement, ANameThatBecameALinkIsNotReplaced) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", bytesOf("0123"));
    const std::string other = folder.write("other", bytesOf("other"));
    FileReplacement replacement(path);
    replacement.append(bytesOf("mine"));
    ASSERT_EQ(::unlink(path.c_str()), 0);
    ASSERT_EQ(::symlink(other.c_str(), path.c_str()), 0);
    EXPECT_EQ(failureNumberOf([&] { replacement.commit(); }), EBUSY);
    EXPECT_EQ(contentOf(other), bytesOf("other"));
}

TEST(FileReplacement, RefusesAFileThatIsNotTheOneThatWasRead) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", bytesOf("0123"));
    const FileIdentity known = FileReader(path).identity();
    ASSERT_EQ(::chmod(path.c_str(), 0600), 0);
    EXPECT_NO_THROW(FileReplacement(path).requireUnchanged(known)) << "its content is still the same";
    std::ofstream(path, std::ios::app) << "4";
    EXPECT_EQ(failureNumberOf([&] { FileReplacement(path).requireUnchanged(known); }), EBUSY);
}

TEST(FileReplacement, TellsTheStateInWhichItHasLeftTheFile) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", bytesOf("0123"));
    for (const bool hasSecondName : {false, true}) {
        if (hasSecondName) {
            ASSERT_EQ(::link(path.c_str(), folder.path("second").c_str()), 0);
        }
        FileReplacement replacement(path);
        replacement.append(bytesOf("new"));
        EXPECT_EQ(replacement.committed(), FileIdentity());
        replacement.commit();
        EXPECT_EQ(replacement.committed(), identityOf(statusOf(path)));
    }
}

TEST(FileReplacement, AFullDiskLeavesTheFileAsItWas) {
    const ScratchFolder folder;
    const std::string place = folder.path("small");
    ASSERT_EQ(::mkdir(place.c_str(), 0700), 0);
    const int result = test::withSmallFileSystem(place.c_str(), 256 * 1024, [&] {
        const ByteArray content = test::countedBytes(150'000);
        for (const bool hasSecondName : {false, true}) {
            const std::string path = folder.write("small/f", content);
            if (hasSecondName && ::link(path.c_str(), (path + "2").c_str()) != 0) return 1;
            if (failureNumberOf([&] { replaceWithHead(path); }) != ENOSPC) return 2;
            if (contentOf(path) != content) return 3;
            if (test::namesIn(place).size() != (hasSecondName ? 2U : 1U)) return 4;
        }
        return 0;
    });
    if (result == test::kNoMount) GTEST_SKIP() << "no file system can be mounted here";
    EXPECT_EQ(result, 0);
}

TEST(FileReplacement, TheFileSizeLimitOfTheProcessIsAFailureAndNotItsEnd) {
    const ScratchFolder folder;
    const ByteArray content = test::countedBytes(200'000);
    const std::string path = folder.write("f", content);
    const test::LoweredFileSizeLimit limit(150'000);
    EXPECT_EQ(failureNumberOf([&] { replaceWithHead(path); }), EFBIG);
    EXPECT_EQ(contentOf(path), content);
    EXPECT_EQ(folder.names(), Names{"f"});
}

TEST(FileReplacement, AFileOrFolderThatTheUserMayNotWriteIsLeftAlone) {
    if (!test::isRoot()) GTEST_SKIP() << "only root can become somebody else";
    const ScratchFolder folder;
    const std::string path = folder.write("f", bytesOf("0123"));
    ASSERT_EQ(::chmod(folder.path().c_str(), 0777), 0);
    ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
    const auto attempt = [&] { return failureNumberOf([&] { replaceWithHead(path); }); };
    EXPECT_EQ(test::asNobody(attempt), EACCES) << "the file is read-only, though the folder is not";
    ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
    ASSERT_EQ(::chmod(path.c_str(), 0666), 0);
    EXPECT_EQ(test::asNobody(attempt), EACCES) << "the folder is read-only, though the file is not";
    ASSERT_EQ(::chmod(folder.path().c_str(), 01777), 0);
    EXPECT_EQ(test::asNobody(attempt), EPERM) << "in this folder only a file's owner may replace it";
    EXPECT_EQ(contentOf(path), bytesOf("0123"));
    EXPECT_EQ(folder.names(), Names{"f"});
}

TEST(FileReplacement, AFolderThatTakesNoNewFileIsFoundOutWithoutWriting) {
    if (!test::isRoot()) GTEST_SKIP() << "only root can become somebody else";
    struct Case {
        mode_t folder;
        uid_t owner; // of the file
        int expected;
    };
    for (const Case& tried : {Case{0777, 0, 0}, Case{0755, test::kNobody, EACCES}, Case{01777, 0, EPERM},
                              Case{01777, test::kNobody, 0}, Case{0766, test::kNobody, EACCES}}) {
        const ScratchFolder folder;
        const std::string path = folder.write("f", bytesOf("0123"));
        ASSERT_EQ(::chmod(path.c_str(), 0666), 0);
        ASSERT_EQ(::chown(path.c_str(), tried.owner, tried.owner), 0);
        ASSERT_EQ(::chmod(folder.path().c_str(), tried.folder), 0);
        const auto found =
            test::asNobody([&] { return failureNumberOf([&] { FileReplacement(path).requireReplaceable(); }); });
        const auto happens = test::asNobody([&] { return failureNumberOf([&] { replaceWithHead(path); }); });
        EXPECT_EQ(found, tried.expected) << std::oct << tried.folder << " owner " << tried.owner;
        EXPECT_EQ(happens, tried.expected) << "what is found out is what happens";
    }
}

TEST(FileReplacement, AFolderThatCannotBeListedCanStillBeWorkedIn) {
    if (!test::isRoot()) GTEST_SKIP() << "only root can become somebody else";
    const ScratchFolder folder;
    const std::string path = folder.write("f", bytesOf("0123"));
    ASSERT_EQ(::chown(path.c_str(), test::kNobody, test::kNobody), 0);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0733), 0);
    EXPECT_EQ(test::asNobody([&] { return replaceWithHead(path), 0; }), 0);
    EXPECT_EQ(contentOf(path), bytesOf("head012"));
}

TEST(FileReplacement, OnlyARegularFileIsReplaced) {
    const ScratchFolder folder;
    ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
    const auto failureFor = [](const std::string& path) {
        return failureNumberOf([&] { FileReplacement replacement(path); });
    };
    EXPECT_EQ(failureFor(folder.path("none")), ENOENT);
    EXPECT_EQ(failureFor(folder.path()), EISDIR);
    EXPECT_EQ(failureFor(folder.path("pipe")), EINVAL);
    EXPECT_EQ(failureFor("/dev/null"), EINVAL);
    EXPECT_EQ(failureFor(""), ENOENT);
}

TEST(FileReplacement, ANameWithANulByteIsNotCutShortThere) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", bytesOf("0123"));
    const std::string odd = path + std::string(1, '\0') + "x";
    EXPECT_EQ(failureNumberOf([&] { FileReplacement replacement(odd); }), EINVAL);
}

TEST(FileReplacement, ARangeOutsideTheOldContentIsRefused) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", bytesOf("0123"));
    FileReplacement replacement(path);
    EXPECT_EQ(failureNumberOf([&] { replacement.copy(5, 0); }), EINVAL);
    EXPECT_EQ(failureNumberOf([&] { replacement.copy(0, 5); }), EINVAL);
    EXPECT_EQ(failureNumberOf([&] { replacement.copy(4, UINT64_MAX); }), EINVAL);
    EXPECT_EQ(folder.names(), Names{"f"});
}

TEST(FileReplacement, AFileThatWasCutWhileItIsCopiedIsAFailure) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", test::countedBytes(5000));
    FileReplacement replacement(path);
    ASSERT_EQ(::truncate(path.c_str(), 1000), 0);
    EXPECT_EQ(failureNumberOf([&] { replacement.copy(0, 5000); }), EIO);
    EXPECT_EQ(failureNumberOf([&] { replacement.commit(); }), EIO) << "what is not whole is not put in place";
    EXPECT_EQ(contentOf(path).size(), 1000U);
    EXPECT_EQ(folder.names(), Names{"f"});
}

TEST(FileReplacement, DifferentThreadsMayReplaceDifferentFilesOfOneFolder) {
    const ScratchFolder folder;
    constexpr int kThreads = 4;
    std::vector<std::thread> threads;
    for (int number = 0; number < kThreads; ++number) {
        threads.emplace_back([&folder, number] {
            const std::string path = folder.write(std::to_string(number), bytesOf("0123"));
            for (int i = 0; i < 20; ++i) replaceWithHead(path);
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(folder.names(), (Names{"0", "1", "2", "3"}));
    EXPECT_EQ(contentOf(folder.path("0")).size(), 4U + 20 * 3);
}

} // namespace
} // namespace corvane::filereplacement_test
