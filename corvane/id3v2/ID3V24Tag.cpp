#include "corvane/id3v2/ID3V24Tag.h"

#include "corvane/id3v2/GenreText.h"
#include "corvane/id3v2/ReaderAnswers.h"
#include "corvane/id3v2/TagLoad.h"

namespace corvane {

ID3V24Tag::ID3V24Tag() : frames_(noFrames()), error_(std::make_shared<cError>()) {}

std::string ID3V24Tag::FrameList() const { return frames_->list(); }

std::int32_t ID3V24Tag::FrameCount() const { return frameCount(*frames_); }

std::shared_ptr<ID3V24Frame> ID3V24Tag::GetFrameByID(std::string_view FrameID) const {
    return handleOf<ID3V24Frame>(frames_, frameNamed(*frames_, FrameID));
}

std::shared_ptr<ID3V24Frame> ID3V24Tag::GetFrameByIndex(std::int32_t Index) const {
    return handleOf<ID3V24Frame>(frames_, frameAt(*frames_, Index));
}

std::string ID3V24Tag::GetText(std::string_view FrameID) const {
    return recordedText(*frames_, frameNamed(*frames_, FrameID), *error_, textOf);
}

std::string ID3V24Tag::Artist() const { return GetText("TPE1"); }
std::string ID3V24Tag::Album() const { return GetText("TALB"); }
std::string ID3V24Tag::Title() const { return GetText("TIT2"); }
std::string ID3V24Tag::GenreID() const { return genreIdOf(GetText("TCON")); }
std::string ID3V24Tag::Genre() const { return genreNameOf(GetText("TCON")); }
std::string ID3V24Tag::Track() const { return GetText("TRCK"); }

bool ID3V24Tag::removeTag() {
    error_->record("removeTag", "Removing is not supported.");
    return false;
}

bool ID3V24Tag::canSave() {
    error_->record("canSave", "Saving is not supported.");
    return false;
}

bool ID3V24Tag::saveTag() {
    error_->record("saveTag", "Saving is not supported.");
    return false;
}

std::shared_ptr<TagError> ID3V24Tag::LastError() const { return viewOf(error_); }

bool ID3V24Tag::loadFromFile(FileReader& file, const std::string& fileName, std::int64_t fileLength,
                             std::int64_t startPosition, const ID3V2Header& header) {
    auto frames = loadVersion24({file, fileName, fileLength, startPosition, header});
    if (frames == nullptr) return false;
    frames_ = std::move(frames);
    return true;
}

} // namespace corvane
