#include "corvane/core/FileHandler.h"

#include "corvane/core/FileDocument.h"
#include "corvane/core/FileHandlerInternals.h"
#include "corvane/core/FileStart.h"
#include "corvane/core/Id3v1Trailer.h"
#include "corvane/core/PathWithoutDrive.h"
#include "corvane/id3v1/ID3V1Tag.h"
#include "corvane/id3v1/Id3v1Record.h"
#include "corvane/id3v2/ID3V2Tag.h"
#include "corvane/id3v2/ID3V2TagInternals.h"
#include "corvane/id3v230/ID3V230Internals.h"
#include "corvane/id3v230/Id3Library.h"
#include "corvane/lyrics/LyricsTag.h"
#include "corvane/lyrics/LyricsTagInternals.h"
#include "corvane/mpeg/MPEGHeader.h"
#include "corvane/mpeg/MPEGHeaderInternals.h"
#include "corvane/platform/Drive.h"
#include "corvane/platform/File.h"
#include "corvane/platform/FileReader.h"
#include "corvane/platform/Paths.h"
#include "corvane/platform/RuntimeFailure.h"

#include <array>

namespace corvane {

namespace {

constexpr std::array<const char*, 4> kTypeNames{"Unknown", "MP3", "ZIP", "RAR"};

constexpr const char* kCreateSource = "createID3V2Tag";

// Property by property, so that only what has a name goes over.
void copyValues(const ID3V230& from, ID3V230& to) {
    to.Album(from.Album());
    to.Artist(from.Artist());
    to.ArtistURL(from.ArtistURL());
    to.Comments(from.Comments());
    to.Composer(from.Composer());
    to.Copyright(from.Copyright());
    to.EncodedBy(from.EncodedBy());
    to.Genre(from.Genre());
    to.LyricsSynced(from.LyricsSynced());
    to.LyricsUnsynced(from.LyricsUnsynced());
    to.Mood(from.Mood());
    to.OriginalArtist(from.OriginalArtist());
    to.Picture(from.Picture());
    to.Preference(from.Preference());
    to.Situation(from.Situation());
    to.Song(from.Song());
    to.Tempo(from.Tempo());
    to.Title(from.Title());
    to.Track(from.Track());
    to.UserText(from.UserText());
    to.UserURL(from.UserURL());
    to.Year(from.Year());
}

} // namespace

FileHandler::FileHandler()
    : id3v1Tag_(std::make_shared<ID3V1Tag>()),
      mpegHeader_(std::make_shared<corvane::MPEGHeader>()),
      id3v2Tag_(std::make_shared<corvane::ID3V2Tag>()) {}

FileHandler::~FileHandler() = default;

bool FileHandler::Create(const std::string& FileName) {
    return recordFailures(*error_, false, [&] {
        fileName_ = FileName;
        path_.clear();
        id3v1Tag_ = std::make_shared<ID3V1Tag>();
        path_ = lastingPath(FileName);
        FileReader file(path_);
        analyse(file);
        return true;
    });
}

void FileHandler::analyse(FileReader& file) {
    FileStart start = startOf(file);
    if (start.kind != FileKind::Mp3) fileType_ = static_cast<std::int16_t>(start.kind);
    requireNoArchive(start);
    takeId3v2Header(start);
    if (!Internals<corvane::MPEGHeader>::LoadHeaderEx(*mpegHeader_, file, start.audioPosition)) {
        error_->record("LoadHeaderEx", Internals<corvane::MPEGHeader>::ErrorRecord(*mpegHeader_)->Stream(),
                       cError::kError);
    }
    readId3v1Record(file);
    fileType_ = static_cast<std::int16_t>(FileKind::Mp3);
}

void FileHandler::takeId3v2Header(FileStart& start) {
    if (!start.claimsTag) return;
    if (!start.tag) {
        id3v2Tag_ = std::make_shared<corvane::ID3V2Tag>();
        return;
    }
    // The first three characters of the decimal texts of the bytes 'I', 'D' and '3', not the letters: hosts that look
    // into the record find it filled like this.
    start.tag->ID = "736";
    Internals<corvane::ID3V2Tag>::setHeader(*id3v2Tag_, path_, *start.tag);
    hasId3v2Tag_ = true;
}

void FileHandler::readId3v1Record(FileReader& file) {
    const auto fields = readTrailer(file);
    if (fields) {
        assignFields(*id3v1Tag_, *fields);
    } else {
        error_->record("Read Tag", "The file contains no tag.", cError::kNone);
    }
}

EID3TagConstants FileHandler::readTag() {
    // Hosts rely on this operation neither reading nor recording anything for a file that exists: Create reads.
    if (!fileExists(path_)) error_->record("Read Tag", "File does not exist.");
    return EID3TagConstants::ID3Unknown;
}

bool FileHandler::HasTag() const {
    return recordFailures(*error_, false, [&] { return fileExists(path_) && identityWithRecord(path_).has_value(); });
}

bool FileHandler::HasID3V1Tag() const {
    return id3v1Tag_ != nullptr && id3v1Tag_->TagType() != EID3TagConstants::ID3Unknown;
}

bool FileHandler::writeID3v1xTag() {
    return recordFailures(*error_, false, [&] {
        if (id3v1Tag_ == nullptr) {
            throw RuntimeFailure(FailureNumber::ObjectNotSet, "Write Tag", "Object variable not set");
        }
        if (id3v1Tag_->TagType() == EID3TagConstants::ID3Unknown) {
            error_->record("Write Tag", "Tag unknown.");
            return false;
        }
        if (!fileExists(path_)) {
            error_->record("Write Tag", "File does not exist.");
            return false;
        }
        followOwnChange(writeTrailer(path_, encodeRecord(*id3v1Tag_).bytes));
        return true;
    });
}

bool FileHandler::removeID3V1xTag() {
    return recordFailures(*error_, false, [&] {
        const auto known = fileExists(path_) ? identityWithRecord(path_) : std::nullopt;
        if (!known) {
            error_->record("RemoveTag", "The file has no ID3v1x tag.");
            return false;
        }
        followOwnChange(cutTrailer(path_, *known));
        return true;
    });
}

// Pictures that stand in the file and were not read yet stand where they did.
void FileHandler::followOwnChange(const FileChange& change) const {
    Internals<corvane::ID3V2Tag>::follow(*id3v2Tag_, change);
}

std::shared_ptr<LyricsTag> FileHandler::LyricsTag() const {
    // Made when it is first asked for: most files have none, and a scan opens many.
    if (lyricsTag_ == nullptr) lyricsTag_ = std::make_shared<corvane::LyricsTag>();
    return lyricsTag_;
}

bool FileHandler::HasLyricsTag() {
    loadLyricsTag();
    return LyricsTag()->Version() != ELyricsVersionConstants::lvcUnknown;
}

// Once for each file name, also when it fails.
void FileHandler::loadLyricsTag() {
    if (lyricsFileName_ == path_) return;
    lyricsFileName_ = path_;
    recordFailures(*error_, false, [&] {
        Internals<corvane::LyricsTag>::Load(*LyricsTag(), path_, HasID3V1Tag());
        return true;
    });
}

std::string FileHandler::FileTypeName() const {
    const auto index = static_cast<std::size_t>(fileType_);
    return kTypeNames[index < kTypeNames.size() ? index : 0];
}

std::int32_t FileHandler::Size() const { return mpegHeader_->FileSize(); }

std::string FileHandler::Path() const {
    return recordFailures(*error_, std::string(), [&] { return pathWithoutDrive(path_); });
}

std::shared_ptr<corvane::Drive> FileHandler::Drive() const {
    return recordFailures(*error_, std::shared_ptr<corvane::Drive>(), [&] { return corvane::Drive::ofFile(path_); });
}

std::shared_ptr<corvane::File> FileHandler::File() const {
    return recordFailures(*error_, std::shared_ptr<corvane::File>(), [&] { return corvane::File::ofPath(path_); });
}

std::string FileHandler::xml() {
    return renderFileDocument(*this, [this] { loadLyricsTag(); });
}

bool FileHandler::createID3V2Tag(const std::shared_ptr<ID3V230>& theTag) {
    if (hasId3v2Tag_) return false;
    return recordFailures(*error_, false, [&] {
        if (theTag == nullptr)
            throw RuntimeFailure(FailureNumber::ObjectNotSet, kCreateSource, "Object variable not set");
        if (const auto library = checkId3Library(); !library.present) {
            error_->record(kCreateSource, library.message);
            return false;
        }
        ID3V230 tag;
        FileReader file(path_);
        Internals<ID3V230>::bind(tag, TagImage::read(file, path_));
        if (tag.FrameCount() > 0) return false;
        copyValues(*theTag, tag);
        if (Internals<ID3V230>::SaveTag(tag)) return true;
        const auto& failure = *Internals<ID3V230>::lastFailure(tag);
        if (failure.causeNumber != 0) {
            throw RuntimeFailure(failure.causeNumber, failure.causeSource, failure.description);
        }
        error_->record(kCreateSource, failure.description);
        return false;
    });
}

} // namespace corvane
