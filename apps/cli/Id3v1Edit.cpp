#include "apps/cli/Id3v1Edit.h"

#include "corvane/id3v1/GenreTable.h"
#include "corvane/platform/Numbers.h"

#include <fmt/core.h>

#include <array>

namespace corvane::cli {

namespace {

// One text of the record, in every form in which the command meets it.
struct TextField {
    const char* name;
    std::optional<std::string> Id3v1Values::*given;
    std::string Id3v1Fields::*stored;
    std::string (ID3V1Tag::*read)() const;
    void (ID3V1Tag::*write)(std::string);
};

constexpr std::array kTextFields{
    TextField{"title", &Id3v1Values::title, &Id3v1Fields::title, &ID3V1Tag::Title, &ID3V1Tag::Title},
    TextField{"artist", &Id3v1Values::artist, &Id3v1Fields::artist, &ID3V1Tag::Artist, &ID3V1Tag::Artist},
    TextField{"album", &Id3v1Values::album, &Id3v1Fields::album, &ID3V1Tag::Album, &ID3V1Tag::Album},
    TextField{"year", &Id3v1Values::year, &Id3v1Fields::year, &ID3V1Tag::Year, &ID3V1Tag::Year},
    TextField{"comment", &Id3v1Values::comment, &Id3v1Fields::comment, &ID3V1Tag::Comment, &ID3V1Tag::Comment}};

std::string trackText(std::uint8_t track) { return track == 0 ? std::string() : fmt::format("{}", track); }

// What becomes of one text, found out with a record that holds nothing else.
void addWarnings(const TextField& field, const ID3V1Tag& tag, std::vector<std::string>& warnings) {
    ID3V1Tag alone;
    alone.TagType(tag.TagType());
    (alone.*field.write)((tag.*field.read)());
    const EncodedRecord record = encodeRecord(alone);
    if (record.textsCut) {
        const std::string kept = decodeRecord(record.bytes).value_or(Id3v1Fields{}).*field.stored;
        warnings.push_back(fmt::format("{}: cut to \"{}\"", field.name, kept));
    }
    if (record.replacedCount > 0) {
        warnings.push_back(fmt::format("{}: {} of its characters cannot be stored in ID3v1 and became \"?\"",
                                       field.name, record.replacedCount));
    }
}

void addChange(std::vector<FieldChange>& changes, const char* name, std::string before, std::string after) {
    if (before != after) changes.push_back({name, std::move(before), std::move(after)});
}

} // namespace

void applyValues(ID3V1Tag& tag, const Id3v1Values& values) {
    for (const TextField& field : kTextFields) {
        if (values.*field.given) (tag.*field.write)(*(values.*field.given));
    }
    if (values.track) tag.Track(*values.track);
    if (values.genre) tag.Genre(*values.genre);
    const bool needsTrack = values.track.value_or(0) != 0;
    if (tag.TagType() == EID3TagConstants::ID3Unknown || needsTrack) tag.TagType(EID3TagConstants::ID3V11);
}

Id3v1Fields fieldsOf(const ID3V1Tag& tag) {
    Id3v1Fields fields;
    for (const TextField& field : kTextFields) fields.*field.stored = (tag.*field.read)();
    fields.track = narrowed<std::uint8_t>(tag.Track(), "Read Tag");
    fields.genre = tag.Genre();
    fields.tagType = tag.TagType();
    return fields;
}

TagOutcome outcomeOf(const Id3v1Fields& before, const ID3V1Tag& tag) {
    TagOutcome outcome;
    const Id3v1Fields after = decodeRecord(encodeRecord(tag).bytes).value_or(Id3v1Fields{});
    for (const TextField& field : kTextFields) {
        addChange(outcome.changes, field.name, before.*field.stored, after.*field.stored);
        addWarnings(field, tag, outcome.warnings);
    }
    addChange(outcome.changes, "track", trackText(before.track), trackText(after.track));
    addChange(outcome.changes, "genre", genreText(before.genre), genreText(after.genre));
    return outcome;
}

std::optional<std::uint8_t> parseTrack(std::string_view text) {
    if (text.empty()) return std::uint8_t{0};
    const std::size_t slash = text.find('/');
    if (slash != std::string_view::npos && !parseNumber<std::uint32_t>(text.substr(slash + 1))) return std::nullopt;
    return parseNumber<std::uint8_t>(text.substr(0, slash));
}

std::string genreText(std::uint8_t genre) {
    if (genre == kNoGenre) return {};
    const std::string_view name = genreName(genre);
    return name.empty() ? fmt::format("<Undefined ({})>", genre) : std::string(name);
}

} // namespace corvane::cli
