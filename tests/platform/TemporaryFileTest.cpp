#include "corvane/platform/TemporaryFile.h"

#include "corvane/platform/ByteCopy.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/Failures.h"
#include "tests/support/ScratchFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <regex>

namespace corvane::temporaryfile_test {
namespace {

using test::bytesOf;
using test::contentOf;
using test::ScratchFolder;
using Names = std::vector<std::string>;

Descriptor openedFolder(const ScratchFolder& folder) {
    return Descriptor(::open(folder.path().c_str(), O_RDONLY | O_DIRECTORY));
}

TEST(TemporaryFile, IsNewEmptyAndForItsOwnerOnly) {
    const ScratchFolder folder;
    const Descriptor opened = openedFolder(folder);
    const TemporaryFile file(opened.number(), "mp3");
    EXPECT_TRUE(std::regex_match(file.name(), std::regex("tmp[0-9A-F]{16}\\.mp3"))) << file.name();
    EXPECT_EQ(folder.names(), Names{file.name()});
    EXPECT_EQ(test::statusOf(folder.path(file.name())).st_mode & 07777, 0600U);
    EXPECT_EQ(contentOf(folder.path(file.name())), ByteArray());
}

TEST(TemporaryFile, DisappearsWithItsObject) {
    const ScratchFolder folder;
    const Descriptor opened = openedFolder(folder);
    {
        TemporaryFile file(opened.number());
        const TemporaryFile other(std::move(file));
        EXPECT_EQ(folder.names().size(), 1U);
    }
    EXPECT_EQ(folder.names(), Names{});
}

TEST(TemporaryFile, MayBeKept) {
    const ScratchFolder folder;
    const Descriptor opened = openedFolder(folder);
    const std::string name = TemporaryFile(opened.number()).keep();
    EXPECT_EQ(folder.names(), Names{name});
}

TEST(TemporaryFile, ReplacesAFileInOneStep) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", bytesOf("old"));
    const Descriptor opened = openedFolder(folder);
    {
        TemporaryFile file(opened.number());
        writeAt(file.descriptor(), 0, bytesOf("new"));
        file.flush();
        file.replace("f");
        EXPECT_EQ(file.name(), "");
    }
    EXPECT_EQ(folder.names(), Names{"f"});
    EXPECT_EQ(contentOf(path), bytesOf("new"));
}

TEST(TemporaryFile, AFailedReplacementLeavesBothAsTheyWere) {
    const ScratchFolder folder;
    ASSERT_EQ(::mkdir(folder.path("d").c_str(), 0700), 0);
    const Descriptor opened = openedFolder(folder);
    {
        TemporaryFile file(opened.number());
        EXPECT_EQ(test::failureNumberOf([&] { file.replace("d"); }), EISDIR);
    }
    EXPECT_EQ(folder.names(), Names{"d"});
}

TEST(TemporaryFile, CannotBeMadeInAFolderThatIsNone) {
    EXPECT_EQ(test::failureNumberOf([] { TemporaryFile file(-1); }), EBADF);
}

} // namespace
} // namespace corvane::temporaryfile_test
