#include "apps/editor/FileTags.h"

#include "corvane/core/FileHandler.h"
#include "corvane/id3v1/ID3V1Tag.h"
#include "corvane/id3v1/Id3v1Record.h"
#include "corvane/id3v2/ID3V2Tag.h"

#include "apps/cli/LibraryFailure.h"

#include <string_view>

namespace corvane::editor {

namespace {

constexpr const char* kNoYear = "0";

struct Id3v2Field {
    Field field;
    std::string (ID3V2Tag::*read)();
    void (ID3V2Tag::*write)(std::string_view);
};

constexpr std::array<Id3v2Field, kFieldCount> kId3v2Fields{{
    {Field::Title, &ID3V2Tag::Title, &ID3V2Tag::Title},
    {Field::Artist, &ID3V2Tag::Artist, &ID3V2Tag::Artist},
    {Field::Album, &ID3V2Tag::Album, &ID3V2Tag::Album},
    {Field::Year, &ID3V2Tag::Year, &ID3V2Tag::Year},
    {Field::Track, &ID3V2Tag::Track, &ID3V2Tag::Track},
    {Field::Genre, &ID3V2Tag::Genre, &ID3V2Tag::Genre},
    {Field::Comment, &ID3V2Tag::Comment, &ID3V2Tag::Comment},
    {Field::Composer, &ID3V2Tag::Composer, &ID3V2Tag::Composer},
    {Field::OriginalArtist, &ID3V2Tag::OriginalArtist, &ID3V2Tag::OriginalArtist},
    {Field::Copyright, &ID3V2Tag::Copyright, &ID3V2Tag::Copyright},
    {Field::Url, &ID3V2Tag::UserURL, &ID3V2Tag::UserURL},
    {Field::EncodedBy, &ID3V2Tag::EncodedBy, &ID3V2Tag::EncodedBy},
    {Field::Lyrics, &ID3V2Tag::LyricsUnsynced, &ID3V2Tag::LyricsUnsynced},
    {Field::SyncedLyrics, &ID3V2Tag::LyricsSynced, &ID3V2Tag::LyricsSynced},
}};

constexpr bool standsInOrder() {
    for (std::size_t at = 0; at < kId3v2Fields.size(); ++at) {
        if (kId3v2Fields[at].field != fieldAt(at)) return false;
    }
    return true;
}
static_assert(standsInOrder());

TagValues valuesOf(const ID3V1Tag& tag) {
    TagValues values;
    values.present = true;
    values[Field::Title] = tag.Title();
    values[Field::Artist] = tag.Artist();
    values[Field::Album] = tag.Album();
    values[Field::Year] = tag.Year();
    values[Field::Comment] = tag.Comment();
    if (tag.Track() != 0) values[Field::Track] = std::to_string(tag.Track());
    if (tag.Genre() != kNoGenre) values[Field::Genre] = std::to_string(tag.Genre());
    return values;
}

} // namespace

FileTags readTags(const std::string& path) {
    FileHandler file;
    cli::openFile(file, path);
    return tagsOf(file);
}

FileTags tagsOf(FileHandler& file) {
    FileTags tags;
    if (file.HasID3V1Tag()) tags.v1 = valuesOf(*file.ID3v1xTag());
    if (file.HasID3V2Tag()) tags.v2 = valuesOf(*file.ID3V2Tag());
    return tags;
}

TagValues valuesOf(ID3V2Tag& tag) {
    TagValues values;
    values.present = true;
    for (const Id3v2Field& field : kId3v2Fields) values[field.field] = (tag.*field.read)();
    if (values[Field::Year] == kNoYear) values[Field::Year].clear();
    return values;
}

void setText(ID3V2Tag& tag, Field field, const std::string& text) {
    const Id3v2Field& row = kId3v2Fields[static_cast<std::size_t>(field)];
    (tag.*row.write)(field == Field::Year && text.empty() ? std::string(kNoYear) : text);
}

} // namespace corvane::editor
