// What is recorded when the system refuses: number, source and text are its own, and the severity is that of an error.
#include "corvane/core/FileHandler.h"
#include "corvane/id3v1/ID3V1Tag.h"
#include "corvane/id3v230/ID3V230.h"

#include "tests/core/FileHandlerFiles.h"
#include "tests/support/HostMessageBox.h"
#include "tests/support/Process.h"

#include <sys/stat.h>

#include <functional>
#include <regex>

namespace corvane {
namespace {

using namespace test;

struct PermissionCase {
    const char* name;
    std::function<bool(FileHandler&)> operation;
    mode_t file, folder; // permissions for everybody
    const char* line;    // that is recorded, a regular expression; @ is the folder
};

bool writeRecord(FileHandler& handler) { return handler.writeID3v1xTag(); }
bool removeRecord(FileHandler& handler) { return handler.removeID3V1xTag(); }
bool createTag(FileHandler& handler) { return handler.createID3V2Tag(std::make_shared<ID3V230>()); }

class FileHandlerPermission : public testing::TestWithParam<PermissionCase> {
protected:
    // The operation, after the file was opened while it could be read.
    static int refused(const std::string& path, const std::regex& line) {
        HostMessageBox host;
        FileHandler handler;
        if (GetParam().operation == nullptr) {
            EXPECT_FALSE(handler.Create(path));
        } else {
            EXPECT_TRUE(handler.Create(path));
            EXPECT_EQ(::chmod(path.c_str(), GetParam().file), 0);
            EXPECT_FALSE(GetParam().operation(handler));
        }
        EXPECT_TRUE(std::regex_match(handler.LastError()->Stream(), line)) << handler.LastError()->Stream();
        handler.LastError()->Show();
        EXPECT_EQ(host.shown.back().icon, MessageBoxIcon::Stop) << "the icon of severity 2";
        return testing::Test::HasFailure() ? 1 : 0;
    }
};

TEST_P(FileHandlerPermission, IsRecordedAsTheSystemsFailure) {
    if (!isRoot()) GTEST_SKIP() << "only root can become somebody else";
    const ScratchFolder folder;
    const ByteArray content = with(audio(), record(0, 7));
    const std::string path = folder.write("a.mp3", content);
    ASSERT_EQ(::chown(path.c_str(), kNobody, kNobody), 0);
    ASSERT_EQ(::chmod(path.c_str(), GetParam().operation == nullptr ? GetParam().file : 0600), 0);
    ASSERT_EQ(::chmod(folder.path().c_str(), GetParam().folder), 0);
    const std::regex line(std::regex_replace(GetParam().line, std::regex("@"), folder.path()));
    EXPECT_EQ(asNobody([&] { return refused(path, line); }), 0);
    EXPECT_EQ(contentOf(path), content);
    EXPECT_EQ(folder.names(), std::vector<std::string>{"a.mp3"});
}

INSTANTIATE_TEST_SUITE_P(
    Operations, FileHandlerPermission,
    testing::Values(
        PermissionCase{"OpeningAnUnreadableFile", nullptr, 0, 0777, "13, open, Permission denied"},
        PermissionCase{"WritingAReadOnlyFile", writeRecord, 0444, 0777, "13, open, Permission denied"},
        PermissionCase{"WritingAnUnreadableFile", writeRecord, 0, 0777, "13, open, Permission denied"},
        PermissionCase{"RemovingFromAReadOnlyFile", removeRecord, 0444, 0777,
                       "-2147221504, FileCopy, @/tmp[0-9A-F]{4,}\\.mp3 - Permission denied"},
        PermissionCase{
            "RemovingInAReadOnlyFolder", removeRecord, 0644, 0555,
            "-2147221504, FileRoutines::CreateTempFileName\\(\\), API Call 'GetTmpFileName' failed\\. Path = "
            "'@/'\\."},
        // Not "The file has no ID3v1x tag.": nobody has looked.
        PermissionCase{"RemovingFromAnUnreadableFile", removeRecord, 0, 0777, "13, open, Permission denied"},
        PermissionCase{"CreatingATagInAnUnreadableFile", createTag, 0, 0777, "13, open, Permission denied"},
        PermissionCase{"CreatingATagInAReadOnlyFile", createTag, 0444, 0777, "13, open, Permission denied"},
        PermissionCase{"CreatingATagInAReadOnlyFolder", createTag, 0644, 0555,
                       "13, create temporary file, Permission denied"}),
    [](const auto& tested) { return tested.param.name; });

} // namespace
} // namespace corvane
