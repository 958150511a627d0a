// What a test manager and a test fixture know of each other.
#pragma once

#include "corvane/platform/Export.h"

#include <memory>
#include <string>

namespace corvane {

// The manager that runs fixtures and keeps their results; a host brings its own.
class CORVANE_EXPORT ITestManager {
public:
    virtual ~ITestManager() = default;

    // Records one check. `Condition` true: it passed; `Message` describes the failure.
    virtual bool CheckCondition(bool Condition, const std::string& Message) = 0;
    // Announces the next step.
    virtual void StartStep(const std::string& Text) = 0;
};

// A test that a manager runs: Setup, RunTest, TearDown.
class CORVANE_EXPORT ITestFixture {
public:
    virtual ~ITestFixture() = default;

    // Takes the manager and the path of the host's project.
    virtual void Setup(std::shared_ptr<ITestManager> manager, const std::string& vbpPath) = 0;
    // Runs all steps. Failures are reported to the manager and never raised; fails (ObjectNotSet) without a manager. A
    // manager may call TearDown meanwhile, for one after a failed check: the run then ends without another report.
    virtual void RunTest() = 0;
    // Releases the manager; the fixture keeps it alive until a call of it that is under way has returned.
    virtual void TearDown() = 0;
    // What the test is called.
    virtual std::string Name() const = 0;
    // Whether the manager shall go on with the next step after a failed check.
    virtual bool ContinueAfterError() const = 0;
};

} // namespace corvane
