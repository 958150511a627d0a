#include "corvane/core/FileHandler.h"
#include "corvane/platform/Utf.h"

#include "apps/cli/Commands.h"
#include "apps/cli/Id3v1Edit.h"
#include "apps/cli/LibraryFailure.h"
#include "apps/cli/TagChange.h"
#include "apps/cli/WrongUse.h"

#include <fmt/core.h>

#include <array>
#include <memory>
#include <utility>

namespace corvane::cli {

namespace {

struct TextOption {
    const char* name;
    const char* description;
    std::optional<std::string> Id3v1Values::*value;
};

constexpr std::array kTextOptions{TextOption{"--title", "Title, at most 30 characters", &Id3v1Values::title},
                                  TextOption{"--artist", "Artist, at most 30 characters", &Id3v1Values::artist},
                                  TextOption{"--album", "Album, at most 30 characters", &Id3v1Values::album},
                                  TextOption{"--year", "Year, at most 4 characters", &Id3v1Values::year},
                                  TextOption{"--comment", "Comment, at most 28 characters", &Id3v1Values::comment}};

struct OtherOption {
    const char* name;
    const char* description;
    const char* value;
};

// What only ID3v2 has. The options are known, so that a command line meant for them is not half done.
constexpr std::array kId3v2Options{
    OtherOption{"--composer", "Composer", "TEXT"},   OtherOption{"--original-artist", "Original artist", "TEXT"},
    OtherOption{"--copyright", "Copyright", "TEXT"}, OtherOption{"--url", "Web address", "TEXT"},
    OtherOption{"--encoded-by", "Encoder", "TEXT"},  OtherOption{"--lyrics", "Lyrics, from a text file", "FILE"},
    OtherOption{"--picture", "Front cover", "FILE"}};

class SetCommand final : public Command {
public:
    void declareOptions(Options& options) override {
        for (const TextOption& option : kTextOptions) addTextOption(options, option);
        addParsedOption(options, "--track", "Track number, 0 to 255, also as 5/12", values_.track, parseTrack);
        addParsedOption(options, "--genre", "Genre number, or name (see `corvane genres`)", values_.genre, parseGenre);
        addTagOption(options, tag_);
        addChangeOptions(options, change_);
        options.startGroup("For ID3v2 tags, which this version does not change");
        for (const OtherOption& option : kId3v2Options) {
            options.addValue(
                option.name, option.value,
                [this, name = option.name](const std::string&) { id3v2Options_.emplace_back(name); },
                option.description);
        }
    }

    void run(Session& session, const std::vector<std::string>& paths) override {
        checkTagChoice(tag_);
        if (!id3v2Options_.empty()) {
            throw WrongUse(fmt::format("This version changes ID3v1 tags only; {} is for ID3v2", id3v2Options_.front()));
        }
        if (!anyValue_) throw WrongUse("Nothing to set");
        changeFiles(session, change_, paths, [this](const std::string& path) { return prepare(path); });
    }

private:
    void addTextOption(Options& options, const TextOption& option) {
        const auto store = [this, value = option.value](const std::string& text) {
            if (!isUtf8(text)) throw WrongUse("The text is not UTF-8");
            values_.*value = text;
            anyValue_ = true;
        };
        options.addValue(option.name, "TEXT", store, option.description);
    }

    void addParsedOption(Options& options, const char* name, const char* description,
                         std::optional<std::uint8_t>& value, std::optional<std::uint8_t> (*parse)(std::string_view)) {
        const auto store = [this, &value, parse](const std::string& text) {
            value = parse(text);
            if (!value) throw WrongUse(fmt::format("\"{}\" is none", text));
            anyValue_ = true;
        };
        options.addValue(name, "VALUE", store, description);
    }

    ChangeReport prepare(const std::string& path) const {
        const auto handler = std::make_shared<FileHandler>();
        openFile(*handler, path);
        ID3V1Tag& tag = *handler->ID3v1xTag();
        const Id3v1Fields before = fieldsOf(tag);
        applyValues(tag, values_);
        Id3v1Outcome outcome = outcomeOf(before, tag);
        ChangeReport report{std::move(outcome.changes), {}, std::move(outcome.warnings), {}};
        if (!report.changes.empty()) report.write = [handler] { writeId3v1Tag(*handler); };
        return report;
    }

    Id3v1Values values_;
    bool anyValue_ = false;
    std::vector<std::string> id3v2Options_; // those that were given
    TagChoice tag_ = TagChoice::V1;
    ChangeOptions change_;
};

} // namespace

std::unique_ptr<Command> makeSetCommand() { return std::make_unique<SetCommand>(); }

} // namespace corvane::cli
