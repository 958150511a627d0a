#include "corvane/id3v2/ID3V23Tag.h"

#include "corvane/id3v2/GenreText.h"
#include "corvane/id3v2/ReaderAnswers.h"
#include "corvane/id3v2/TagLoad.h"

namespace corvane {

namespace {

// The library that changes tags of this version, by the name under which it is loaded.
constexpr const char* kLibraryName = "libid3-3.8.so.3";

std::string missingLibraryMessage() {
    return std::string("The DLL '") + kLibraryName +
           "' is not present.\r\nPlease install it into the program directory.";
}

} // namespace

ID3V23Tag::ID3V23Tag() : frames_(noFrames()), error_(std::make_shared<cError>()) {}

std::string ID3V23Tag::FrameList() const { return frames_->list(); }

std::int32_t ID3V23Tag::FrameCount() const { return frameCount(*frames_); }

std::shared_ptr<ID3V23Frame> ID3V23Tag::GetFrameByID(std::string_view FrameID) const {
    return handleOf<ID3V23Frame>(frames_, frameNamed(*frames_, FrameID));
}

std::shared_ptr<ID3V23Frame> ID3V23Tag::GetFrameByIndex(std::int32_t Index) const {
    return handleOf<ID3V23Frame>(frames_, frameAt(*frames_, Index));
}

std::string ID3V23Tag::GetText(std::string_view FrameID) const {
    return recordedText(*frames_, frameNamed(*frames_, FrameID), *error_, textOf);
}

std::string ID3V23Tag::Artist() const { return GetText("TPE1"); }
std::string ID3V23Tag::Album() const { return GetText("TALB"); }
std::string ID3V23Tag::Title() const { return GetText("TIT2"); }
std::string ID3V23Tag::GenreID() const { return genreIdOf(GetText("TCON")); }
std::string ID3V23Tag::Genre() const { return genreNameOf(GetText("TCON")); }
std::string ID3V23Tag::Track() const { return GetText("TRCK"); }
std::string ID3V23Tag::Year() const { return GetText("TYER"); }
std::string ID3V23Tag::LyricsUnsynced() const { return GetText("USLT"); }
std::string ID3V23Tag::LyricsSynced() const { return GetText("SYLT"); }
std::string ID3V23Tag::UserURL() const { return GetText("WXXX"); }
std::string ID3V23Tag::Comment() const { return GetText("COMM"); }
std::string ID3V23Tag::Composer() const { return GetText("TCOM"); }
std::string ID3V23Tag::OriginalArtist() const { return GetText("TOPE"); }
std::string ID3V23Tag::Copyright() const { return GetText("TCOP"); }
std::string ID3V23Tag::EncodedBy() const { return GetText("TENC"); }

std::shared_ptr<corvane::Picture> ID3V23Tag::Picture() const { return recordedPicture(*frames_, *error_); }

bool ID3V23Tag::splittedGenre(std::int16_t&, std::string& GenreDescription) const {
    const std::string contentType = GetText("TCON");
    if (contentType.starts_with('(')) GenreDescription = genreNameOf(contentType);
    return true;
}

// There is no updatable tag to write to.
void ID3V23Tag::Artist(std::string_view) {}
void ID3V23Tag::Album(std::string_view) {}
void ID3V23Tag::Title(std::string_view) {}
void ID3V23Tag::Genre(std::string_view) {}
void ID3V23Tag::Track(std::string_view) {}
void ID3V23Tag::Year(std::string_view) {}
void ID3V23Tag::Picture(const std::shared_ptr<corvane::Picture>&) {}
void ID3V23Tag::LyricsUnsynced(std::string_view) {}
void ID3V23Tag::LyricsSynced(std::string_view) {}
void ID3V23Tag::UserURL(std::string_view) {}
void ID3V23Tag::Comment(std::string_view) {}
void ID3V23Tag::Composer(std::string_view) {}
void ID3V23Tag::OriginalArtist(std::string_view) {}
void ID3V23Tag::Copyright(std::string_view) {}
void ID3V23Tag::EncodedBy(std::string_view) {}

bool ID3V23Tag::canSave() {
    if (savingRefused_) {
        error_->record("Save functionality", "Saving is not supported.");
    } else {
        error_->record("canSave", "Saving is not supported.\r\n\r\n" + missingLibraryMessage());
    }
    return false;
}

bool ID3V23Tag::saveTag() {
    error_->record("saveTag", "Saving is not supported.");
    return false;
}

bool ID3V23Tag::removeTag() {
    error_->record("Remove functionality", "Removing is not supported.");
    return false;
}

std::shared_ptr<TagError> ID3V23Tag::LastError() const { return viewOf(error_); }

bool ID3V23Tag::loadFromFile(FileReader& file, const std::string& fileName, std::int64_t fileLength,
                             std::int64_t startPosition, const ID3V2Header& header) {
    auto frames = loadVersion23({file, fileName, fileLength, startPosition, header});
    if (frames == nullptr) return false;
    frames_ = std::move(frames);
    return true;
}

} // namespace corvane
