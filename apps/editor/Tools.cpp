#include "apps/editor/Tools.h"

#include "corvane/controls/BatchString.h"
#include "corvane/id3v1/GenreTable.h"
#include "corvane/id3v1/ID3V1Tag.h"
#include "corvane/id3v1/Id3v1Record.h"
#include "corvane/id3v2/StoredGenre.h"

#include "apps/cli/Id3v1Edit.h"
#include "apps/cli/TagValues.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace corvane::editor {

namespace {

std::string numberText(std::uint8_t number, std::uint8_t none) {
    return number == none ? std::string() : std::to_string(number);
}

std::string textForV1(Field field, const std::string& text) {
    if (field == Field::Track) return id3v1Track(text);
    return field == Field::Genre ? id3v1Genre(text) : text;
}

// The genre of several that ID3v1 has a number for, the first one.
std::string id3v1GenreOfSeveral(std::string_view genres) {
    constexpr std::string_view kSeparator = "; ";
    while (!genres.empty()) {
        const std::size_t end = std::min(genres.find(kSeparator), genres.size());
        const std::string number = id3v1Genre(std::string(genres.substr(0, end)));
        if (!number.empty()) return number;
        genres.remove_prefix(std::min(end + kSeparator.size(), genres.size()));
    }
    return {};
}

// A text of an ID3v2 tag as people read it, for a record.
std::string readForV1(const TagValues& tag, Field field) {
    if (!tag.present) return {};
    std::string text = textForV1(field, field == Field::Genre ? tag[field] : publishedText(tag, field));
    return field == Field::Genre && text.empty() ? id3v1GenreOfSeveral(publishedText(tag, field)) : text;
}

std::string textForV2(Field field, const std::string& text) { return field == Field::Genre ? storedGenre(text) : text; }

} // namespace

std::string id3v1Genre(const std::string& genre) {
    return numberText(genreNumber(genre).value_or(kUndefinedGenre), kUndefinedGenre);
}

std::string id3v1Track(const std::string& track) { return numberText(cli::parseTrack(track).value_or(0), 0); }

namespace {

using ReadForV1 = std::string (*)(const TagValues& tag, Field field);

// As the hosts of the library read it.
std::string hostsTextForV1(const TagValues& tag, Field field) {
    return textForV1(field, tag.present ? tag[field] : std::string());
}

// What an ID3v1 record of the file's kind keeps of the ID3v2 values: the beginning of a long text, no total of tracks.
TagValues keptInRecord(const FileTags& tags, ReadForV1 read) {
    const auto inV1 = [&](Field field) { return read(tags.v2, field); };
    ID3V1Tag tag;
    tag.Title(inV1(Field::Title));
    tag.Artist(inV1(Field::Artist));
    tag.Album(inV1(Field::Album));
    tag.Year(inV1(Field::Year));
    tag.Comment(inV1(Field::Comment));
    tag.TagType(tags.v1[Field::Track].empty() ? EID3TagConstants::ID3v1 : EID3TagConstants::ID3V11);
    const auto fields = decodeRecord(encodeRecord(tag).bytes);
    TagValues kept;
    if (!fields) return kept;
    kept[Field::Title] = fields->title;
    kept[Field::Artist] = fields->artist;
    kept[Field::Album] = fields->album;
    kept[Field::Year] = fields->year;
    kept[Field::Comment] = fields->comment;
    kept[Field::Track] = inV1(Field::Track);
    kept[Field::Genre] = inV1(Field::Genre);
    return kept;
}

} // namespace

FileTags withText(FileTags tags, Field field, const std::string& text) {
    if (!tags.v1.present && !tags.v2.present) tags.v1.present = tags.v2.present = true;
    if (!isCommon(field)) tags.v2.present = true;
    if (tags.v1.present && isCommon(field)) tags.v1[field] = textForV1(field, text);
    if (tags.v2.present) tags.v2[field] = textForV2(field, text);
    return tags;
}

FileTags withPicture(FileTags tags, const std::shared_ptr<Picture>& picture) {
    if (!picture && !tags.v2.present) return tags;
    tags.v2.present = true;
    tags.v2.cover = picture;
    tags.v2.picture.reset(); // what was chosen last counts
    return tags;
}

FileTags withCopyToV2(FileTags tags) {
    if (!tags.v1.present) return tags;
    const TagValues kept = keptInRecord(tags, readForV1), keptForHosts = keptInRecord(tags, hostsTextForV1);
    tags.v2.present = true;
    for (std::size_t at = 0; at < kCommonFieldCount; ++at) {
        const std::string& text = tags.v1.texts[at];
        const bool isKept = text == kept.texts[at] || text == keptForHosts.texts[at];
        if (!text.empty() && !isKept) tags.v2.texts[at] = textForV2(fieldAt(at), text);
    }
    return tags;
}

FileTags withCopyToV1(FileTags tags) {
    if (!tags.v2.present) return tags;
    tags.v1.present = true;
    for (std::size_t at = 0; at < kCommonFieldCount; ++at) {
        const std::string text = readForV1(tags.v2, fieldAt(at));
        if (!text.empty()) tags.v1.texts[at] = text;
    }
    return tags;
}

FileTags withoutV1(FileTags tags) {
    tags.v1.present = false;
    return tags;
}

FileTags withoutV2(FileTags tags) {
    tags.v2.present = false;
    return tags;
}

FileTags withCase(FileTags tags, const std::set<Field>& fields, std::int32_t conversion) {
    const auto convert = [conversion](std::string& text) {
        controls::BatchString string;
        string.Conversion(conversion);
        string.Initialize(text);
        text = string.Convert();
    };
    for (const Field field : fields) {
        if (tags.v1.present && isCommon(field)) convert(tags.v1[field]);
        if (tags.v2.present) convert(tags.v2[field]);
    }
    return tags;
}

FileTags withTrack(FileTags tags, int number, int total) {
    std::string text = std::to_string(number);
    if (total > 0) text.append("/").append(std::to_string(total));
    return withText(std::move(tags), Field::Track, text);
}

} // namespace corvane::editor
