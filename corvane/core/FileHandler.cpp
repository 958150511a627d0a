#include "corvane/core/FileHandler.h"

#include "corvane/core/FileDocument.h"
#include "corvane/core/FileHandlerInternals.h"
#include "corvane/core/Id3v1Trailer.h"
#include "corvane/core/PathWithoutDrive.h"
#include "corvane/id3v1/ID3V1Tag.h"
#include "corvane/id3v1/Id3v1Record.h"
#include "corvane/id3v2/ID3V2Tag.h"
#include "corvane/id3v2/ID3V2TagInternals.h"
#include "corvane/id3v230/ID3V230Internals.h"
#include "corvane/lyrics/LyricsTag.h"
#include "corvane/lyrics/LyricsTagInternals.h"
#include "corvane/mpeg/MPEGHeader.h"
#include "corvane/mpeg/MPEGHeaderInternals.h"
#include "corvane/platform/Drive.h"
#include "corvane/platform/File.h"
#include "corvane/platform/FileReader.h"
#include "corvane/platform/Paths.h"
#include "corvane/platform/RuntimeFailure.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace corvane {

namespace {

constexpr std::int16_t kTypeMp3 = 1;
constexpr std::int16_t kTypeZip = 2;
constexpr std::int16_t kTypeRar = 3;
constexpr std::array<const char*, 4> kTypeNames{"Unknown", "MP3", "ZIP", "RAR"};

// What is behind the end of a shorter file counts as 0.
using Head = std::array<std::uint8_t, ID3V2Header::kByteCount>;

Head headOf(FileReader& file) {
    Head head{};
    std::ranges::copy(file.view(0, head.size()), head.begin());
    return head;
}

bool startsWith(Bytes head, std::string_view signature) {
    return head.size() >= signature.size() &&
           std::equal(signature.begin(), signature.end(), head.begin(),
                      [](char expected, std::uint8_t byte) { return static_cast<std::uint8_t>(expected) == byte; });
}

bool isZip(Bytes head) { return startsWith(head, "PK\x03\x04"); }

// Never true: byte 5 would have to be 07 and 00 at once. The signature of an archive is "Rar!" 1A 07 00, but hosts rely
// on RAR files being taken for MP3 candidates, as they always have been.
bool isRar(Bytes head) { return startsWith(head, "Rar!\x1A") && head.size() > 5 && head[5] == 0x07 && head[5] == 0x00; }

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
        begin(FileName);
        FileReader file(FileName);
        analyse(file, Frames::WhenAskedFor);
        return true;
    });
}

bool FileHandler::create(const std::string& fileName, FileReader& file) {
    return recordFailures(*error_, false, [&] {
        begin(fileName);
        analyse(file, Frames::Now);
        return true;
    });
}

void FileHandler::begin(const std::string& fileName) {
    fileName_ = fileName;
    id3v1Tag_ = std::make_shared<ID3V1Tag>();
}

void FileHandler::analyse(FileReader& file, Frames frames) {
    const Head head = headOf(file);
    if (isZip(head)) {
        fileType_ = kTypeZip;
        throw RuntimeFailure(FailureNumber::ObjectDefined, "Create", "This is a ZIP-File");
    }
    if (isRar(head)) {
        fileType_ = kTypeRar;
        throw RuntimeFailure(FailureNumber::ObjectDefined, "Create", "This is a RAR-File");
    }
    const std::int32_t startPosition = readId3v2Header(head);
    // Before the audio is searched, because the block that the last frames are read with often holds its beginning.
    if (frames == Frames::Now && hasId3v2Tag_) Internals<corvane::ID3V2Tag>::parse(*id3v2Tag_, file);
    if (!Internals<corvane::MPEGHeader>::LoadHeaderEx(*mpegHeader_, file, startPosition)) {
        error_->record("LoadHeaderEx", Internals<corvane::MPEGHeader>::ErrorRecord(*mpegHeader_)->Stream(),
                       cError::kError);
    }
    readId3v1Record(file);
    fileType_ = kTypeMp3;
}

// The 1-based position at which the search for the first audio frame begins.
std::int32_t FileHandler::readId3v2Header(Bytes head) {
    if (!startsWith(head, "ID3")) return 1;
    auto header = decodeHeader(head);
    if (!header || !hasTagNumbers(*header)) {
        id3v2Tag_ = std::make_shared<corvane::ID3V2Tag>();
        return 1;
    }
    // The first three characters of the decimal texts of the bytes 'I', 'D' and '3', not the letters: hosts that look
    // into the record find it filled like this.
    header->ID = "736";
    Internals<corvane::ID3V2Tag>::setHeader(*id3v2Tag_, fileName_, *header);
    hasId3v2Tag_ = true;
    return std::get<std::int32_t>(id3v2Tag_->Size());
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
    if (!fileExists(fileName_)) error_->record("Read Tag", "File does not exist.");
    return EID3TagConstants::ID3Unknown;
}

bool FileHandler::HasTag() const {
    return recordFailures(*error_, false,
                          [&] { return fileExists(fileName_) && identityWithRecord(fileName_).has_value(); });
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
        if (!fileExists(fileName_)) {
            error_->record("Write Tag", "File does not exist.");
            return false;
        }
        followOwnChange(writeTrailer(fileName_, encodeRecord(*id3v1Tag_).bytes));
        return true;
    });
}

bool FileHandler::removeID3V1xTag() {
    return recordFailures(*error_, false, [&] {
        const auto known = fileExists(fileName_) ? identityWithRecord(fileName_) : std::nullopt;
        if (!known) {
            error_->record("RemoveTag", "The file has no ID3v1x tag.");
            return false;
        }
        followOwnChange(cutTrailer(fileName_, *known));
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
    if (lyricsFileName_ == fileName_) return;
    lyricsFileName_ = fileName_;
    recordFailures(*error_, false, [&] {
        Internals<corvane::LyricsTag>::Load(*LyricsTag(), fileName_, HasID3V1Tag());
        return true;
    });
}

std::string FileHandler::FileTypeName() const {
    const auto index = static_cast<std::size_t>(fileType_);
    return kTypeNames[index < kTypeNames.size() ? index : 0];
}

std::int32_t FileHandler::Size() const { return mpegHeader_->FileSize(); }

std::string FileHandler::Path() const {
    return recordFailures(*error_, std::string(), [&] { return pathWithoutDrive(fileName_); });
}

std::shared_ptr<corvane::Drive> FileHandler::Drive() const {
    return recordFailures(*error_, std::shared_ptr<corvane::Drive>(),
                          [&] { return corvane::Drive::ofFile(fileName_); });
}

std::shared_ptr<corvane::File> FileHandler::File() const {
    return recordFailures(*error_, std::shared_ptr<corvane::File>(), [&] { return corvane::File::ofPath(fileName_); });
}

std::string FileHandler::xml() {
    return renderFileDocument(*this, [this] { loadLyricsTag(); });
}

bool FileHandler::createID3V2Tag(const std::shared_ptr<ID3V230>& theTag) {
    if (hasId3v2Tag_) return false;
    return recordFailures(*error_, false, [&] {
        if (theTag == nullptr)
            throw RuntimeFailure(FailureNumber::ObjectNotSet, kCreateSource, "Object variable not set");
        ID3V230 tag;
        if (!Internals<ID3V230>::LoadFromFile(tag, fileName_)) {
            error_->record(kCreateSource, "The file cannot be opened, or id3lib is not installed.");
            return false;
        }
        if (tag.FrameCount() > 0) return false;
        copyValues(*theTag, tag);
        if (Internals<ID3V230>::SaveTag(tag)) return true;
        error_->record(kCreateSource, Internals<ID3V230>::lastFailure(tag)->description);
        return false;
    });
}

} // namespace corvane
