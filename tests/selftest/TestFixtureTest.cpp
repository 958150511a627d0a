#include "corvane/selftest/TestFixture.h"

#include "corvane/platform/RuntimeFailure.h"

#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <vector>

namespace corvane {
namespace {

struct Check {
    bool passed;
    std::string message;
};

// Keeps everything that it is told, and can spoil the scratch file before a step.
class Recorder final : public ITestManager {
public:
    bool CheckCondition(bool Condition, const std::string& Message) override {
        checks.push_back({Condition, Message});
        return Condition;
    }
    void StartStep(const std::string& Text) override {
        steps.push_back(Text);
        if (beforeStep) beforeStep(steps);
    }
    std::vector<std::string> failures() const {
        std::vector<std::string> messages;
        for (const Check& check : checks) {
            if (!check.passed) messages.push_back(check.message);
        }
        return messages;
    }

    std::vector<Check> checks;
    std::vector<std::string> steps;
    std::function<void(const std::vector<std::string>&)> beforeStep;
};

class TestFixtureTest : public testing::Test {
protected:
    TestFixtureTest() { std::filesystem::current_path(folder_.path()); }
    ~TestFixtureTest() override { std::filesystem::current_path(before_); }

    void run() {
        TestFixture fixture;
        fixture.Setup(recorder_, "project.vbp");
        fixture.RunTest();
        fixture.TearDown();
    }

    const std::filesystem::path before_ = std::filesystem::current_path();
    const test::ScratchFolder folder_;
    const std::shared_ptr<Recorder> recorder_ = std::make_shared<Recorder>();
};

TEST_F(TestFixtureTest, TheNameIsThatOfTheTest) { EXPECT_EQ(TestFixture().Name(), "ID3v1xTagRW Test"); }

TEST_F(TestFixtureTest, TheManagerShallGoOnAfterAFailedCheck) { EXPECT_TRUE(TestFixture().ContinueAfterError()); }

TEST_F(TestFixtureTest, WithoutAScratchFileOnlyTheDeletionFails) {
    run();
    EXPECT_EQ(recorder_->failures(), std::vector<std::string>{"Couldn't delete the Test-File"});
    EXPECT_EQ(recorder_->checks.size(), 1 + 1 + 2 * (1 + 1 + 8));
}

TEST_F(TestFixtureTest, WithAScratchFileAllChecksPass) {
    folder_.write("MP3Tst00.mp3", {});
    run();
    EXPECT_TRUE(recorder_->failures().empty());
}

TEST_F(TestFixtureTest, TheStepsAreAnnouncedInTheirOrder) {
    run();
    EXPECT_EQ(recorder_->steps,
              (std::vector<std::string>{"Deleting Test-File", "Create Test-File", "Testing file size", "Write Tag",
                                        "Check if Tag exists", "Testing file size", "Comparing written Tag",
                                        "- REWRITE TAG -", "Write Tag", "Check if Tag exists", "Testing file size",
                                        "Comparing written Tag"}));
}

TEST_F(TestFixtureTest, TheScratchFileStaysAndHoldsOneTag) {
    run();
    EXPECT_EQ(std::filesystem::file_size("MP3Tst00.mp3"), 138U);
}

TEST_F(TestFixtureTest, ASecondTagBehindTheFirstFailsTheSecondSizeCheck) {
    recorder_->beforeStep = [](const std::vector<std::string>& steps) {
        const bool secondSizeStep = std::count(steps.begin(), steps.end(), "Testing file size") == 3;
        if (secondSizeStep && steps.back() == "Testing file size") std::filesystem::resize_file("MP3Tst00.mp3", 266);
    };
    run();
    const auto failures = recorder_->failures();
    EXPECT_NE(std::find(failures.begin(), failures.end(), "Size incorrect. 138 expected, found: 266"), failures.end());
}

TEST_F(TestFixtureTest, AWrongFieldIsReportedWithWhatWasFound) {
    recorder_->beforeStep = [this](const std::vector<std::string>& steps) {
        if (steps.back() != "Comparing written Tag") return;
        ByteArray bytes = test::contentOf("MP3Tst00.mp3");
        bytes.at(10 + 3) = 'X';
        bytes.at(10 + 127) = 19;
        folder_.write("MP3Tst00.mp3", bytes);
    };
    run();
    EXPECT_EQ(recorder_->failures(), (std::vector<std::string>{"Couldn't delete the Test-File",
                                                               "Title incorrect. Title expected, found : Xitle",
                                                               "Comment incorrect. 18 expected, found : 19",
                                                               "Title incorrect. Title expected, found : Xitle",
                                                               "Comment incorrect. 18 expected, found : 19"}));
}

TEST_F(TestFixtureTest, AFolderThatTakesNoFileFailsTheCreation) {
    std::filesystem::create_directory("MP3Tst00.mp3");
    std::filesystem::create_directory("MP3Tst00.mp3/inside");
    run();
    EXPECT_EQ(recorder_->failures().at(1), "Couldn't create the Test-File 'MP3Tst00.mp3'");
}

TEST_F(TestFixtureTest, WithoutAManagerThereIsNobodyToReportTo) {
    TestFixture fixture;
    try {
        fixture.RunTest();
        FAIL();
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.number(), static_cast<std::int32_t>(FailureNumber::ObjectNotSet));
    }
    EXPECT_TRUE(folder_.names().empty());
}

} // namespace
} // namespace corvane
