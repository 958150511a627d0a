#include "corvane/platform/TemporaryNames.h"

#include "corvane/platform/Paths.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/Failures.h"
#include "tests/support/Process.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <regex>
#include <set>

namespace corvane::temporarynames_test {
namespace {

using test::ScratchFolder;

struct Case {
    const char* name;
    const char* prefix;
    const char* form;
};

class TemporaryName : public testing::TestWithParam<Case> {};

TEST_P(TemporaryName, BeginsWithThePrefixPaddedToThree) {
    const ScratchFolder folder;
    const std::string path = createTemporaryFile(folder.path(), GetParam().prefix);
    EXPECT_EQ(folderOf(path), folder.path() + "/");
    EXPECT_TRUE(std::regex_match(fileNameOf(path), std::regex(GetParam().form))) << path;
    EXPECT_EQ(test::contentOf(path), ByteArray());
    EXPECT_EQ(test::statusOf(path).st_mode & 07777, 0600U);
}

INSTANTIATE_TEST_SUITE_P(Prefixes, TemporaryName,
                         testing::Values(Case{"Three", "ID3", "ID3[0-9A-F]{16}\\.tmp"},
                                         Case{"Two", "ab", "ab_[0-9A-F]{16}\\.tmp"},
                                         Case{"One", "a", "a__[0-9A-F]{16}\\.tmp"},
                                         Case{"None", "", "___[0-9A-F]{16}\\.tmp"},
                                         Case{"Longer", "corvane", "corvane[0-9A-F]{16}\\.tmp"}),
                         [](const auto& tested) { return tested.param.name; });

TEST(TemporaryNames, NoTwoNamesAreEqual) {
    std::set<std::string> names;
    for (int i = 0; i < 1000; ++i) names.insert(unguessableName("tmp", "tmp"));
    EXPECT_EQ(names.size(), 1000U);
}

TEST(TemporaryNames, TheTemporaryFolderEndsInASeparator) {
    EXPECT_TRUE(folderExists(temporaryFolder()));
    EXPECT_EQ(temporaryFolder().back(), '/');
}

TEST(TemporaryNames, TheTemporaryFolderIsTheOneOfTheSystemsSettings) {
    const ScratchFolder folder;
    const auto folderFor = [](const std::string& setting, const std::string& expected) {
        return test::inChild([&] {
            ::setenv("TMPDIR", setting.c_str(), 1);
            return temporaryFolder() == expected ? 0 : 1;
        });
    };
    EXPECT_EQ(folderFor(folder.path(), folder.path() + "/"), 0);
    EXPECT_EQ(folderFor(folder.path() + "/", folder.path() + "/"), 0);
    EXPECT_EQ(folderFor(folder.path("none"), "/tmp/"), 0) << "a setting that leads nowhere is not followed";
}

TEST(TemporaryNames, AFileThatCannotBeMadeIsAFailure) {
    const ScratchFolder folder;
    EXPECT_EQ(test::failureNumberOf([&] { createTemporaryFile(folder.path("none"), "tmp"); }), ENOENT);
    EXPECT_EQ(test::failureNumberOf([&] { createTemporaryFile(folder.path(), "a/b"); }), ENOENT);
    EXPECT_EQ(test::failureNumberOf([&] { createTemporaryFile(folder.path() + std::string(1, '\0'), "tmp"); }), EINVAL);
    EXPECT_TRUE(folder.names().empty());
}

} // namespace
} // namespace corvane::temporarynames_test
