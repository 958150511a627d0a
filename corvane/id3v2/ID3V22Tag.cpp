#include "corvane/id3v2/ID3V22Tag.h"

#include "corvane/id3v2/ReaderAnswers.h"
#include "corvane/id3v2/TagLoad.h"

namespace corvane {

ID3V22Tag::ID3V22Tag() : frames_(noFrames()), error_(std::make_shared<cError>()) {}

std::string ID3V22Tag::FrameList() const { return frames_->list(); }

std::int32_t ID3V22Tag::FrameCount() const { return frameCount(*frames_); }

std::shared_ptr<ID3V22Frame> ID3V22Tag::GetFrameByID(std::string_view FrameID) const {
    return handleOf<ID3V22Frame>(frames_, frameNamed(*frames_, FrameID));
}

std::shared_ptr<ID3V22Frame> ID3V22Tag::GetFrameByIndex(std::int32_t Index) const {
    return handleOf<ID3V22Frame>(frames_, frameAt(*frames_, Index));
}

std::string ID3V22Tag::GetText(std::string_view FrameID) const {
    return recordedText(*frames_, frameNamed(*frames_, FrameID), *error_, textOfVersion22);
}

std::string ID3V22Tag::Artist() const { return GetText("TP1"); }
std::string ID3V22Tag::Album() const { return GetText("TAL"); }
std::string ID3V22Tag::Title() const { return GetText("TT2"); }
std::string ID3V22Tag::Genre() const { return GetText("TCO"); }
std::string ID3V22Tag::Track() const { return GetText("TRK"); }
std::string ID3V22Tag::Year() const { return GetText("TYE"); }

bool ID3V22Tag::removeTag() {
    error_->record("removeTag", "Removing is not supported.");
    return false;
}

bool ID3V22Tag::canSave() {
    error_->record("canSave", "Saving is not supported.");
    return false;
}

bool ID3V22Tag::saveTag() {
    error_->record("saveTag", "Saving is not supported.");
    return false;
}

std::shared_ptr<TagError> ID3V22Tag::LastError() const { return viewOf(error_); }

bool ID3V22Tag::loadFromFile(FileReader& file, const std::string& fileName, std::int64_t fileLength,
                             std::int64_t startPosition, const ID3V2Header& header) {
    auto frames = loadVersion22({file, fileName, fileLength, startPosition, header});
    if (frames == nullptr) return false;
    frames_ = std::move(frames);
    return true;
}

} // namespace corvane
