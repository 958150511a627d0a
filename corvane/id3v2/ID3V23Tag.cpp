#include "corvane/id3v2/ID3V23Tag.h"

#include "corvane/id3v2/GenreText.h"
#include "corvane/id3v2/Id3Errors.h"
#include "corvane/id3v2/ReaderAnswers.h"
#include "corvane/id3v2/RecordIndex.h"
#include "corvane/id3v2/TagLoad.h"
#include "corvane/id3v230/FrameRecordContent.h"
#include "corvane/id3v230/ID3V230FrameInternals.h"
#include "corvane/id3v230/ID3V230Internals.h"
#include "corvane/id3v230/Id3Library.h"
#include "corvane/platform/RuntimeFailure.h"

#include <charconv>
#include <system_error>
#include <utility>

namespace corvane {

namespace {

constexpr std::uint8_t kId3v2 = 2; // ID3TT_ID3V2

// A number as hosts write it: decimal, with a sign and blanks around it where they like.
std::int16_t yearIn(std::string_view text) {
    constexpr const char* kSource = "Year";
    const std::size_t begin = text.find_first_not_of(' ');
    if (begin == std::string_view::npos) throw typeMismatchFailure(kSource);
    text = text.substr(begin, text.find_last_not_of(' ') - begin + 1);
    if (text.starts_with('+')) {
        text.remove_prefix(1);
        if (text.starts_with('-')) throw typeMismatchFailure(kSource);
    }
    std::int16_t year = 0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), year);
    if (end != text.data() + text.size() || problem == std::errc::invalid_argument) throw typeMismatchFailure(kSource);
    if (problem != std::errc{}) throw overflowFailure(kSource);
    return year;
}

// What a person needs to know when the medium has failed in the change and in the way back. Hosts know the records of
// failures by their texts, so that nothing is added to them otherwise.
std::string repairHint(const ID3V230& tag) {
    const auto& failure = Internals<ID3V230>::lastFailure(tag);
    return failure && failure->isDamaged ? "\r\n" + failure->description : std::string();
}

} // namespace

ID3V23Tag::ID3V23Tag() : frames_(noFrames()), error_(std::make_shared<cError>()) {}

std::string ID3V23Tag::FrameList() const { return changeable_ ? frameList() : frames_->list(); }

std::string ID3V23Tag::frameList() const {
    std::string list;
    for (const auto& record : *changeable_->Frames()) list += Internals<ID3V23Frame>::idOf(*record) += ';';
    return list;
}

std::int32_t ID3V23Tag::FrameCount() const {
    return changeable_ ? changeable_->Frames()->Count() : frameCount(*frames_);
}

std::shared_ptr<ID3V23Frame> ID3V23Tag::GetFrameByID(std::string_view FrameID) const {
    return changeable_ ? frameNamed(FrameID) : handleOf<ID3V23Frame>(frames_, corvane::frameNamed(*frames_, FrameID));
}

std::shared_ptr<ID3V23Frame> ID3V23Tag::frameNamed(std::string_view frameId) const {
    const auto record = records_->find(changeable_->Frames(), frameId);
    return record ? Internals<ID3V23Frame>::make(record) : nullptr;
}

std::shared_ptr<ID3V23Frame> ID3V23Tag::GetFrameByIndex(std::int32_t Index) const {
    if (!changeable_) return handleOf<ID3V23Frame>(frames_, frameAt(*frames_, Index));
    const auto record = changeable_->Frames()->Item(Index);
    return record ? Internals<ID3V23Frame>::make(record) : nullptr;
}

std::string ID3V23Tag::GetText(std::string_view FrameID) const {
    if (!changeable_) return recordedText(*frames_, corvane::frameNamed(*frames_, FrameID), *error_, textOf);
    const auto record = records_->find(changeable_->Frames(), FrameID);
    if (!record) return {};
    return recordFailures(*error_, std::string(), [&] { return valueText(record->vValue()); });
}

std::string ID3V23Tag::text(ReadText property, std::string_view frameId) const {
    if (!changeable_) return GetText(frameId);
    return recordFailures(*error_, std::string(), [&] { return (*changeable_.*property)(); });
}

// A parsed tag has no updatable tag to write to.
void ID3V23Tag::setText(WriteText property, std::string_view value) {
    if (changeable_) (*changeable_.*property)(value);
}

std::string ID3V23Tag::Artist() const { return text(&ID3V230::Artist, "TPE1"); }
void ID3V23Tag::Artist(std::string_view value) { setText(&ID3V230::Artist, value); }
std::string ID3V23Tag::Album() const { return text(&ID3V230::Album, "TALB"); }
void ID3V23Tag::Album(std::string_view value) { setText(&ID3V230::Album, value); }
std::string ID3V23Tag::Title() const { return text(&ID3V230::Title, "TIT2"); }
void ID3V23Tag::Title(std::string_view value) { setText(&ID3V230::Title, value); }
std::string ID3V23Tag::Track() const { return text(&ID3V230::Track, "TRCK"); }
void ID3V23Tag::Track(std::string_view value) { setText(&ID3V230::Track, value); }
std::string ID3V23Tag::LyricsUnsynced() const { return text(&ID3V230::LyricsUnsynced, "USLT"); }
void ID3V23Tag::LyricsUnsynced(std::string_view value) { setText(&ID3V230::LyricsUnsynced, value); }
std::string ID3V23Tag::LyricsSynced() const { return text(&ID3V230::LyricsSynced, "SYLT"); }
void ID3V23Tag::LyricsSynced(std::string_view value) { setText(&ID3V230::LyricsSynced, value); }
std::string ID3V23Tag::UserURL() const { return text(&ID3V230::UserURL, "WXXX"); }
void ID3V23Tag::UserURL(std::string_view value) { setText(&ID3V230::UserURL, value); }
std::string ID3V23Tag::Comment() const { return text(&ID3V230::Comments, "COMM"); }
void ID3V23Tag::Comment(std::string_view value) { setText(&ID3V230::Comments, value); }
std::string ID3V23Tag::Composer() const { return text(&ID3V230::Composer, "TCOM"); }
void ID3V23Tag::Composer(std::string_view value) { setText(&ID3V230::Composer, value); }
std::string ID3V23Tag::OriginalArtist() const { return text(&ID3V230::OriginalArtist, "TOPE"); }
void ID3V23Tag::OriginalArtist(std::string_view value) { setText(&ID3V230::OriginalArtist, value); }
std::string ID3V23Tag::Copyright() const { return text(&ID3V230::Copyright, "TCOP"); }
void ID3V23Tag::Copyright(std::string_view value) { setText(&ID3V230::Copyright, value); }
std::string ID3V23Tag::EncodedBy() const { return text(&ID3V230::EncodedBy, "TENC"); }
void ID3V23Tag::EncodedBy(std::string_view value) { setText(&ID3V230::EncodedBy, value); }

std::string ID3V23Tag::GenreID() const { return genreIdOf(text(&ID3V230::Genre, "TCON")); }

std::string ID3V23Tag::Genre() const {
    const std::string contentType = text(&ID3V230::Genre, "TCON");
    return changeable_ ? contentType : genreNameOf(contentType);
}
void ID3V23Tag::Genre(std::string_view value) { setText(&ID3V230::Genre, value); }

bool ID3V23Tag::splittedGenre(std::int16_t& GenreID, std::string& GenreDescription) const {
    if (changeable_) {
        const SplitGenre split = Internals<ID3V230>::splittedGenre(*changeable_);
        GenreID = split.number.value_or(GenreID);
        GenreDescription = split.description.value_or(GenreDescription);
        return true;
    }
    const std::string contentType = GetText("TCON");
    if (contentType.starts_with('(')) GenreDescription = genreNameOf(contentType);
    return true;
}

std::string ID3V23Tag::Year() const {
    if (!changeable_) return GetText("TYER");
    return recordFailures(*error_, std::string(), [this] { return std::to_string(changeable_->Year()); });
}
void ID3V23Tag::Year(std::string_view value) {
    if (changeable_) changeable_->Year(yearIn(value));
}

std::shared_ptr<corvane::Picture> ID3V23Tag::Picture() const {
    if (!changeable_) return recordedPicture(*frames_, *error_);
    return recordFailures(*error_, std::shared_ptr<corvane::Picture>(), [this] { return changeable_->Picture(); });
}
void ID3V23Tag::Picture(const std::shared_ptr<corvane::Picture>& value) {
    if (changeable_) changeable_->Picture(value);
}

bool ID3V23Tag::canSave() {
    if (savingRefused_) {
        error_->record("Save functionality", "Saving is not supported.");
        return false;
    }
    const Id3LibraryCheck check = checkId3Library();
    if (!check.present) error_->record("canSave", "Saving is not supported.\r\n\r\n" + check.message);
    return check.present;
}

bool ID3V23Tag::saveTag() {
    if (!changeable_) {
        error_->record("saveTag", "Saving is not supported.");
        return false;
    }
    return recordFailures(*error_, false, [this] {
        // Made before: for lack of memory afterwards, a save that worked would be reported as a failure.
        cError record;
        record.record("saveTag", "Unable to save the ID3v23 tag.", cError::kError);
        const bool saved = recordFailures(*error_, false, [this] { return Internals<ID3V230>::SaveTag(*changeable_); });
        record.Description += repairHint(*changeable_);
        *error_ = std::move(record);
        return saved;
    });
}

bool ID3V23Tag::removeTag() {
    if (!changeable_) {
        error_->record("Remove functionality", "Removing is not supported.");
        return false;
    }
    return recordFailures(*error_, false, [this] {
        const std::int32_t number = Internals<ID3V230>::StripTags(*changeable_, kId3v2);
        if (number == 0) return true;
        const std::string text = std::string("Unable to remove the tag: ").append(id3ErrorText(number));
        error_->record("removeTag", text + repairHint(*changeable_));
        return false;
    });
}

std::shared_ptr<TagError> ID3V23Tag::LastError() const { return viewOf(error_); }

// The header is not looked at: the updatable tag reads its own.
bool ID3V23Tag::loadWithId3lib(const std::string& fileName, const ID3V2Header&) {
    changeable_ = std::make_shared<ID3V230>();
    records_ = std::make_shared<RecordIndex>();
    recordFailures(*error_, false, [&] { return Internals<ID3V230>::LoadFromFile(*changeable_, fileName); });
    return true;
}

bool ID3V23Tag::loadFromFile(FileReader& file, const std::string& fileName, std::int64_t fileLength,
                             std::int64_t startPosition, const ID3V2Header& header) {
    auto frames = loadVersion23({file, fileName, fileLength, startPosition, header});
    if (frames == nullptr) return false;
    frames_ = std::move(frames);
    return true;
}

} // namespace corvane
