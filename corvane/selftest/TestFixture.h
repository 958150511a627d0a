// Writes an ID3v1.1 tag into a small scratch file, reads it back and compares every field, then does so again on the
// same file, to prove that a tag is replaced and not added a second time.
//
// The scratch file is "MP3Tst00.mp3" in the current folder; it stays there.
#pragma once

#include "corvane/platform/Export.h"
#include "corvane/selftest/ITestFixture.h"

#include <memory>
#include <string>

namespace corvane {

class CORVANE_EXPORT TestFixture final : public ITestFixture {
public:
    // See ITestFixture. A failed check or step is reported to the manager and raises nothing.
    void Setup(std::shared_ptr<ITestManager> manager, const std::string& vbpPath) override;
    void RunTest() override;
    void TearDown() override;
    std::string Name() const override { return "ID3v1xTagRW Test"; }
    bool ContinueAfterError() const override { return true; }

private:
    // Each returns whether the run goes on: not after the manager was released.
    bool deleteStep();
    bool createStep();
    bool tagSteps();
    bool writeStep();
    bool fileSizeStep();
    bool compareStep();
    bool startStep(const std::string& text);
    bool check(bool condition, const std::string& message);

    std::shared_ptr<ITestManager> manager_;
    std::string projectPath_;
};

} // namespace corvane
