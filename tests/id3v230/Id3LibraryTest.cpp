#include "corvane/id3v230/Id3Library.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <thread>
#include <vector>

namespace corvane::id3library_test {
namespace {

using namespace test;

// What the probe prints when the loader looks into `folder` first.
std::string probed(const std::string& folder) {
    std::string text;
    std::FILE* const pipe = ::popen(("LD_LIBRARY_PATH='" + folder + "' '" + CORVANE_LIBRARY_PROBE + "'").c_str(), "r");
    for (int character = std::fgetc(pipe); character != EOF; character = std::fgetc(pipe)) {
        text.push_back(static_cast<char>(character));
    }
    return ::pclose(pipe) == 0 ? text : "failed: " + text;
}

TEST(Id3Library, IsLoadedWhenItIsNeededAndNotBefore) {
    const ScratchFolder empty;
    EXPECT_EQ(probed(empty.path()), "not loaded\npresent\n\nloaded\n0\n");
}

struct UnusableCase {
    const char* name;
    const char* content;
};
class Id3LibraryMissing : public testing::TestWithParam<UnusableCase> {};
TEST_P(Id3LibraryMissing, IsFoundOutByTheLoadersSearch) {
    const ScratchFolder folder;
    folder.write(kId3LibraryFile, bytesOf(GetParam().content));
    EXPECT_EQ(probed(folder.path()), "not loaded\n"
                                     "missing\n"
                                     "The DLL 'libid3-3.8.so.3' is not present.\r\n"
                                     "Please install it into the program directory.\n"
                                     "not loaded\n11\n");
}
INSTANTIATE_TEST_SUITE_P(Files, Id3LibraryMissing,
                         testing::Values(UnusableCase{"OfNothing", ""},
                                         UnusableCase{"OfText", "This is no library, but it is long enough to be one: "
                                                                "the header of a library has 64 bytes."}),
                         [](const auto& tested) { return tested.param.name; });

TEST(Id3Library, WithoutOneOfItsFunctionsCountsAsMissing) {
    const ScratchFolder folder;
    const std::string command = "ln -s '" CORVANE_LIBRARY_WITHOUT_FUNCTIONS "' '" + folder.path(kId3LibraryFile) + "'";
    ASSERT_EQ(std::system(command.c_str()), 0);
    EXPECT_TRUE(probed(folder.path()).starts_with("not loaded\nmissing\nThe DLL '")) << probed(folder.path());
}

TEST(Id3Library, IsTheSameForAllThreads) {
    std::vector<const Id3Library*> seen(8);
    {
        std::vector<std::thread> threads;
        for (const Id3Library*& one : seen) threads.emplace_back([&one] { one = Id3Library::loaded(); });
        for (std::thread& thread : threads) thread.join();
    }
    ASSERT_NE(seen.front(), nullptr);
    EXPECT_EQ(seen, std::vector<const Id3Library*>(8, Id3Library::loaded()));
}

TEST(Id3Library, PresentHasNoMessage) {
    EXPECT_TRUE(checkId3Library().present);
    EXPECT_EQ(checkId3Library().message, "");
}

} // namespace
} // namespace corvane::id3library_test
