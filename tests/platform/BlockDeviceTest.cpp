#include "corvane/platform/BlockDevice.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <filesystem>

namespace corvane::blockdevice_test {
namespace {

using test::bytesOf;
using test::ScratchFolder;

struct Case {
    const char* name;
    const char* linkName;
    const char* decoded;
};

class UdevName : public testing::TestWithParam<Case> {};

TEST_P(UdevName, IsDecoded) { EXPECT_EQ(udevDecoded(GetParam().linkName), GetParam().decoded); }

INSTANTIATE_TEST_SUITE_P(Names, UdevName,
                         testing::Values(Case{"Plain", "Music", "Music"}, Case{"Blank", R"(My\x20Music)", "My Music"},
                                         Case{"Slash", R"(a\x2fb\x2Fc)", "a/b/c"},
                                         Case{"Utf8", "Mus\u00EFk", "Mus\u00EFk"},
                                         Case{"Backslash", R"(a\x5cx20)", R"(a\x20)"},
                                         Case{"NotHexadecimal", R"(a\xg0)", R"(a\xg0)"},
                                         Case{"CutShort", R"(a\x2)", R"(a\x2)"}, Case{"Nothing", "", ""}),
                         [](const auto& tested) { return tested.param.name; });

std::string anyBlockDevice() {
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator("/dev", ignored)) {
        if (entry.is_block_file(ignored)) return entry.path().string();
    }
    return {};
}

TEST(BlockDevice, ItsNameIsThatOfTheLinkThatLeadsToIt) {
    const ScratchFolder folder;
    const std::string device = anyBlockDevice();
    if (device.empty()) GTEST_SKIP() << "this machine shows no block device";
    struct stat status {};
    ASSERT_EQ(::stat(device.c_str(), &status), 0);
    ASSERT_EQ(::symlink("/dev/null", folder.path("A\\x20null").c_str()), 0);
    ASSERT_EQ(::symlink("/none", folder.path("Broken").c_str()), 0);
    EXPECT_EQ(diskName(folder.path(), status.st_rdev), "");
    ASSERT_EQ(::symlink(device.c_str(), folder.path("My\\x20Music").c_str()), 0);
    EXPECT_EQ(diskName(folder.path(), status.st_rdev), "My Music");
    EXPECT_EQ(diskName(folder.path(), status.st_rdev + 1), "");
    EXPECT_EQ(diskName(folder.path("none"), status.st_rdev), "");
}

// The folder as the kernel shows it: each number is a link to the folder of a disk, or of a part inside a disk's.
TEST(BlockDevice, IsRemovableWhenItOrItsDiskSaysSo) {
    const ScratchFolder folder;
    for (const char* disk : {"disks/stick", "disks/fixed", "numbers"})
        std::filesystem::create_directories(folder.path(disk));
    std::filesystem::create_directory(folder.path("disks/stick/part"));
    std::filesystem::create_directory(folder.path("disks/fixed/part"));
    folder.write("disks/stick/removable", bytesOf("1\n"));
    folder.write("disks/fixed/removable", bytesOf("0\n"));
    const auto number = [&](const char* name, const char* target) {
        std::filesystem::create_symlink(folder.path(target), folder.path(std::string("numbers/") + name));
    };
    number("8:0", "disks/stick");
    number("8:1", "disks/stick/part");
    number("8:16", "disks/fixed");
    number("8:17", "disks/fixed/part");
    const std::string numbers = folder.path("numbers");
    EXPECT_TRUE(isRemovable(makedev(8, 0), numbers));
    EXPECT_TRUE(isRemovable(makedev(8, 1), numbers));
    EXPECT_FALSE(isRemovable(makedev(8, 16), numbers));
    EXPECT_FALSE(isRemovable(makedev(8, 17), numbers));
    EXPECT_FALSE(isRemovable(makedev(8, 99), numbers));
}

} // namespace
} // namespace corvane::blockdevice_test
