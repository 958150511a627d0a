#include "corvane/core/FileHandler.h"
#include "corvane/id3v2/ID3V2Tag.h"
#include "corvane/id3v230/ID3V230Internals.h"
#include "corvane/id3v230/ID3_TagType.h"

#include "apps/cli/Commands.h"
#include "apps/cli/Id3v1Change.h"
#include "apps/cli/Id3v2Saving.h"
#include "apps/cli/LibraryFailure.h"
#include "apps/cli/TagChange.h"

#include <fmt/core.h>

#include <cstdint>
#include <memory>
#include <utility>

namespace corvane::cli {

namespace {

void removeId3v1Tag(FileHandler& handler) {
    if (!handler.removeID3V1xTag()) throw FileFailure(reasonOf(*handler.LastError()));
}

void removeId3v2Tag(ID3V230& tag) {
    constexpr auto kTagKinds = static_cast<std::uint8_t>(ID3_TagType::ID3TT_ID3V2);
    if (Internals<ID3V230>::StripTags(tag, kTagKinds) == 0) return;
    throw FileFailure(Internals<ID3V230>::lastFailure(tag)->description);
}

std::string id3v2Name(const ID3V2Tag& tag) {
    const auto version = tag.Version();
    return fmt::format("ID3v2.{}.{}", version->Minor(), version->Revision());
}

void addId3v2(ChangeReport& report, const FileHandler& handler) {
    auto image = readTagImage(handler.FileName());
    const std::string obstacle = obstacleToRemoval(*image);
    if (!obstacle.empty()) throw FileFailure(obstacle);
    const auto tag = std::make_shared<ID3V230>();
    Internals<ID3V230>::bind(*tag, std::move(image));
    report.tags.push_back(
        {"v2", id3v2Name(*handler.ID3V2Tag()), ChangedTag::Fate::Removed, {}, [tag] { removeId3v2Tag(*tag); }});
}

void addId3v1(ChangeReport& report, const std::shared_ptr<FileHandler>& handler) {
    report.tags.push_back({"v1", id3v1Name(*handler->ID3v1xTag()), ChangedTag::Fate::Removed, {}, [handler] {
                               removeId3v1Tag(*handler);
                           }});
}

const char* missingText(TagChoice choice) {
    if (choice == TagChoice::V1) return "The file has no ID3v1x tag."; // in the library's words
    return choice == TagChoice::V2 ? "The file has no ID3v2 tag." : "The file has neither an ID3v1 nor an ID3v2 tag.";
}

class RemoveCommand final : public Command {
public:
    void declareOptions(Options& options) override {
        addTagOption(options, tag_, "Which tags; v1 if not given");
        addChangeOptions(options, change_);
    }

    void run(Session& session, const std::vector<std::string>& paths) override {
        changeFiles(session, change_, paths, [this](const std::string& path) { return prepare(path); });
    }

private:
    ChangeReport prepare(const std::string& path) const {
        const auto handler = std::make_shared<FileHandler>();
        openFile(*handler, path);
        ChangeReport report;
        // The last bytes first: 128 bytes that are all of a file are no ID3v1 tag.
        if (tag_ != TagChoice::V2 && handler->HasTag()) addId3v1(report, handler);
        if (tag_ != TagChoice::V1 && handler->HasID3V2Tag()) addId3v2(report, *handler);
        if (report.tags.empty()) throw FileFailure(missingText(tag_));
        return report;
    }

    TagChoice tag_ = TagChoice::V1; // what is lost least: ID3v2 holds most of what people have typed
    ChangeOptions change_;
};

} // namespace

std::unique_ptr<Command> makeRemoveCommand() { return std::make_unique<RemoveCommand>(); }

} // namespace corvane::cli
