#include "corvane/core/FileHandler.h"
#include "corvane/xml/XmlText.h"

#include "apps/cli/Commands.h"
#include "apps/cli/LibraryFailure.h"
#include "apps/cli/OutputFile.h"

namespace corvane::cli {

namespace {

// The document as bytes of ISO-8859-1, as its declaration says.
std::string documentOf(const std::string& path) {
    FileHandler handler;
    openFile(handler, path);
    return latin1Document(handler.xml());
}

class XmlCommand final : public Command {
public:
    void declareOptions(Options& options) override {
        options.addText("-o,--output", "FILE", output_, "Write to this file instead; it appears when it is complete");
    }

    void run(Session& session, const std::vector<std::string>& operands) override {
        std::string document;
        try {
            document = documentOf(operands.front());
        } catch (const std::exception& failure) {
            return session.failures.file(operands.front(), failure.what());
        }
        if (output_.empty()) return session.output.write(document);
        try {
            writeOutputFile(output_, document, operands.front());
        } catch (const std::exception& failure) {
            session.failures.file(output_, failure.what());
        }
    }

private:
    std::string output_;
};

} // namespace

std::unique_ptr<Command> makeXmlCommand() { return std::make_unique<XmlCommand>(); }

} // namespace corvane::cli
