#include "corvane/core/cError.h"

#include "corvane/platform/RuntimeFailure.h"

#include "tests/support/HostMessageBox.h"

#include <gtest/gtest.h>
#include <pthread.h>

#include <cerrno>
#include <filesystem>
#include <new>
#include <stdexcept>

namespace corvane::cerror_test {
namespace {

using test::HostMessageBox;

// A record with all four fields set.
cError filled() {
    cError error;
    error.Source = "Read Tag";
    error.Description = "File does not exist.";
    error.Number = 53;
    error.Severity = 2;
    return error;
}

void expectFields(const cError& error, std::int32_t number, const std::string& source, const std::string& description,
                  std::int32_t severity) {
    EXPECT_EQ(error.Number, number);
    EXPECT_EQ(error.Source, source);
    EXPECT_EQ(error.Description, description);
    EXPECT_EQ(error.Severity, severity);
}

TEST(cError, ANewRecordIsEmpty) { expectFields(cError(), 0, "", "", 0); }

TEST(cError, ClearResetsAllFourFields) {
    cError error = filled();
    error.Clear();
    expectFields(error, 0, "", "", 0);
}

TEST(cError, AFailedCheckIsRecordedWithSeverityOneAndNoNumber) {
    cError error = filled();
    error.record("Write Tag", "Tag unknown.");
    expectFields(error, 0, "Write Tag", "Tag unknown.", 1);
    error.record("Read Tag", "The file contains no tag.", cError::kNone);
    expectFields(error, 0, "Read Tag", "The file contains no tag.", 0);
}

TEST(cError, CopyErrorWithoutAFailureChangesNothing) {
    cError error = filled();
    EXPECT_FALSE(error.CopyError(nullptr));
    expectFields(error, 53, "Read Tag", "File does not exist.", 2);
}

TEST(cError, CopyErrorTakesNumberSourceAndDescriptionOfTheFailure) {
    cError error = filled();
    const RuntimeFailure failure(FailureNumber::ObjectDefined, "Create", "This is a ZIP-File");
    EXPECT_TRUE(error.CopyError(&failure));
    expectFields(error, -2147221504, "Create", "This is a ZIP-File", 2);
}

TEST(cError, CopyErrorLeavesNothingOfTheOldRecord) {
    cError error = filled();
    const std::runtime_error failure("no number, no source");
    EXPECT_TRUE(error.CopyError(&failure));
    expectFields(error, 51, "", "no number, no source", 2);
}

// The number 0 is that of the library's own checks.
TEST(cError, NoFailureThatIsCopiedHasTheNumber0) {
    cError error;
    const std::length_error tooLong("too long");
    EXPECT_TRUE(error.CopyError(&tooLong));
    expectFields(error, 51, "", "too long", 2);
    const std::system_error ofNoSystem(0, std::generic_category(), "odd");
    EXPECT_TRUE(error.CopyError(&ofNoSystem));
    expectFields(error, 51, "", ofNoSystem.what(), 2);
}

TEST(cError, CopyErrorTakesTheNumberOfASystemError) {
    cError error;
    const std::system_error failure(EACCES, std::generic_category());
    EXPECT_TRUE(error.CopyError(&failure));
    EXPECT_EQ(error.Number, EACCES);
    const RuntimeFailure same = systemFailure(ENOSPC, "write");
    EXPECT_TRUE(error.CopyError(&same));
    expectFields(error, ENOSPC, "write", "No space left on device", 2);
}

TEST(cError, CopyErrorTellsThatMemoryRanOut) {
    cError error;
    const std::bad_alloc failure;
    EXPECT_TRUE(error.CopyError(&failure));
    expectFields(error, ENOMEM, "", "Cannot allocate memory", 2);
}

TEST(cError, StreamIsNumberSourceAndDescription) { EXPECT_EQ(filled().Stream(), "53, Read Tag, File does not exist."); }

TEST(cError, StreamOfAFailedCheckBeginsWithZero) {
    cError error;
    error.record("Read Tag", "File does not exist.");
    EXPECT_EQ(error.Stream(), "0, Read Tag, File does not exist.");
}

TEST(cError, StreamWritesANegativeNumberWithItsSign) {
    cError error;
    error.Number = static_cast<std::int32_t>(FailureNumber::ObjectDefined);
    EXPECT_EQ(error.Stream(), "-2147221504, , ");
}

TEST(cError, StreamOfAnEmptyRecordIsZeroAndTwoSeparators) { EXPECT_EQ(cError().Stream(), "0, , "); }

TEST(cError, CopyHistoryOfNoRecordReturnsFalseAndChangesNothing) {
    cError error = filled();
    EXPECT_FALSE(error.CopyHistory(nullptr, "Outer", "failed"));
    expectFields(error, 53, "Read Tag", "File does not exist.", 2);
}

TEST(cError, CopyHistoryWrapsARecordUnderTheCurrentOperation) {
    const cError inner = filled();
    cError error;
    error.record("old", "old");
    EXPECT_TRUE(error.CopyHistory(&inner, "Create", "It could not be opened."));
    expectFields(error, 53, "Create", "It could not be opened.\r\n53, Read Tag, File does not exist.", 2);
}

TEST(cError, CopyHistoryWithoutTextsKeepsTheLineOfTheInnerRecord) {
    const cError inner = filled();
    cError error;
    EXPECT_TRUE(error.CopyHistory(&inner));
    expectFields(error, 53, "", "\r\n53, Read Tag, File does not exist.", 2);
}

TEST(cError, CopyHistoryMayWrapItself) {
    cError error = filled();
    EXPECT_TRUE(error.CopyHistory(&error, "Outer", "failed"));
    expectFields(error, 53, "Outer", "failed\r\n53, Read Tag, File does not exist.", 2);
}

TEST(cError, CopyHistoryExPushesTheSourceIntoTheDescription) {
    cError error;
    error.record("Inner", "Failed");
    error.Number = 7;
    error.CopyHistoryEx("Outer", " / ");
    expectFields(error, 7, "Outer", "Inner / Failed", 1);
    error.CopyHistoryEx("Outermost");
    expectFields(error, 7, "Outermost", "OuterInner / Failed", 1);
}

TEST(cError, CopyHistoryExMayTakeItsTextsFromTheRecord) {
    cError error;
    error.record("Inner", "a description that is longer than any small buffer");
    error.CopyHistoryEx(error.Description, error.Source);
    expectFields(error, 0, "a description that is longer than any small buffer",
                 "InnerInnera description that is longer than any small buffer", 1);
}

struct IconCase {
    const char* name;
    std::int32_t severity;
    int style;
};

class IconOfSeverity : public testing::TestWithParam<IconCase> {};

TEST_P(IconOfSeverity, IsThePublishedStyle) {
    HostMessageBox host;
    cError error = filled();
    error.Severity = GetParam().severity;
    error.Show();
    ASSERT_EQ(host.shown.size(), 1U);
    EXPECT_EQ(static_cast<int>(host.shown.front().icon), GetParam().style);
}

INSTANTIATE_TEST_SUITE_P(Severities, IconOfSeverity,
                         testing::Values(IconCase{"NoneIsInformation", 0, 64}, IconCase{"WarningIsExclamation", 1, 48},
                                         IconCase{"ErrorIsStop", 2, 16}, IconCase{"MoreIsInformation", 3, 64},
                                         IconCase{"LessIsInformation", -1, 64}),
                         [](const auto& tested) { return tested.param.name; });

TEST(cError, ShowWritesTheNumberOnlyWhenThereIsOne) {
    HostMessageBox host;
    cError error = filled();
    error.Show();
    error.Number = 0;
    error.Show();
    cError().Show();
    ASSERT_EQ(host.shown.size(), 3U);
    EXPECT_EQ(host.shown[0].text, "53\r\nRead Tag\r\nFile does not exist.");
    EXPECT_EQ(host.shown[1].text, "Read Tag\r\nFile does not exist.");
    EXPECT_EQ(host.shown[2].text, "\r\n") << "an empty record is a single line end";
}

TEST(cError, TheCaptionIsTheFileDescriptionAndTheTitleOrTheHostsTitle) {
    HostMessageBox host;
    filled().Show("Saving");
    filled().Show();
    filled().Show("");
    ASSERT_EQ(host.shown.size(), 3U);
    EXPECT_EQ(host.shown[0].caption, "a host for tests : Saving");
    EXPECT_EQ(host.shown[1].caption, "the host");
    EXPECT_EQ(host.shown[2].caption, "the host");
}

TEST(cError, WithoutAHostTheBoxIsWrittenToStandardError) {
    {
        const HostMessageBox host; // afterwards there is no hook again
    }
    testing::internal::CaptureStderr();
    filled().Show("Saving");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "a host for tests : Saving\n53\nRead Tag\nFile does not exist.\n");
}

TEST(cError, AHookMaySetAnotherHook) {
    HostMessageBox host;
    int shownByFirst = 0;
    setMessageBoxHook([&](const MessageBoxRequest&) {
        ++shownByFirst;
        setMessageBoxHook([&](const MessageBoxRequest& request) { host.shown.push_back(request); });
    });
    filled().Show();
    filled().Show();
    EXPECT_EQ(shownByFirst, 1);
    EXPECT_EQ(host.shown.size(), 1U);
}

TEST(RecordFailures, NoFailureLeavesTheRecordAsItIs) {
    cError error = filled();
    EXPECT_EQ(recordFailures(error, -1, [] { return 7; }), 7);
    expectFields(error, 53, "Read Tag", "File does not exist.", 2);
}

TEST(RecordFailures, AFailureIsRecordedAndTheFailureValueIsTheResult) {
    cError error = filled();
    const auto fails = []() -> bool { throw RuntimeFailure(FailureNumber::Overflow, "Duration", "Overflow"); };
    EXPECT_FALSE(recordFailures(error, false, fails));
    expectFields(error, 6, "Duration", "Overflow", 2);
}

TEST(RecordFailures, AllocationAndConversionFailuresDoNotPassEither) {
    cError error;
    EXPECT_EQ(recordFailures(error, 0, []() -> int { throw std::bad_alloc(); }), 0);
    EXPECT_EQ(error.Number, ENOMEM);
    EXPECT_EQ(recordFailures(error, 0, [] { return std::stoi("x"); }), 0);
    EXPECT_EQ(error.Severity, 2);
    EXPECT_EQ(recordFailures(error, 0, [] { return static_cast<int>(std::filesystem::file_size("/none")); }), 0);
    EXPECT_EQ(error.Number, ENOENT);
}

TEST(RecordFailures, WhatIsNoExceptionOfTheStandardLibraryDoesNotPassEither) {
    cError error;
    EXPECT_EQ(recordFailures(error, 7, []() -> int { throw 3; }), 7);
    expectFields(error, 51, "", "Unknown failure", 2);
}

// The system unwinds a thread that ends itself or is cancelled; who stops that ends the process.
TEST(RecordFailures, TheEndOfAThreadPasses) {
    cError error = filled();
    pthread_t thread{};
    const auto body = [](void* record) -> void* {
        recordFailures(*static_cast<cError*>(record), 0, []() -> int { ::pthread_exit(nullptr); });
        return record;
    };
    ASSERT_EQ(::pthread_create(&thread, nullptr, body, &error), 0);
    void* result = &error;
    ASSERT_EQ(::pthread_join(thread, &result), 0);
    EXPECT_EQ(result, nullptr);
    expectFields(error, 53, "Read Tag", "File does not exist.", 2);
}

} // namespace
} // namespace corvane::cerror_test
