#include "corvane/core/FileHandler.h"

#include "apps/cli/Commands.h"
#include "apps/cli/Id3v1Change.h"
#include "apps/cli/Id3v2Edit.h"
#include "apps/cli/LibraryFailure.h"
#include "apps/cli/TagChange.h"
#include "apps/cli/ValueOptions.h"
#include "apps/cli/WrongUse.h"

#include <fmt/core.h>

#include <memory>
#include <utility>

namespace corvane::cli {

namespace {

constexpr const char* kId3v2Name = "ID3v2.3.0"; // what the library writes

class SetCommand final : public Command {
public:
    void declareOptions(Options& options) override {
        values_.declare(options);
        options.startGroup("How");
        addTagOption(options, tag_, "Which tags; else those that the file has, or both where it has none");
        addForceOption(options, change_);
        addChangeOptions(options, change_);
    }

    void run(Session& session, const std::vector<std::string>& paths) override {
        if (!values_.any()) throw WrongUse("Nothing to set");
        if (tag_ == TagChoice::V1) checkId3v1Values();
        if (!values_.readFiles(session.failures)) return;
        changeFiles(session, change_, paths, [this](const std::string& path) { return prepare(path); });
    }

private:
    struct Targets {
        bool v1, v2;
    };

    void checkId3v1Values() const {
        if (values_.id3v2Option() != nullptr) {
            throw WrongUse(fmt::format("ID3v1 tags have no place for {}", values_.id3v2Option()));
        }
        const Id3v1Part part = id3v1Part(values_.values());
        if (!part.lost.empty()) throw WrongUse(part.lost.front());
    }

    Targets targetsIn(const FileHandler& file) const {
        if (tag_ != TagChoice::OfFile) return {tag_ != TagChoice::V2, tag_ != TagChoice::V1};
        const bool hasV1 = file.HasID3V1Tag(), hasV2 = file.HasID3V2Tag();
        if (!hasV1 && !hasV2) return {true, true};
        return {hasV1, hasV2 || values_.id3v2Option() != nullptr};
    }

    ChangeReport prepare(const std::string& path) const {
        const auto handler = std::make_shared<FileHandler>();
        openFile(*handler, path);
        const Targets targets = targetsIn(*handler);
        ChangeReport report;
        if (targets.v2) addId3v2(report, path);
        if (targets.v1) addId3v1(report, handler, targets.v2);
        return report;
    }

    std::shared_ptr<Id3v2Edit> openId3v2(const std::string& path) const {
        try {
            return std::make_shared<Id3v2Edit>(path);
        } catch (const FileFailure& failure) {
            if (tag_ != TagChoice::OfFile || values_.id3v2Option() != nullptr) throw;
            throw FileFailure(std::string(failure.what()) + "; --tag v1 changes the ID3v1 tag alone");
        }
    }

    void addId3v2(ChangeReport& report, const std::string& path) const {
        const auto edit = openId3v2(path);
        TagOutcome outcome = edit->apply(values_.values());
        ChangedTag change{"v2", kId3v2Name};
        if (!outcome.changes.empty()) {
            if (!edit->exists()) change.fate = ChangedTag::Fate::Added;
            if (edit->isEmpty()) change.fate = ChangedTag::Fate::Removed;
            change.write = [edit] { edit->write(); };
        }
        change.changes = std::move(outcome.changes);
        report.tags.push_back(std::move(change));
        report.warnings = std::move(outcome.warnings);
    }

    // A value that has no number in ID3v1 must stand somewhere else.
    void addId3v1(ChangeReport& report, const std::shared_ptr<FileHandler>& handler, bool alsoInId3v2) const {
        const Id3v1Part part = id3v1Part(values_.values());
        if (!part.lost.empty() && !alsoInId3v2) {
            throw FileFailure(part.lost.front() + "; --tag both gives the file an ID3v2.3 tag too");
        }
        report.warnings.insert(report.warnings.end(), part.lost.begin(), part.lost.end());
        Id3v1Change change(handler);
        applyValues(change.tag(), part.values);
        change.addTo(report);
    }

    ValueOptions values_;
    TagChoice tag_ = TagChoice::OfFile;
    ChangeOptions change_;
};

} // namespace

std::unique_ptr<Command> makeSetCommand() { return std::make_unique<SetCommand>(); }

} // namespace corvane::cli
