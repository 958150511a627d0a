#include "corvane/id3v230/PrivateFolder.h"

#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace corvane {
namespace {

using namespace test;

TEST(PrivateFolder, IsForItsOwnerOnlyAndGoesWithItsContent) {
    std::string path;
    {
        const PrivateFolder folder;
        path = folder.path();
        EXPECT_EQ(statusOf(path).st_mode & 07777U, 0700U);
        std::filesystem::create_directory(path + "/folder");
        std::ofstream(path + "/folder/file") << "content";
    }
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(PrivateFolder, IsAnotherOneEachTime) {
    const PrivateFolder one;
    const PrivateFolder other;
    EXPECT_NE(one.path(), other.path());
}

} // namespace
} // namespace corvane
