#include "corvane/id3v230/PrivateFolder.h"

#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace corvane::privatefolder_test {
namespace {

using namespace test;

TEST(PrivateFolder, IsForItsOwnerOnlyAndGoesWithItsContent) {
    std::string path;
    {
        const PrivateFolder folder;
        path = folder.path();
        EXPECT_EQ(statusOf(path).st_mode & 07777U, 0700U);
        std::ofstream(path + "/file") << "content";
    }
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(PrivateFolder, ItsOwnFileIsEmptyAndGoesWithIt) {
    std::string path;
    {
        PrivateFolder folder;
        const std::string file = folder.makeFile();
        path = folder.path();
        EXPECT_TRUE(file.starts_with(path + "/tmp")) << file;
        EXPECT_TRUE(contentOf(file).empty());
        std::ofstream(file) << "content";
    }
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(PrivateFolder, IsAnotherOneEachTime) {
    const PrivateFolder one;
    const PrivateFolder other;
    EXPECT_NE(one.path(), other.path());
}

} // namespace
} // namespace corvane::privatefolder_test
