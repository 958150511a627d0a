#include "corvane/core/FileHandler.h"

#include "apps/cli/AudioSection.h"
#include "apps/cli/Colours.h"
#include "apps/cli/Commands.h"
#include "apps/cli/FileSection.h"
#include "apps/cli/Id3v1Section.h"
#include "apps/cli/Id3v2Section.h"
#include "apps/cli/LibraryFailure.h"
#include "apps/cli/LyricsSection.h"
#include "apps/cli/SectionText.h"

namespace corvane::cli {

namespace {

// The failure that loading the Lyrics3 tag leaves behind; "" when it leaves none.
std::string loadLyrics(FileHandler& handler) {
    const std::string before = handler.LastError()->Stream();
    handler.HasLyricsTag();
    return handler.LastError()->Stream() == before ? std::string() : reasonOf(*handler.LastError());
}

void addLyricsSections(std::vector<Section>& sections, FileHandler& handler) {
    const std::string failure = loadLyrics(handler);
    if (handler.HasLyricsTag()) sections.push_back(lyricsSection(*handler.LyricsTag()));
    if (!failure.empty()) sections.push_back({"Lyrics3 tag", {{"", "Fields", "not all read: " + failure}}});
}

std::vector<Section> sectionsOf(FileHandler& handler) {
    std::vector<Section> sections{fileSection(handler), audioSection(*handler.MPEGHeader())};
    const std::size_t withoutTags = sections.size();
    if (handler.HasID3V2Tag()) sections.push_back(id3v2Section(*handler.ID3V2Tag(), handler.FileName()));
    addLyricsSections(sections, handler);
    if (handler.HasID3V1Tag()) sections.push_back(id3v1Section(*handler.ID3v1xTag()));
    if (sections.size() == withoutTags) sections.push_back({"No tags", {}});
    return sections;
}

class ShowCommand final : public Command {
public:
    void declareOptions(Options& options) override { addColourOption(options, colour_); }

    void run(Session& session, const std::vector<std::string>& paths) override {
        const Colours colours(colour_, session.output.isTerminal());
        for (const std::string& path : paths) {
            try {
                FileHandler handler;
                openFile(handler, path);
                write(session.output, sectionsOf(handler), colours);
            } catch (const OutputFailure&) {
                throw;
            } catch (const std::exception& failure) {
                session.failures.file(path, failure.what());
            }
        }
    }

private:
    // An empty line stands between sections, two between files.
    void write(Output& output, const std::vector<Section>& sections, const Colours& colours) {
        if (std::exchange(hasWritten_, true)) output.write("\n\n");
        std::string text;
        for (const Section& section : sections) {
            text.append(text.empty() ? "" : "\n").append(sectionText(section, colours, output.columns()));
        }
        output.write(text);
    }

    ColourChoice colour_ = ColourChoice::Auto;
    bool hasWritten_ = false;
};

} // namespace

std::unique_ptr<Command> makeShowCommand() { return std::make_unique<ShowCommand>(); }

} // namespace corvane::cli
