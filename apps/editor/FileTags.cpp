#include "apps/editor/FileTags.h"

#include "corvane/controls/Id3v2Values.h"
#include "corvane/core/FileHandler.h"
#include "corvane/id3v1/ID3V1Tag.h"
#include "corvane/id3v1/Id3v1Record.h"
#include "corvane/id3v2/ID3V2Tag.h"
#include "corvane/id3v2/StoredGenre.h"

#include "apps/cli/LibraryFailure.h"

#include <string_view>

namespace corvane::editor {

namespace {

using controls::Id3v2Text;
using controls::kNoYear;

// The texts of the ID3v2 control and, in its place among them, the genre, which the control has in a list.
constexpr auto kId3v2Fields = [] {
    std::array<Id3v2Text, kFieldCount> rows{};
    std::size_t at = 0;
    for (const Id3v2Text& text : controls::kId3v2Texts) {
        if (fieldAt(at) == Field::Genre) rows[at++] = {"cmbGenre", &ID3V2Tag::Genre, &ID3V2Tag::Genre, "Genre"};
        rows[at++] = text;
    }
    return rows;
}();

constexpr bool stands(Field field, std::string_view box) {
    return kId3v2Fields[static_cast<std::size_t>(field)].box == box;
}
static_assert(stands(Field::Title, "txtTitle") && stands(Field::Track, "txtTrack") && stands(Field::Genre, "cmbGenre"));
static_assert(stands(Field::Comment, "txtComment") && stands(Field::SyncedLyrics, "txtSyncedLyrics"));

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
    for (std::size_t at = 0; at < kFieldCount; ++at) values.texts[at] = (tag.*kId3v2Fields[at].read)();
    if (values[Field::Year] == kNoYear) values[Field::Year].clear();
    values[Field::Genre] = storedGenre(values[Field::Genre]);
    return values;
}

void setText(ID3V2Tag& tag, Field field, const std::string& text) {
    const Id3v2Text& row = kId3v2Fields[static_cast<std::size_t>(field)];
    (tag.*row.write)(field == Field::Year && text.empty() ? std::string(kNoYear) : text);
}

} // namespace corvane::editor
