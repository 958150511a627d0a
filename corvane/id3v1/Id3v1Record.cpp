#include "corvane/id3v1/Id3v1Record.h"

#include "corvane/id3v1/ID3V1Tag.h"
#include "corvane/platform/ByteRange.h"
#include "corvane/platform/CodePage.h"
#include "corvane/platform/Numbers.h"
#include "corvane/platform/Utf.h"

#include <algorithm>
#include <span>
#include <utility>

namespace corvane {

namespace {

constexpr ByteRange kMarker{0, 3}, kTitle{3, 30}, kArtist{33, 30}, kAlbum{63, 30}, kYear{93, 4}, kComment{97, 30},
    kGenre{127, 1};
static_assert(fills(kId3v1RecordSize, kMarker, kTitle, kArtist, kAlbum, kYear, kComment, kGenre));
// What ID3v1.1 makes of the comment.
constexpr ByteRange kShortComment{97, 28}, kZero{125, 1}, kTrack{126, 1};
static_assert(fills(kId3v1RecordSize, kMarker, kTitle, kArtist, kAlbum, kYear, kShortComment, kZero, kTrack, kGenre));
static_assert(kId3v1Marker.size() == kMarker.size);

constexpr std::uint8_t kTerminator = 0;

std::uint8_t byteOf(Bytes record, ByteRange range) { return fieldOf(record, range).front(); }

std::string textOf(Bytes record, ByteRange range) {
    Bytes text = fieldOf(record, range);
    text = text.first(static_cast<std::size_t>(std::ranges::find(text, kTerminator) - text.begin()));
    while (!text.empty() && text.front() == ' ') text = text.subspan(1);
    while (!text.empty() && text.back() == ' ') text = text.first(text.size() - 1);
    return decodeCodePage(text);
}

std::string_view firstCharacters(std::string_view text, std::size_t count) {
    std::string_view rest = text;
    for (; count > 0 && !rest.empty(); --count) takeCodePoint(rest);
    return text.substr(0, text.size() - rest.size());
}

class RecordWriter {
public:
    void byte(ByteRange range, std::uint8_t value) { part(range).front() = value; }
    // What the text does not fill stays 0.
    void text(ByteRange range, std::string_view text) {
        const std::string_view kept = firstCharacters(text, range.size);
        if (kept.size() < text.size()) record_.textsCut = true;
        const CodePageText encoded = encodeCodePage(kept);
        record_.replacedCount += encoded.replacedCount;
        std::ranges::copy(encoded.bytes, part(range).begin());
    }
    const EncodedRecord& done() const { return record_; }

private:
    std::span<std::uint8_t> part(ByteRange range) { return std::span(record_.bytes).subspan(range.offset, range.size); }

    EncodedRecord record_;
};

} // namespace

std::optional<Id3v1Fields> decodeRecord(Bytes record) {
    if (record.size() != kId3v1RecordSize) return std::nullopt;
    if (!std::ranges::equal(fieldOf(record, kMarker), kId3v1Marker)) return std::nullopt;
    const bool hasTrack = byteOf(record, kZero) == 0 && byteOf(record, kTrack) != 0;

    Id3v1Fields fields;
    fields.title = textOf(record, kTitle);
    fields.artist = textOf(record, kArtist);
    fields.album = textOf(record, kAlbum);
    fields.year = textOf(record, kYear);
    fields.comment = textOf(record, hasTrack ? kShortComment : kComment);
    fields.track = hasTrack ? byteOf(record, kTrack) : std::uint8_t{0};
    fields.genre = byteOf(record, kGenre);
    fields.tagType = hasTrack ? EID3TagConstants::ID3V11 : EID3TagConstants::ID3v1;
    return fields;
}

void assignFields(ID3V1Tag& tag, Id3v1Fields fields) {
    tag.Title(std::move(fields.title));
    tag.Artist(std::move(fields.artist));
    tag.Album(std::move(fields.album));
    tag.Year(std::move(fields.year));
    tag.Comment(std::move(fields.comment));
    tag.Track(fields.track);
    tag.Genre(fields.genre);
    tag.TagType(fields.tagType);
}

EncodedRecord encodeRecord(const ID3V1Tag& tag) {
    RecordWriter writer;
    writer.text(kMarker, kId3v1Marker);
    writer.text(kTitle, tag.Title());
    writer.text(kArtist, tag.Artist());
    writer.text(kAlbum, tag.Album());
    writer.text(kYear, tag.Year());
    if (tag.TagType() == EID3TagConstants::ID3v1) {
        writer.text(kComment, tag.Comment());
    } else {
        writer.text(kShortComment, tag.Comment());
        writer.byte(kZero, 0);
        writer.byte(kTrack, narrowed<std::uint8_t>(tag.Track(), "Write Tag"));
    }
    writer.byte(kGenre, tag.Genre());
    return writer.done();
}

} // namespace corvane
