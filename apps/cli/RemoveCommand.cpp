#include "corvane/core/FileHandler.h"

#include "apps/cli/Commands.h"
#include "apps/cli/LibraryFailure.h"
#include "apps/cli/TagChange.h"

#include <memory>

namespace corvane::cli {

namespace {

const char* nameOf(EID3TagConstants kind) { return kind == EID3TagConstants::ID3V11 ? "ID3v1.1" : "ID3v1"; }

void removeId3v1Tag(FileHandler& handler) {
    if (!handler.removeID3V1xTag()) throw FileFailure(reasonOf(*handler.LastError()));
}

class RemoveCommand final : public Command {
public:
    void declareOptions(Options& options) override {
        addTagOption(options, tag_);
        addChangeOptions(options, change_);
    }

    void run(Session& session, const std::vector<std::string>& paths) override {
        checkTagChoice(tag_);
        changeFiles(session, change_, paths, prepare);
    }

private:
    static ChangeReport prepare(const std::string& path) {
        const auto handler = std::make_shared<FileHandler>();
        openFile(*handler, path);
        // Says why there is nothing to remove, in the library's words.
        if (!handler->HasTag()) removeId3v1Tag(*handler);
        ChangeReport report;
        report.removed.emplace_back(nameOf(handler->ID3v1xTag()->TagType()));
        report.write = [handler] { removeId3v1Tag(*handler); };
        return report;
    }

    TagChoice tag_ = TagChoice::V1;
    ChangeOptions change_;
};

} // namespace

std::unique_ptr<Command> makeRemoveCommand() { return std::make_unique<RemoveCommand>(); }

} // namespace corvane::cli
