#include "apps/editor/FileTags.h"

#include "corvane/controls/Id3v2Values.h"
#include "corvane/core/FileHandler.h"
#include "corvane/core/FileStart.h"
#include "corvane/id3v1/ID3V1Tag.h"
#include "corvane/id3v1/Id3v1Record.h"
#include "corvane/id3v2/ID3V2Tag.h"
#include "corvane/id3v2/ReadableTag.h"
#include "corvane/id3v2/StoredGenre.h"
#include "corvane/id3v2/TagLoad.h"
#include "corvane/id3v230/TagImage.h"
#include "corvane/platform/FileReader.h"

#include "apps/cli/LibraryFailure.h"

#include <algorithm>
#include <string_view>
#include <utility>

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

// The frames are read once more, by the library's own parser: the tag object may be one that is to be changed.
std::optional<ReadableTag> publishedReading(const std::string& path) {
    FileReader file(path);
    const FileStart start = startOf(file);
    if (!start.tag) return std::nullopt;
    const auto frames = loadFrames({file, path, static_cast<std::int64_t>(file.size()), 1, *start.tag});
    return frames ? readableTag(*frames) : readableTag(wholeFrames(TagImage::read(file, path)));
}

std::vector<OtherReading> otherReadings(const TagValues& tag, const std::string& path) {
    auto reading = publishedReading(path);
    if (!reading) return {};
    std::array<std::string*, kCommonFieldCount> texts{&reading->title,  &reading->artist, &reading->album,
                                                      &reading->year,   &reading->track,  &reading->genre,
                                                      &reading->comment};
    std::vector<OtherReading> others;
    for (std::size_t at = 0; at < texts.size(); ++at) {
        if (*texts[at] != tag.texts[at]) others.push_back({fieldAt(at), tag.texts[at], std::move(*texts[at])});
    }
    return others;
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
    if (file.HasID3V2Tag()) {
        tags.v2 = valuesOf(*file.ID3V2Tag());
        tags.v2.otherReadings = otherReadings(tags.v2, file.FileName());
    }
    return tags;
}

const std::string& publishedText(const TagValues& tag, Field field) {
    const auto isOfText = [&](const OtherReading& reading) {
        return reading.field == field && reading.asHosts == tag[field];
    };
    const auto found = std::find_if(tag.otherReadings.begin(), tag.otherReadings.end(), isOfText);
    return found == tag.otherReadings.end() ? tag[field] : found->published;
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
