#include "corvane/selftest/TestFixture.h"

#include "apps/cli/Colours.h"
#include "apps/cli/Commands.h"
#include "apps/cli/SelftestFolder.h"
#include "apps/cli/VisibleText.h"

#include <fmt/core.h>

#include <memory>

namespace corvane::cli {

namespace {

// The first deletion finds no file in a folder where the test has never run.
constexpr std::string_view kExpectedFailure = "Couldn't delete the Test-File";

// Prints what the fixture does and counts what it finds.
class Printer final : public ITestManager {
public:
    Printer(Output& output, const Colours& colours, bool isFirstRun)
        : output_(output), colours_(colours), firstRun_(isFirstRun) {}

    bool CheckCondition(bool Condition, const std::string& Message) override {
        const bool isExpected = !Condition && firstRun_ && Message == kExpectedFailure;
        if (Condition) {
            ++passed_;
            output_.write(fmt::format("  {}      {}\n", colours_.good("ok"), subjectOf(Message)));
        } else {
            ++(isExpected ? expected_ : failed_);
            output_.write(fmt::format("  {}  {}{}\n", colours_.bad("FAILED"), visibleText(Message),
                                      isExpected ? " (there was none yet: as expected)" : ""));
        }
        return Condition;
    }

    void StartStep(const std::string& Text) override { output_.write(colours_.heading(Text) + "\n"); }

    std::size_t failedCount() const { return failed_; }
    std::string summary() const {
        std::string text = fmt::format("{} checks passed, {} failed", passed_, failed_);
        if (expected_ > 0) text += fmt::format(", {} failed as expected", expected_);
        return text + "\n";
    }

private:
    // Messages describe a failure; what stands before "incorrect" is what was looked at.
    static std::string subjectOf(const std::string& message) { return message.substr(0, message.find(" incorrect")); }

    Output& output_;
    const Colours& colours_;
    bool firstRun_;
    std::size_t passed_ = 0, failed_ = 0, expected_ = 0;
};

class SelftestCommand final : public Command {
public:
    void declareOptions(Options& options) override { addColourOption(options, colour_); }

    void run(Session& session, const std::vector<std::string>& operands) override {
        const Colours colours(colour_, session.output.isTerminal());
        try {
            const SelftestFolder folder(operands.empty() ? std::string() : operands.front());
            runIn(folder, session, colours);
        } catch (const OutputFailure&) {
            throw;
        } catch (const std::exception& failure) {
            session.failures.file(operands.empty() ? "temporary folder" : operands.front(), failure.what());
        }
    }

private:
    static void runIn(const SelftestFolder& folder, Session& session, const Colours& colours) {
        const auto printer = std::make_shared<Printer>(session.output, colours, !folder.hasScratchFile());
        TestFixture fixture;
        session.output.write(fixture.Name() + "\n");
        fixture.Setup(printer, {});
        fixture.RunTest();
        fixture.TearDown();
        session.output.write(printer->summary());
        if (printer->failedCount() > 0) {
            session.failures.file(folder.name(), fmt::format("{} checks failed", printer->failedCount()));
        }
    }

    ColourChoice colour_ = ColourChoice::Auto;
};

} // namespace

std::unique_ptr<Command> makeSelftestCommand() { return std::make_unique<SelftestCommand>(); }

} // namespace corvane::cli
