#include "corvane/core/FileRoutines.h"

#include "corvane/platform/FileReader.h"
#include "corvane/platform/Paths.h"
#include "corvane/platform/RuntimeFailure.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/Failures.h"
#include "tests/support/Process.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <regex>

namespace corvane::fileroutines_test {
namespace {

using test::bytesOf;
using test::contentOf;
using test::countedBytes;
using test::failureNumberOf;
using test::failureOf;
using test::ScratchFolder;
using Names = std::vector<std::string>;

constexpr auto kObjectDefined = static_cast<std::int32_t>(FailureNumber::ObjectDefined);

ByteArray firstOf(const ByteArray& bytes, std::size_t count) {
    return {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(count)};
}

void expectFailure(const std::optional<RuntimeFailure>& failure, const std::string& source,
                   const std::string& description) {
    ASSERT_TRUE(failure.has_value());
    EXPECT_EQ(failure->number(), kObjectDefined);
    EXPECT_EQ(failure->source(), source);
    EXPECT_EQ(failure->description(), description);
}

void expectCopyFailure(const std::optional<RuntimeFailure>& failure, const std::string& folder,
                       const std::string& reason) {
    ASSERT_TRUE(failure.has_value());
    EXPECT_EQ(failure->number(), kObjectDefined);
    EXPECT_EQ(failure->source(), "FileCopy");
    const std::regex form(folder + "/tmp[0-9A-F]{4,}\\.mp3 - " + reason);
    EXPECT_TRUE(std::regex_match(failure->description(), form)) << failure->description();
}

struct ExtensionCase {
    const char* name;
    const char* fileName;
    const char* extension;
    const char* changed;
};

class ChangeExtension : public testing::TestWithParam<ExtensionCase> {};

TEST_P(ChangeExtension, ReplacesTheCharactersBehindTheLastDot) {
    EXPECT_EQ(FileRoutines::ChangeExtension(GetParam().fileName, GetParam().extension), GetParam().changed);
}

INSTANTIATE_TEST_SUITE_P(Names, ChangeExtension,
                         testing::Values(ExtensionCase{"Plain", "song.mp3", "tmp", "song.tmp"},
                                         ExtensionCase{"WithFolder", "/music/a.mp3", "tmp", "/music/a.tmp"},
                                         ExtensionCase{"SeveralDots", "a.b.mp3", "tmp", "a.b.tmp"},
                                         ExtensionCase{"WithoutExtensionOddlyGetsNoDot", "song", "tmp", "songtmp"},
                                         ExtensionCase{"DotInTheFolderOnly", "/m.x/song", "tmp", "/m.x/songtmp"},
                                         ExtensionCase{"DotAtTheEnd", "song.", "tmp", "song.tmp"},
                                         ExtensionCase{"ToNothingKeepsTheDot", "song.mp3", "", "song."},
                                         ExtensionCase{"NothingButExtension", ".mp3", "tmp", ".tmp"},
                                         ExtensionCase{"Nothing", "", "tmp", "tmp"},
                                         // The last component is empty, so that the folder keeps its name.
                                         ExtensionCase{"Folder", "a.mp3/", "tmp", "a.mp3/tmp"}),
                         [](const auto& tested) { return tested.param.name; });

TEST(FileRoutines, LastErrorIsAlwaysEmpty) {
    const ScratchFolder folder;
    EXPECT_TRUE(failureOf([&] { FileRoutines::CutFileBytes(folder.path("none"), 1); }).has_value());
    EXPECT_EQ(FileRoutines::LastError(), "");
}

TEST(CreateTempFile, MakesATwinOfTheTemporaryFile) {
    const ScratchFolder folder;
    const std::string twin = FileRoutines::CreateTempFile(folder.path(), "mp3");
    EXPECT_TRUE(std::regex_match(fileNameOf(twin), std::regex("tmp[0-9A-F]{4,}\\.mp3"))) << twin;
    EXPECT_EQ(folderOf(twin), folder.path() + "/");
    const std::string first = fileNameOf(FileRoutines::ChangeExtension(twin, "tmp"));
    EXPECT_EQ(folder.names(), (Names{fileNameOf(twin), first}));
    for (const std::string& name : folder.names()) {
        EXPECT_EQ(contentOf(folder.path(name)), ByteArray());
        EXPECT_EQ(test::statusOf(folder.path(name)).st_mode & 07777, 0600U);
    }
}

TEST(CreateTempFile, TheFolderMayEndInASeparator) {
    const ScratchFolder folder;
    EXPECT_EQ(folderOf(FileRoutines::CreateTempFile(folder.path() + "/", "mp3")), folder.path() + "/");
}

TEST(CreateTempFile, WithTheExtensionTmpThereIsOneFile) {
    const ScratchFolder folder;
    const std::string path = FileRoutines::CreateTempFile(folder.path(), "tmp");
    EXPECT_EQ(folder.names(), Names{fileNameOf(path)});
}

TEST(CreateTempFile, WithoutExtensionTheTwinEndsInADot) {
    const ScratchFolder folder;
    const std::string path = FileRoutines::CreateTempFile(folder.path());
    EXPECT_TRUE(std::regex_match(fileNameOf(path), std::regex("tmp[0-9A-F]{4,}\\."))) << path;
    EXPECT_EQ(folder.names(), (Names{fileNameOf(path), fileNameOf(path) + "tmp"}));
}

TEST(CreateTempFile, NoTwoFilesHaveOneName) {
    const ScratchFolder folder;
    for (int i = 0; i < 50; ++i) FileRoutines::CreateTempFile(folder.path(), "mp3");
    EXPECT_EQ(folder.names().size(), 100U);
}

TEST(CreateTempFile, AFolderThatDoesNotExistIsNamedInTheFailure) {
    const ScratchFolder folder;
    const std::string none = folder.path("none");
    expectFailure(failureOf([&] { FileRoutines::CreateTempFile(none, "mp3"); }), "FileRoutines::CreateTempFileName()",
                  "API Call 'GetTmpFileName' failed. Path = '" + none + "'.");
}

TEST(CreateTempFile, ATwinThatCannotBeMadeLeavesNothingBehind) {
    const ScratchFolder folder;
    const std::string longExtension(250, 'x');
    expectFailure(failureOf([&] { FileRoutines::CreateTempFile(folder.path(), longExtension); }),
                  "FileRoutines::CreateTempFileName()",
                  "API Call 'GetTmpFileName' failed. Path = '" + folder.path() + "'.");
    EXPECT_EQ(folder.names(), Names{});
}

TEST(DeleteTempFile, DeletesAFileWithTheExtensionTmp) {
    const ScratchFolder folder;
    FileRoutines::DeleteTempFile(folder.write("a.tmp", {}));
    EXPECT_EQ(folder.names(), Names{});
}

TEST(DeleteTempFile, OfAnotherExtensionOddlyDeletesTheTmpTwinAlone) {
    const ScratchFolder folder;
    folder.write("a.tmp", {});
    FileRoutines::DeleteTempFile(folder.write("a.mp3", {}));
    EXPECT_EQ(folder.names(), Names{"a.mp3"});
}

TEST(DeleteTempFile, DeletesReadOnlyFilesWithForceOnly) {
    const ScratchFolder folder;
    const std::string path = folder.write("a.tmp", {});
    ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
    FileRoutines::DeleteTempFile(path);
    EXPECT_EQ(folder.names(), Names{"a.tmp"});
    FileRoutines::DeleteTempFile(path, true);
    EXPECT_EQ(folder.names(), Names{});
}

TEST(DeleteTempFile, NeverFails) {
    const ScratchFolder folder;
    folder.write("atmp", {});
    ASSERT_EQ(::mkdir(folder.path("b.tmp").c_str(), 0700), 0);
    EXPECT_NO_THROW(FileRoutines::DeleteTempFile(folder.path("none.tmp")));
    EXPECT_NO_THROW(FileRoutines::DeleteTempFile(folder.path("b.tmp"), true));
    EXPECT_NO_THROW(FileRoutines::DeleteTempFile(folder.path("a"))) << "a without extension has the twin atmp";
    EXPECT_NO_THROW(FileRoutines::DeleteTempFile(""));
    EXPECT_NO_THROW(FileRoutines::DeleteTempFile(std::string("\0.tmp", 5), true));
    EXPECT_EQ(folder.names(), Names{"b.tmp"});
}

TEST(DeleteTempFile, UndoesCreateTempFileTogetherWithDeletingTheTwin) {
    const ScratchFolder folder;
    const std::string twin = FileRoutines::CreateTempFile(folder.path(), "mp3");
    FileRoutines::DeleteTempFile(twin);
    EXPECT_EQ(folder.names(), Names{fileNameOf(twin)});
}

struct CutCase {
    const char* name;
    std::size_t size;
    std::int32_t bytesToCut;
    std::size_t left;
};

class Cutting : public testing::TestWithParam<CutCase> {
protected:
    ScratchFolder folder;
    ByteArray content = countedBytes(GetParam().size);
    std::string path = folder.write("a.mp3", content);
    ByteArray expected = firstOf(content, GetParam().left);
};

TEST_P(Cutting, FileCopyLeavesTheLastBytesOut) {
    FileRoutines::FileCopy(path, folder.path("b.mp3"), false, GetParam().bytesToCut);
    EXPECT_EQ(contentOf(folder.path("b.mp3")), expected);
    EXPECT_EQ(contentOf(path), content);
    EXPECT_EQ(folder.names(), (Names{"a.mp3", "b.mp3"}));
}

TEST_P(Cutting, FileCopyReplacesTheDestinationWhenToldSo) {
    folder.write("b.mp3", countedBytes(500'000));
    ASSERT_EQ(::chmod(folder.path("b.mp3").c_str(), 0444), 0);
    FileRoutines::FileCopy(path, folder.path("b.mp3"), true, GetParam().bytesToCut);
    EXPECT_EQ(contentOf(folder.path("b.mp3")), expected);
    EXPECT_EQ(folder.names(), (Names{"a.mp3", "b.mp3"}));
}

TEST_P(Cutting, FileCopyAppendsToTheDestinationWhenToldSo) {
    folder.write("b.mp3", bytesOf("before"));
    FileRoutines::FileCopy(path, folder.path("b.mp3"), false, GetParam().bytesToCut, true);
    EXPECT_EQ(contentOf(folder.path("b.mp3")), test::joined({bytesOf("before"), expected}));
}

TEST_P(Cutting, CutFileBytesLeavesTheFirstBytesUnderTheSameName) {
    FileRoutines::CutFileBytes(path, GetParam().bytesToCut);
    EXPECT_EQ(contentOf(path), expected);
    EXPECT_EQ(folder.names(), Names{"a.mp3"}) << "no temporary file stays";
}

INSTANTIATE_TEST_SUITE_P(Sizes, Cutting,
                         testing::Values(CutCase{"ATag", 1000, 128, 872}, CutCase{"Nothing", 1000, 0, 1000},
                                         CutCase{"EverythingButOneByte", 1000, 999, 1},
                                         CutCase{"Everything", 1000, 1000, 0}, CutCase{"NothingOfNothing", 0, 0, 0},
                                         CutCase{"ANegativeNumberIsNothing", 1000, -5, 1000},
                                         CutCase{"TheSmallestNumberIsNothing", 1000, INT32_MIN, 1000},
                                         CutCase{"SoThatExactlyABlockIsLeft", 102'528, 128, 102'400},
                                         CutCase{"SoThatABlockAndAByteAreLeft", 102'529, 128, 102'401},
                                         CutCase{"OffManyBlocks", 1'000'000, 128, 999'872}),
                         [](const auto& tested) { return tested.param.name; });

TEST(FileCopy, ADestinationThatExistsIsAFailure) {
    const ScratchFolder folder;
    const std::string from = folder.write("a", bytesOf("a"));
    const std::string to = folder.write("b", bytesOf("b"));
    expectFailure(failureOf([&] { FileRoutines::FileCopy(from, to); }), "FileCopy", "Destination file already exists.");
    EXPECT_EQ(contentOf(to), bytesOf("b"));
    // This is found out before a missing source is.
    expectFailure(failureOf([&] { FileRoutines::FileCopy(folder.path("none"), to); }), "FileCopy",
                  "Destination file already exists.");
}

TEST(FileCopy, OverwritingGoesBeforeAppending) {
    const ScratchFolder folder;
    const std::string from = folder.write("a", bytesOf("a"));
    const std::string to = folder.write("b", bytesOf("b"));
    FileRoutines::FileCopy(from, to, true, 0, true);
    EXPECT_EQ(contentOf(to), bytesOf("a"));
}

TEST(FileCopy, AppendingMakesAFileThatDoesNotExist) {
    const ScratchFolder folder;
    FileRoutines::FileCopy(folder.write("a", bytesOf("a")), folder.path("b"), false, 0, true);
    EXPECT_EQ(contentOf(folder.path("b")), bytesOf("a"));
}

TEST(FileCopy, AMissingSourceIsAFailureThatLeavesTheDestination) {
    const ScratchFolder folder;
    const std::string to = folder.write("b", bytesOf("b"));
    for (const bool overwrite : {false, true}) {
        const auto failure = failureOf([&] { FileRoutines::FileCopy(folder.path("none"), to, overwrite, 0, true); });
        expectFailure(failure, "File check", "Source file does not exist.");
        EXPECT_EQ(contentOf(to), bytesOf("b"));
    }
    expectFailure(failureOf([&] { FileRoutines::FileCopy(folder.path("none"), folder.path("c")); }), "File check",
                  "Source file does not exist.");
    EXPECT_EQ(folder.names(), Names{"b"});
}

TEST(FileCopy, CuttingMoreThanThereIsIsAFailureThatLeavesTheDestination) {
    const ScratchFolder folder;
    const std::string from = folder.write("a", bytesOf("abc"));
    const std::string to = folder.write("b", bytesOf("b"));
    for (const std::int32_t count : {4, INT32_MAX}) {
        expectFailure(failureOf([&] { FileRoutines::FileCopy(from, to, true, count); }), "FileCopy",
                      "More bytes are to be cut than the file has.");
        expectFailure(failureOf([&] { FileRoutines::FileCopy(from, folder.path("c"), false, count); }), "FileCopy",
                      "More bytes are to be cut than the file has.");
    }
    EXPECT_EQ(contentOf(to), bytesOf("b"));
    EXPECT_EQ(folder.names(), (Names{"a", "b"}));
}

TEST(FileCopy, OntoItselfDoesNotLoseTheFile) {
    const ScratchFolder folder;
    const std::string path = folder.write("a", bytesOf("abcdef"));
    FileRoutines::FileCopy(path, path, true, 2);
    EXPECT_EQ(contentOf(path), bytesOf("abcd"));
    FileRoutines::FileCopy(path, path, false, 1, true);
    EXPECT_EQ(contentOf(path), bytesOf("abcdabc"));
}

TEST(FileCopy, AFailedCopyLeavesNoHalfDestination) {
    const ScratchFolder folder;
    const ByteArray content = countedBytes(200'000);
    const std::string from = folder.write("a", content);
    const std::string to = folder.write("b", countedBytes(100));
    const test::LoweredFileSizeLimit limit(150'000);
    EXPECT_EQ(failureNumberOf([&] { FileRoutines::FileCopy(from, folder.path("c")); }), EFBIG);
    EXPECT_EQ(failureNumberOf([&] { FileRoutines::FileCopy(from, to, true); }), EFBIG);
    EXPECT_EQ(failureNumberOf([&] { FileRoutines::FileCopy(from, to, false, 0, true); }), EFBIG);
    EXPECT_EQ(contentOf(to), countedBytes(100));
    EXPECT_EQ(folder.names(), (Names{"a", "b"}));
}

TEST(FileCopy, ACopyIsNoMoreReadableThanItsSource) {
    const ScratchFolder folder;
    const std::string from = folder.write("a", bytesOf("a"));
    ASSERT_EQ(::chmod(from.c_str(), 0600), 0);
    const std::string to = folder.write("b", bytesOf("b"));
    ASSERT_EQ(::chmod(to.c_str(), 0644), 0);
    FileRoutines::FileCopy(from, to, true);
    FileRoutines::FileCopy(from, folder.path("c"));
    EXPECT_EQ(test::statusOf(to).st_mode & 07777, 0600U);
    EXPECT_EQ(test::statusOf(folder.path("c")).st_mode & 07777, 0600U);
}

TEST(FileCopy, AFolderIsNoSourceAndNoDestination) {
    const ScratchFolder folder;
    const std::string from = folder.write("a", bytesOf("a"));
    expectFailure(failureOf([&] { FileRoutines::FileCopy(folder.path(), folder.path("c")); }), "File check",
                  "Source file does not exist.");
    EXPECT_EQ(failureNumberOf([&] { FileRoutines::FileCopy(from, folder.path(), true); }), EEXIST);
}

TEST(CutFileBytes, AMissingFileIsAFailureOfTheCopy) {
    const ScratchFolder folder;
    expectCopyFailure(failureOf([&] { FileRoutines::CutFileBytes(folder.path("none"), 1); }), folder.path(),
                      "Source file does not exist\\.");
    EXPECT_EQ(folder.names(), Names{});
}

TEST(CutFileBytes, MoreThanThereIsIsAFailureThatChangesNothing) {
    const ScratchFolder folder;
    const std::string path = folder.write("a.mp3", bytesOf("abc"));
    for (const std::int32_t count : {4, 128, INT32_MAX}) {
        expectCopyFailure(failureOf([&] { FileRoutines::CutFileBytes(path, count); }), folder.path(),
                          "More bytes are to be cut than the file has\\.");
        EXPECT_EQ(contentOf(path), bytesOf("abc"));
        EXPECT_EQ(folder.names(), Names{"a.mp3"});
    }
}

TEST(CutFileBytes, AFileThatWasChangedSinceTheCallerLookedIsNotCut) {
    const ScratchFolder folder;
    const std::string path = folder.write("a.mp3", countedBytes(300));
    const FileIdentity known = FileReader(path).identity();
    folder.write("a.mp3", countedBytes(200));
    expectCopyFailure(failureOf([&] { FileRoutines::CutFileBytes(path, 128, &known); }), folder.path(),
                      "The file was changed by another program meanwhile");
    EXPECT_EQ(contentOf(path), countedBytes(200));
    EXPECT_EQ(folder.names(), Names{"a.mp3"});
}

TEST(CutFileBytes, AMissingFolderIsNamedInTheFailure) {
    const ScratchFolder folder;
    expectFailure(failureOf([&] { FileRoutines::CutFileBytes(folder.path("none/a.mp3"), 1); }),
                  "FileRoutines::CreateTempFileName()",
                  "API Call 'GetTmpFileName' failed. Path = '" + folder.path("none/") + "'.");
}

TEST(CutFileBytes, AReadOnlyFolderIsNamedInTheFailure) {
    if (!test::isRoot()) GTEST_SKIP() << "only root can become somebody else";
    const ScratchFolder folder;
    const std::string path = folder.write("a.mp3", bytesOf("abc"));
    ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
    ASSERT_EQ(::chmod(path.c_str(), 0666), 0);
    const int result = test::asNobody([&] {
        expectFailure(failureOf([&] { FileRoutines::CutFileBytes(path, 1); }), "FileRoutines::CreateTempFileName()",
                      "API Call 'GetTmpFileName' failed. Path = '" + folder.path() + "/'.");
        return testing::Test::HasFailure() ? 1 : 0;
    });
    EXPECT_EQ(result, 0);
    EXPECT_EQ(contentOf(path), bytesOf("abc"));
}

// The temporary file comes first, so that the failure of a copy names one that there was.
TEST(CutFileBytes, AMissingFileOfAReadOnlyFolderIsAFailureOfTheTemporaryFile) {
    if (!test::isRoot()) GTEST_SKIP() << "only root can become somebody else";
    const ScratchFolder folder;
    ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
    const int result = test::asNobody([&] {
        expectFailure(failureOf([&] { FileRoutines::CutFileBytes(folder.path("none"), 1); }),
                      "FileRoutines::CreateTempFileName()",
                      "API Call 'GetTmpFileName' failed. Path = '" + folder.path() + "/'.");
        return testing::Test::HasFailure() ? 1 : 0;
    });
    EXPECT_EQ(result, 0);
}

TEST(CutFileBytes, AReadOnlyFileIsAFailureOfTheCopy) {
    if (!test::isRoot()) GTEST_SKIP() << "only root can become somebody else";
    const ScratchFolder folder;
    const std::string path = folder.write("a.mp3", bytesOf("abc"));
    ASSERT_EQ(::chmod(folder.path().c_str(), 0777), 0);
    ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
    const int result = test::asNobody([&] {
        expectCopyFailure(failureOf([&] { FileRoutines::CutFileBytes(path, 1); }), folder.path(), "Permission denied");
        return testing::Test::HasFailure() ? 1 : 0;
    });
    EXPECT_EQ(result, 0);
    EXPECT_EQ(contentOf(path), bytesOf("abc"));
    EXPECT_EQ(folder.names(), Names{"a.mp3"});
}

TEST(CutFileBytes, AFullDiskIsAFailureOfTheCopyThatChangesNothing) {
    const ScratchFolder folder;
    const ByteArray content = countedBytes(200'000);
    const std::string path = folder.write("a.mp3", content);
    const test::LoweredFileSizeLimit limit(150'000);
    expectCopyFailure(failureOf([&] { FileRoutines::CutFileBytes(path, 128); }), folder.path(), "File too large");
    EXPECT_EQ(contentOf(path), content);
    EXPECT_EQ(folder.names(), Names{"a.mp3"});
}

TEST(CutFileBytes, WorksInTheCurrentFolder) {
    const ScratchFolder folder;
    folder.write("a.mp3", bytesOf("abc"));
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    const auto failure = failureOf([] { FileRoutines::CutFileBytes("a.mp3", 1); });
    std::filesystem::current_path(before);
    EXPECT_FALSE(failure.has_value());
    EXPECT_EQ(contentOf(folder.path("a.mp3")), bytesOf("ab"));
}

TEST(CutFileBytes, CutsTheFileBehindALink) {
    const ScratchFolder folder;
    folder.write("a.mp3", bytesOf("abc"));
    ASSERT_EQ(::symlink("a.mp3", folder.path("link").c_str()), 0);
    ASSERT_EQ(::link(folder.path("a.mp3").c_str(), folder.path("second").c_str()), 0);
    FileRoutines::CutFileBytes(folder.path("link"), 1);
    EXPECT_EQ(contentOf(folder.path("a.mp3")), bytesOf("ab"));
    EXPECT_EQ(contentOf(folder.path("second")), bytesOf("ab"));
    EXPECT_EQ(folder.names(), (Names{"a.mp3", "link", "second"}));
}

} // namespace
} // namespace corvane::fileroutines_test
