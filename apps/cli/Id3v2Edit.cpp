#include "apps/cli/Id3v2Edit.h"

#include "corvane/id3v2/StoredGenre.h"
#include "corvane/id3v230/ID3V230FrameInternals.h"
#include "corvane/id3v230/ID3V230Internals.h"
#include "corvane/id3v230/RecordsToWrite.h"
#include "corvane/id3v230/UrlText.h"

#include "apps/cli/FrontCover.h"
#include "apps/cli/Id3v2Saving.h"
#include "apps/cli/LibraryFailure.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <utility>

namespace corvane::cli {

namespace {

using enum ID3_FrameID;
using Record = Internals<ID3V230Frame>;

// TYER as a text: its property is a number, which no year in letters has.
void writeYear(ID3V230& tag, std::string_view text) {
    if (std::holds_alternative<NoValue>(tag.FrameValue(ID3FID_YEAR))) tag.Year(0);
    for (const auto& record : *tag.Frames()) {
        if (record->eType() != static_cast<std::int16_t>(ID3FID_YEAR) || Record::content(*record).isHidden) continue;
        record->vValue(std::string(text));
        record->bChanged(true);
        return;
    }
}

// A text of the tag, in every form in which the command meets it.
struct Id3v2Field {
    const char* name;
    std::optional<std::string> TagValues::*given;
    ID3_FrameID frame;
    void (*write)(ID3V230& tag, std::string_view text);
};

template <void (ID3V230::*Property)(std::string_view)>
void write(ID3V230& tag, std::string_view text) {
    (tag.*Property)(text);
}

constexpr std::array kId3v2Fields{
    Id3v2Field{"title", &TagValues::title, ID3FID_TITLE, write<&ID3V230::Title>},
    Id3v2Field{"artist", &TagValues::artist, ID3FID_LEADARTIST, write<&ID3V230::Artist>},
    Id3v2Field{"album", &TagValues::album, ID3FID_ALBUM, write<&ID3V230::Album>},
    Id3v2Field{"year", &TagValues::year, ID3FID_YEAR, writeYear},
    Id3v2Field{"comment", &TagValues::comment, ID3FID_COMMENT, write<&ID3V230::Comments>},
    Id3v2Field{"track", &TagValues::track, ID3FID_TRACKNUM, write<&ID3V230::Track>},
    Id3v2Field{"genre", &TagValues::genre, ID3FID_CONTENTTYPE, write<&ID3V230::Genre>},
    Id3v2Field{"composer", &TagValues::composer, ID3FID_COMPOSER, write<&ID3V230::Composer>},
    Id3v2Field{"original-artist", &TagValues::originalArtist, ID3FID_ORIGARTIST, write<&ID3V230::OriginalArtist>},
    Id3v2Field{"copyright", &TagValues::copyright, ID3FID_COPYRIGHT, write<&ID3V230::Copyright>},
    Id3v2Field{"url", &TagValues::url, ID3FID_WWWUSER, write<&ID3V230::UserURL>},
    Id3v2Field{"encoded-by", &TagValues::encodedBy, ID3FID_ENCODEDBY, write<&ID3V230::EncodedBy>},
    Id3v2Field{"lyrics", &TagValues::lyrics, ID3FID_UNSYNCEDLYRICS, write<&ID3V230::LyricsUnsynced>},
    Id3v2Field{"synced-lyrics", &TagValues::syncedLyrics, ID3FID_SYNCEDLYRICS, write<&ID3V230::LyricsSynced>}};

// All of them: a second frame of a kind would stand for the deleted one.
void deleteFrames(const ID3V230& tag, ID3_FrameID frame) {
    for (const auto& record : *tag.Frames()) {
        const auto& content = Record::content(*record);
        const bool isMeant = record->eType() == static_cast<std::int16_t>(frame) && content.description.empty();
        if (isMeant && !content.isHidden) record->Delete();
    }
}

bool isDigit(char character) { return character >= '0' && character <= '9'; }

// The year of a date. TYER has four digits (ID3v2.3.0 section 4.2.1), and programs overlook one that has more.
std::string yearOf(const std::string& text) {
    constexpr std::size_t kDigits = 4;
    const bool isDate = text.size() > kDigits && std::all_of(text.begin(), text.begin() + kDigits, isDigit);
    return isDate && !isDigit(text[kDigits]) ? text.substr(0, kDigits) : text;
}

std::string storedText(const Id3v2Field& field, const std::string& given) {
    if (field.frame == ID3FID_CONTENTTYPE) return withApostrophes(storedGenre(given));
    if (field.frame == ID3FID_WWWUSER) return escapedUrl(withApostrophes(given));
    return withApostrophes(field.frame == ID3FID_YEAR ? yearOf(given) : given);
}

// A genre that another program has stored in another form is the same genre, and stays.
bool isSameValue(const Id3v2Field& field, const std::string& before, const std::string& after) {
    const bool isGenre = field.frame == ID3FID_CONTENTTYPE && !after.empty();
    return before == after || (isGenre && storedGenre(before) == after);
}

bool hasQuotes(std::string_view text) { return text.find('"') != std::string_view::npos; }

void addWarnings(const Id3v2Field& field, const std::string& given, std::vector<std::string>& warnings) {
    if (hasQuotes(given)) warnings.push_back(fmt::format("{}: double quotes are stored as apostrophes", field.name));
    if (field.frame == ID3FID_YEAR && yearOf(given) != given) {
        warnings.push_back(fmt::format(R"(year: ID3v2.3 keeps "{}" of "{}")", yearOf(given), given));
    }
}

void applyText(ID3V230& tag, const Id3v2Field& field, const std::string& given, TagOutcome& outcome) {
    const std::string before = valueText(tag.FrameValue(field.frame));
    std::string after = storedText(field, given);
    if (isSameValue(field, before, after)) return;
    addWarnings(field, given, outcome.warnings);
    after.empty() ? deleteFrames(tag, field.frame) : field.write(tag, after);
    outcome.changes.push_back({field.name, before, std::move(after)});
}

void addQuoteWarnings(const ID3V230& tag, std::vector<std::string>& warnings) {
    for (const auto& record : *tag.Frames()) {
        if (!losesQuotes(*record)) continue;
        warnings.push_back(fmt::format("{}: double quotes in the file become apostrophes", record->FrameAbbr()));
    }
}

} // namespace

Id3v2Edit::Id3v2Edit(const std::string& path) {
    auto image = readTagImage(path);
    const std::string obstacle = obstacleToSaving(*image);
    if (!obstacle.empty()) throw FileFailure(obstacle);
    Internals<ID3V230>::bind(tag_, std::move(image));
}

TagOutcome Id3v2Edit::apply(const TagValues& values) {
    TagOutcome outcome;
    for (const Id3v2Field& field : kId3v2Fields) {
        if (values.*field.given) applyText(tag_, field, *(values.*field.given), outcome);
    }
    if (values.picture) {
        if (auto change = setFrontCover(tag_, *values.picture)) outcome.changes.push_back(std::move(*change));
    }
    if (values.shownPicture) {
        if (auto change = setShownPicture(tag_, *values.shownPicture)) outcome.changes.push_back(std::move(*change));
    }
    if (!outcome.changes.empty()) addQuoteWarnings(tag_, outcome.warnings);
    return outcome;
}

bool Id3v2Edit::exists() const { return Internals<ID3V230>::image(tag_)->exists(); }

bool Id3v2Edit::isEmpty() const { return recordsToWrite(*tag_.Frames()).empty(); }

void Id3v2Edit::write() {
    if (!Internals<ID3V230>::SaveTag(tag_)) throw FileFailure(Internals<ID3V230>::lastFailure(tag_)->description);
}

} // namespace corvane::cli
