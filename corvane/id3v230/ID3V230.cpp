#include "corvane/id3v230/ID3V230.h"

#include "corvane/id3v230/FrameFields.h"
#include "corvane/id3v230/FrameRecordContent.h"
#include "corvane/id3v230/ID3V230FrameInternals.h"
#include "corvane/id3v230/ID3V230Internals.h"
#include "corvane/id3v230/Id3Library.h"
#include "corvane/id3v230/RecordsToWrite.h"
#include "corvane/id3v230/TagImage.h"
#include "corvane/platform/FileReader.h"
#include "corvane/platform/Inflate.h"
#include "corvane/platform/Numbers.h"
#include "corvane/platform/Paths.h"
#include "corvane/platform/RuntimeFailure.h"

#include <atomic>
#include <map>
#include <set>
#include <utility>

namespace corvane {

namespace {

std::atomic<std::int32_t> liveObjects = 0;

bool isEmptyText(const FrameVariant& value) {
    const auto* text = std::get_if<std::string>(&value);
    return text != nullptr && text->empty();
}

// A frame that nobody can read has a description that nobody knows: it is neither found nor overwritten.
bool isUnknown(const ID3V230Frame& record) {
    const auto& content = Internals<ID3V230Frame>::content(record);
    return content.isHidden && std::holds_alternative<NoValue>(content.value) && !content.pictureWasSet &&
           content.description.empty();
}

bool isKnownAs(const ID3V230Frame& record, std::string_view descriptor) {
    return !isUnknown(record) && Internals<ID3V230Frame>::content(record).description == descriptor;
}

// Only records of one number can be duplicates of one another, so a description is looked at where there are several,
// and where frames of that number have one: a hostile tag may be of a million frames.
void markDuplicates(const ID3V230Frames& records) {
    std::map<std::int16_t, std::vector<ID3V230Frame*>> byNumber;
    for (const auto& record : records) byNumber[record->eType()].push_back(record.get());
    for (const auto& [number, sameNumber] : byNumber) {
        if (sameNumber.size() < 2) continue;
        const bool isDescribed = hasField(static_cast<ID3_FrameID>(number), ID3_FieldID::ID3FN_DESCRIPTION);
        std::set<std::string> descriptions;
        for (ID3V230Frame* record : sameNumber) {
            auto description = isDescribed ? record->sDescription() : std::string();
            if (!descriptions.insert(std::move(description)).second) record->bDupe(true);
        }
    }
}

} // namespace

std::int32_t Internals<ID3V230>::liveCount() { return liveObjects; }

ID3V230::ID3V230() : frames_(std::make_shared<ID3V230Frames>()) { ++liveObjects; }

ID3V230::~ID3V230() { --liveObjects; }

std::int32_t ID3V230::FramesSize() const { return narrowed<std::int32_t>(framesSize_, "FramesSize"); }

std::int16_t ID3V230::FrameCount() const { return narrowed<std::int16_t>(frameCount_, "FrameCount"); }

bool ID3V230::LoadFromFile(const std::string& path) {
    ResetValues();
    fileName_.clear();
    try {
        fileName_ = lastingPath(path);
        if (!checkId3Library().present) return false;
        ReadFrames();
    } catch (const RuntimeFailure&) {
        return false;
    }
    return true;
}

void ID3V230::ReadFrames() {
    if (fileName_.empty()) return;
    FileReader file(fileName_);
    readFrames(TagImage::read(file, fileName_));
}

// All of it or nothing: a tag of which some records are missing would lose their frames at the next save.
void ID3V230::readFrames(std::shared_ptr<TagImage> tag) {
    ResetValues();
    const auto records = std::make_shared<ID3V230Frames>();
    const std::size_t count = tag->frames().size();
    for (std::size_t index = 0; index < count; ++index) {
        auto record = Internals<ID3V230Frame>::make(FrameSource(tag, index));
        record->Position(records->Count() + 1);
        Internals<ID3V230Frames>::add(*records, std::move(record));
    }
    markDuplicates(*records);
    framesSize_ = tag->size();
    frameCount_ = count;
    frames_ = records;
    tag_ = std::move(tag);
}

// A new collection: hosts that hold the old one keep it.
void ID3V230::ResetValues() {
    frames_ = std::make_shared<ID3V230Frames>();
    tag_.reset();
    frameCount_ = 0;
    framesSize_ = 0;
}

std::shared_ptr<ID3V230Frame> ID3V230::find(ID3_FrameID frame, std::string_view descriptor) const {
    for (const auto& record : *frames_) {
        if (record->eType() == static_cast<std::int16_t>(frame) && isKnownAs(*record, descriptor)) return record;
    }
    return nullptr;
}

// What is too large to be read may be what is looked for.
std::shared_ptr<ID3V230Frame> ID3V230::findToRead(ID3_FrameID frame, std::string_view descriptor) const {
    auto record = find(frame, descriptor);
    if (record) return record;
    for (const auto& other : *frames_) {
        if (other->eType() != static_cast<std::int16_t>(frame) || !isUnknown(*other)) continue;
        if (Internals<ID3V230Frame>::source(*other)->isTooLarge()) throw inflationFailure();
    }
    return nullptr;
}

FrameVariant ID3V230::FrameValue(ID3_FrameID eFrameID, std::string_view Descriptor) const {
    const auto record = findToRead(eFrameID, Descriptor);
    return record ? record->vValue() : FrameVariant();
}

std::string ID3V230::text(ID3_FrameID frame, std::string_view descriptor) const {
    return valueText(FrameValue(frame, descriptor));
}

void ID3V230::SetFrameValue(ID3_FrameID frame, FrameVariant value, std::string_view descriptor) {
    const auto record = find(frame, descriptor);
    if (!record) {
        if (!isEmptyText(value)) AddFrameValue(frame, std::move(value), descriptor);
        return;
    }
    if (isEmptyText(value)) {
        // Written back to a frame that holds no text, or none that can be read, it is no change.
        if (!record->Deleted() && isAsRead(*record) && valueText(record->vValue()).empty()) return;
        record->Delete();
    } else {
        // A frame that was deleted and is given a value again is to be there after the next save.
        record->Deleted(false);
        if (valueText(record->vValue()) != valueText(value)) record->bChanged(true);
    }
    record->vValue(std::move(value));
}

void ID3V230::setText(ID3_FrameID frame, std::string_view value, std::string_view descriptor) {
    SetFrameValue(frame, std::string(value), descriptor);
}

std::shared_ptr<ID3V230Frame> ID3V230::AddFrameValue(ID3_FrameID frame, FrameVariant value,
                                                     std::string_view descriptor) {
    auto record = Internals<ID3V230Frame>::make();
    record->eType(static_cast<std::int16_t>(frame));
    record->vValue(std::move(value));
    record->sDescription(std::string(descriptor));
    record->Position(frames_->Count() + 1);
    record->IsNew(true);
    record->bChanged(true);
    Internals<ID3V230Frames>::add(*frames_, record);
    return record;
}

bool ID3V230::isChanged() const {
    return std::any_of(frames_->begin(), frames_->end(), [](const auto& record) { return record->bChanged(); });
}

} // namespace corvane
