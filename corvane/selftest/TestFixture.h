// Writes an ID3v1.1 tag into a small scratch file, reads it back and compares every field, then does so again on the
// same file, to prove that a tag is replaced and not added a second time.
//
// The scratch file is "MP3Tst00.mp3" in the current folder; it stays there.
#pragma once

#include "corvane/platform/Export.h"
#include "corvane/selftest/ITestFixture.h"

#include <cstdint>
#include <memory>
#include <string>

namespace corvane {

class CORVANE_EXPORT TestFixture final : public ITestFixture {
public:
    // As ITestFixture tells. A failed check or step is told to the manager and raises nothing.
    void Setup(std::shared_ptr<ITestManager> manager, const std::string& vbpPath) override;
    void RunTest() override;
    void TearDown() override;
    std::string Name() const override { return "ID3v1xTagRW Test"; }
    bool ContinueAfterError() const override { return true; }

private:
    void deleteStep();
    void createStep();
    void writeStep();
    void fileSizeStep();
    void compareStep();
    void check(bool condition, const std::string& message);
    bool checkFileSize(std::uintmax_t expected);

    std::shared_ptr<ITestManager> manager_;
    std::string projectPath_;
};

} // namespace corvane
