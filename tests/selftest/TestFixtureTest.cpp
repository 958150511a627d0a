#include "corvane/selftest/TestFixture.h"

#include "corvane/platform/RuntimeFailure.h"

#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <vector>

namespace corvane::testfixture_test {
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
        if (afterCheck) afterCheck(checks);
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
    std::function<void(const std::vector<Check>&)> afterCheck;
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

// The record behind the ten bytes of content, of which a byte is overwritten before it is compared.
struct SpoiltByte {
    const char* name;
    std::size_t offset; // in the record
    std::uint8_t value;
    std::vector<std::string> failures;
};

class SpoiltField : public TestFixtureTest, public testing::WithParamInterface<SpoiltByte> {};

TEST_P(SpoiltField, IsReportedWithWhatWasExpectedAndFound) {
    folder_.write("MP3Tst00.mp3", {});
    recorder_->beforeStep = [this](const std::vector<std::string>& steps) {
        if (steps.back() != "Comparing written Tag") return;
        ByteArray bytes = test::contentOf("MP3Tst00.mp3");
        bytes.at(10 + GetParam().offset) = GetParam().value;
        folder_.write("MP3Tst00.mp3", bytes);
    };
    run();
    std::vector<std::string> expected = GetParam().failures; // of both rounds
    expected.insert(expected.end(), GetParam().failures.begin(), GetParam().failures.end());
    EXPECT_EQ(recorder_->failures(), expected);
}

INSTANTIATE_TEST_SUITE_P(
    Bytes, SpoiltField,
    testing::Values(SpoiltByte{"Title", 3, 'X', {"Title incorrect. Title expected, found : Xitle"}},
                    SpoiltByte{"Track", 126, 78, {"Track incorrect. 77 expected, found : 78"}},
                    SpoiltByte{"Artist", 33, 'a', {"Artist incorrect. Artist expected, found : artist"}},
                    SpoiltByte{"Album", 63, 0, {"Album incorrect. Album expected, found : "}},
                    SpoiltByte{"Comment", 104, 's', {"Comment incorrect. Comment expected, found : Comments"}},
                    SpoiltByte{"GenreOddlyNamedComment", 127, 19, {"Comment incorrect. 18 expected, found : 19"}},
                    SpoiltByte{"Year", 96, '2', {"Year incorrect. 2001 expected, found : 2002"}},
                    SpoiltByte{
                        "TagTypeAndTrackOfAPlainRecord",
                        126,
                        0,
                        {"TagType incorrect. 2 expected, found : 1", "Track incorrect. 77 expected, found : 0"}}),
    [](const auto& tested) { return tested.param.name; });

TEST_F(TestFixtureTest, WithoutARecordEveryFieldIsReported) {
    folder_.write("MP3Tst00.mp3", {});
    recorder_->beforeStep = [](const std::vector<std::string>& steps) {
        if (steps.size() == 7) std::filesystem::resize_file("MP3Tst00.mp3", 10);
    };
    run();
    EXPECT_EQ(recorder_->failures(),
              (std::vector<std::string>{
                  "TagType incorrect. 2 expected, found : 0",
                  "Title incorrect. Title expected, found : ", "Track incorrect. 77 expected, found : 0",
                  "Artist incorrect. Artist expected, found : ", "Album incorrect. Album expected, found : ",
                  "Comment incorrect. Comment expected, found : ", "Comment incorrect. 18 expected, found : 255",
                  "Year incorrect. 2001 expected, found : "}));
}

TEST_F(TestFixtureTest, ARecordThatIsGoneAfterWritingIsReported) {
    folder_.write("MP3Tst00.mp3", {});
    recorder_->beforeStep = [](const std::vector<std::string>& steps) {
        if (steps.back() == "Check if Tag exists") std::filesystem::resize_file("MP3Tst00.mp3", 10);
    };
    run();
    EXPECT_EQ(recorder_->failures().at(0), "HasTag incorrect. 'True' expected, found: False");
    EXPECT_EQ(recorder_->failures().at(1), "Size incorrect. 138 expected, found: 10");
}

TEST_F(TestFixtureTest, AScratchFileOfAnotherSizeIsReported) {
    folder_.write("MP3Tst00.mp3", {});
    recorder_->beforeStep = [](const std::vector<std::string>& steps) {
        if (steps.size() == 3) std::filesystem::resize_file("MP3Tst00.mp3", 11);
    };
    run();
    EXPECT_EQ(recorder_->failures().at(0), "Size incorrect. 10 expected, found: 11");
}

TEST_F(TestFixtureTest, AScratchFileWithoutASizeIsOneFailureOfItsCreation) {
    folder_.write("MP3Tst00.mp3", {});
    recorder_->beforeStep = [this](const std::vector<std::string>& steps) {
        if (steps.size() == 3) std::filesystem::remove("MP3Tst00.mp3");
        if (steps.back() == "Write Tag") folder_.write("MP3Tst00.mp3", ByteArray(10, 'T'));
    };
    run();
    EXPECT_EQ(recorder_->failures(), std::vector<std::string>{"Couldn't create the Test-File 'MP3Tst00.mp3'"});
}

TEST_F(TestFixtureTest, AFolderThatTakesNoFileFailsTheCreation) {
    std::filesystem::create_directory("MP3Tst00.mp3");
    std::filesystem::create_directory("MP3Tst00.mp3/inside");
    run();
    EXPECT_EQ(recorder_->failures().at(1), "Couldn't create the Test-File 'MP3Tst00.mp3'");
}

TEST_F(TestFixtureTest, AnEmptyFolderOfTheScratchFilesNameIsNotRemoved) {
    std::filesystem::create_directory("MP3Tst00.mp3");
    run();
    EXPECT_EQ(recorder_->failures().at(0), "Couldn't delete the Test-File");
    EXPECT_TRUE(std::filesystem::is_directory("MP3Tst00.mp3"));
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

// A manager that releases itself from the fixture, and is not kept by anybody else, as soon as `count` checks or steps
// were reported.
class Stopping final : public ITestManager {
public:
    Stopping(TestFixture& fixture, std::size_t count, std::vector<std::string>& reported)
        : fixture_(fixture), count_(count), reported_(reported) {}

    bool CheckCondition(bool Condition, const std::string& Message) override {
        return report("check " + Message), Condition;
    }
    void StartStep(const std::string& Text) override { report("step " + Text); }

private:
    void report(const std::string& text) {
        reported_.push_back(text);
        if (reported_.size() != count_) return;
        fixture_.TearDown();
        reported_.push_back(name_ + " lives");
    }

    TestFixture& fixture_;
    std::size_t count_;
    std::vector<std::string>& reported_;
    std::string name_ = "a manager that its fixture alone has held until it has released it";
};

class ReleasedManager : public TestFixtureTest, public testing::WithParamInterface<std::size_t> {};

TEST_P(ReleasedManager, EndsTheRunQuietly) {
    std::vector<std::string> reported;
    TestFixture fixture;
    fixture.Setup(std::make_shared<Stopping>(fixture, GetParam(), reported), {});
    EXPECT_NO_THROW(fixture.RunTest());
    ASSERT_EQ(reported.size(), GetParam() + 1) << "nothing is reported to a manager that was released";
    EXPECT_EQ(reported.back(), "a manager that its fixture alone has held until it has released it lives");
    EXPECT_THROW(fixture.RunTest(), RuntimeFailure) << "there is no manager any more";
}

// 12 steps and, without a scratch file, 22 checks.
INSTANTIATE_TEST_SUITE_P(AtEveryReport, ReleasedManager, testing::Range<std::size_t>(1, 35));

TEST_F(TestFixtureTest, NothingIsDoneForAManagerThatWasReleased) {
    const ByteArray before(5, 'b');
    folder_.write("MP3Tst00.mp3", before);
    TestFixture fixture;
    recorder_->beforeStep = [&](const std::vector<std::string>& /*steps*/) { fixture.TearDown(); };
    fixture.Setup(recorder_, {});
    fixture.RunTest();
    EXPECT_EQ(recorder_->steps, std::vector<std::string>{"Deleting Test-File"});
    EXPECT_EQ(test::contentOf("MP3Tst00.mp3"), before);
}

TEST_F(TestFixtureTest, ARunMayStopAtTheFirstFailedCheck) {
    TestFixture fixture;
    recorder_->afterCheck = [&](const std::vector<Check>& checks) {
        if (!checks.back().passed) fixture.TearDown();
    };
    fixture.Setup(recorder_, {});
    fixture.RunTest();
    EXPECT_EQ(recorder_->checks.size(), 1U);
    EXPECT_TRUE(folder_.names().empty());
}

} // namespace
} // namespace corvane::testfixture_test
