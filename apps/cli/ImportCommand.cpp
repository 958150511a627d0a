#include "corvane/core/FileHandler.h"
#include "corvane/xml/XmlNode.h"

#include "apps/cli/Commands.h"
#include "apps/cli/Id3v1Change.h"
#include "apps/cli/InputFile.h"
#include "apps/cli/LibraryFailure.h"
#include "apps/cli/TagChange.h"

#include <memory>
#include <utility>

namespace corvane::cli {

namespace {

// The element that holds the tag: in a document of its own, or somewhere in that of a whole file.
XmlNode tagElementOf(const ByteArray& document) {
    const XmlNode root = XmlNode::fromBytes(document);
    if (root.baseName() == "ID3V1Tag") return root;
    XmlNode element = root.selectSingleNode("//*[local-name() = 'ID3V1Tag']");
    if (!element) throw FileFailure("The document holds no ID3V1Tag element");
    return element;
}

void importTag(ID3V1Tag& tag, const XmlNode& element) {
    tag.Tag(element);
    if (tag.Track() < 0 || tag.Track() > 255) {
        throw FileFailure("The document's track number lies outside 0 to 255");
    }
}

class ImportCommand final : public Command {
public:
    void declareOptions(Options& options) override {
        addForceOption(options, change_);
        addChangeOptions(options, change_);
    }

    void run(Session& session, const std::vector<std::string>& operands) override {
        const std::string& documentName = operands.back();
        XmlNode element;
        ID3V1Tag imported;
        try {
            element = tagElementOf(readInput(documentName));
            importTag(imported, element);
        } catch (const std::exception& failure) {
            return session.failures.file(documentName, failure.what());
        }
        changeFiles(session, change_, {operands.front()},
                    [&element](const std::string& path) { return prepare(path, element); });
    }

private:
    static ChangeReport prepare(const std::string& path, const XmlNode& element) {
        const auto handler = std::make_shared<FileHandler>();
        openFile(*handler, path);
        Id3v1Change change(handler);
        importTag(change.tag(), element);
        ChangeReport report;
        change.addTo(report, Id3v1Change::Write::NewTagOrChanges);
        return report;
    }

    ChangeOptions change_;
};

} // namespace

std::unique_ptr<Command> makeImportCommand() { return std::make_unique<ImportCommand>(); }

} // namespace corvane::cli
