// The named properties: each is a view of the record with a fixed frame number and description.
#include "corvane/id3v230/FrameRecordContent.h"
#include "corvane/id3v230/GenreSplit.h"
#include "corvane/id3v230/ID3V230.h"
#include "corvane/id3v230/LeadingNumber.h"
#include "corvane/id3v230/RecordsToWrite.h"
#include "corvane/platform/RuntimeFailure.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace corvane {

namespace {

using enum ID3_FrameID;

// Descriptions of the comments that tell the rating-style items apart; programs that sort by mood look for these.
constexpr std::string_view kTempo = "MusicMatch_Tempo";
constexpr std::string_view kMood = "MusicMatch_Mood";
constexpr std::string_view kSituation = "MusicMatch_Situation";
constexpr std::string_view kPreference = "MusicMatch_Preference";

std::string_view withoutBlanks(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    while (text.ends_with(' ')) text.remove_suffix(1);
    return text;
}

// The text of a frame that nobody has changed, of which a property gives a part; nothing for any other record.
std::optional<std::string> textAsRead(const std::shared_ptr<ID3V230Frame>& record) {
    if (!record || record->Deleted() || !isAsRead(*record)) return std::nullopt;
    return valueText(record->vValue());
}

// Nothing when it does not fit 16 bits.
std::optional<std::int16_t> yearIn(std::string_view text) try {
    return leadingNumber(text, "Year");
} catch (const RuntimeFailure&) {
    return std::nullopt;
}

} // namespace

std::string ID3V230::Title() const { return text(ID3FID_TITLE); }
void ID3V230::Title(std::string_view value) { setText(ID3FID_TITLE, value); }
std::string ID3V230::Song() const { return text(ID3FID_TITLE); }
void ID3V230::Song(std::string_view value) { setText(ID3FID_TITLE, value); }
std::string ID3V230::Artist() const { return text(ID3FID_LEADARTIST); }
void ID3V230::Artist(std::string_view value) { setText(ID3FID_LEADARTIST, value); }
std::string ID3V230::ArtistURL() const { return text(ID3FID_WWWARTIST); }
void ID3V230::ArtistURL(std::string_view value) { setText(ID3FID_WWWARTIST, value); }
std::string ID3V230::UserURL() const { return text(ID3FID_WWWUSER); }
void ID3V230::UserURL(std::string_view value) { setText(ID3FID_WWWUSER, value); }
std::string ID3V230::Album() const { return text(ID3FID_ALBUM); }
void ID3V230::Album(std::string_view value) { setText(ID3FID_ALBUM, value); }
std::string ID3V230::Track() const { return text(ID3FID_TRACKNUM); }
void ID3V230::Track(std::string_view value) { setText(ID3FID_TRACKNUM, value); }
std::string ID3V230::Composer() const { return text(ID3FID_COMPOSER); }
void ID3V230::Composer(std::string_view value) { setText(ID3FID_COMPOSER, value); }
std::string ID3V230::OriginalArtist() const { return text(ID3FID_ORIGARTIST); }
void ID3V230::OriginalArtist(std::string_view value) { setText(ID3FID_ORIGARTIST, value); }
std::string ID3V230::Copyright() const { return text(ID3FID_COPYRIGHT); }
void ID3V230::Copyright(std::string_view value) { setText(ID3FID_COPYRIGHT, value); }
std::string ID3V230::EncodedBy() const { return text(ID3FID_ENCODEDBY); }
void ID3V230::EncodedBy(std::string_view value) { setText(ID3FID_ENCODEDBY, value); }
std::string ID3V230::Comments() const { return text(ID3FID_COMMENT); }
void ID3V230::Comments(std::string_view value) { setText(ID3FID_COMMENT, value); }
std::string ID3V230::UniqueKey() const { return text(ID3FID_UNIQUEFILEID); }
void ID3V230::UniqueKey(std::string_view value) { setText(ID3FID_UNIQUEFILEID, value); }
std::string ID3V230::UserText() const { return text(ID3FID_USERTEXT); }
void ID3V230::UserText(std::string_view value) { setText(ID3FID_USERTEXT, value); }
std::string ID3V230::LyricsUnsynced() const { return text(ID3FID_UNSYNCEDLYRICS); }
void ID3V230::LyricsUnsynced(std::string_view value) { setText(ID3FID_UNSYNCEDLYRICS, value); }
std::string ID3V230::LyricsSynced() const { return text(ID3FID_SYNCEDLYRICS); }
void ID3V230::LyricsSynced(std::string_view value) { setText(ID3FID_SYNCEDLYRICS, value); }
std::string ID3V230::Tempo() const { return text(ID3FID_COMMENT, kTempo); }
void ID3V230::Tempo(std::string_view value) { setText(ID3FID_COMMENT, value, kTempo); }
std::string ID3V230::Mood() const { return text(ID3FID_COMMENT, kMood); }
void ID3V230::Mood(std::string_view value) { setText(ID3FID_COMMENT, value, kMood); }
std::string ID3V230::Situation() const { return text(ID3FID_COMMENT, kSituation); }
void ID3V230::Situation(std::string_view value) { setText(ID3FID_COMMENT, value, kSituation); }
std::string ID3V230::Preference() const { return text(ID3FID_COMMENT, kPreference); }
void ID3V230::Preference(std::string_view value) { setText(ID3FID_COMMENT, value, kPreference); }

std::int16_t ID3V230::TotalTracks() const {
    const std::string track = Track();
    const std::size_t slash = track.find('/');
    return slash == std::string::npos ? std::int16_t{0}
                                      : leadingNumber(std::string_view(track).substr(slash + 1), "TotalTracks");
}

void ID3V230::TotalTracks(std::int16_t value) { setText(ID3FID_TRACKNUM, Track() + '/' + std::to_string(value)); }

std::int16_t ID3V230::Year() const { return leadingNumber(text(ID3FID_YEAR), "Year"); }
void ID3V230::Year(std::int16_t value) {
    const auto stored = textAsRead(find(ID3FID_YEAR, {}));
    // The year of "1999-05-01" written back leaves the date.
    const bool isSame = stored && yearIn(*stored) == value && *stored != std::to_string(value);
    if (!isSame) SetFrameValue(ID3FID_YEAR, value);
}

std::string ID3V230::Genre() const { return std::string(withoutBlanks(text(ID3FID_CONTENTTYPE))); }
void ID3V230::Genre(std::string_view value) {
    const auto stored = textAsRead(find(ID3FID_CONTENTTYPE, {}));
    const bool isSame = stored && withoutBlanks(*stored) == value && *stored != value;
    if (!isSame) setText(ID3FID_CONTENTTYPE, value);
}

std::shared_ptr<corvane::Picture> ID3V230::Picture() const {
    const auto record = findToRead(ID3FID_PICTURE, {});
    return record ? record->Picture() : nullptr;
}

void ID3V230::Picture(std::shared_ptr<corvane::Picture> value) {
    const auto record = find(ID3FID_PICTURE, {});
    if (!record) {
        if (value) AddFrameValue(ID3FID_PICTURE, std::move(value), {});
        return;
    }
    const auto handleOf = [](const auto& picture) { return picture ? picture->handle() : 0; };
    if (value && handleOf(record->Picture()) != value->handle()) record->bChanged(true);
    if (value) record->Deleted(false);
    record->Picture(std::move(value));
}

} // namespace corvane
