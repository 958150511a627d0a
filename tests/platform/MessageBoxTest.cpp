#include "corvane/platform/MessageBox.h"

#include "tests/support/Process.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace corvane::messagebox_test {
namespace {

// In a process of its own, because the texts hold for the whole process.
TEST(MessageBox, UntilTheHostTellsItsTextsTheyAreTheProgramsName) {
    const int result = test::inChild([] {
        const std::string program = program_invocation_short_name;
        if (hostTexts().title != program || hostTexts().fileDescription != program) return 1;
        setHostTexts({"title", "description"});
        return hostTexts().title == "title" && hostTexts().fileDescription == "description" ? 0 : 2;
    });
    EXPECT_EQ(result, 0);
}

TEST(MessageBox, TheDefaultWritesCaptionAndLinesToStandardError) {
    testing::internal::CaptureStderr();
    showMessageBox({"one\r\ntwo", "caption", MessageBoxIcon::Stop});
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "caption\none\ntwo\n");
}

TEST(MessageBox, TheHookTakesItsPlaceUntilItIsTakenBack) {
    int shown = 0;
    setMessageBoxHook([&](const MessageBoxRequest&) { ++shown; });
    showMessageBox({"text", "caption", MessageBoxIcon::Stop});
    setMessageBoxHook({});
    testing::internal::CaptureStderr();
    showMessageBox({"text", "caption", MessageBoxIcon::Stop});
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "caption\ntext\n");
    EXPECT_EQ(shown, 1);
}

} // namespace
} // namespace corvane::messagebox_test
