#include "corvane/id3v230/RecordsToWrite.h"

#include "corvane/id3v230/ID3V230FrameInternals.h"

#include <utility>

namespace corvane {

namespace {

using Record = Internals<ID3V230Frame>;

bool isPicture(const ID3V230Frame& record) {
    return record.eType() == static_cast<std::int16_t>(ID3_FrameID::ID3FID_PICTURE);
}

// The identifier of a file, which may be any bytes, as it was read.
bool isUntouchedIdentifier(const ID3V230Frame& record) {
    return record.eType() == static_cast<std::int16_t>(ID3_FrameID::ID3FID_UNIQUEFILEID) && !record.bChanged();
}

bool hasNoValue(const FrameVariant& value) {
    const auto* text = std::get_if<std::string>(&value);
    return std::holds_alternative<NoValue>(value) || (text != nullptr && text->empty());
}

// Whether the record says what the bytes of its frame say.
bool isAsRead(const ID3V230Frame& record) {
    const FrameSource* source = Record::source(record);
    const auto& now = Record::content(record);
    if (now.isAsRead) return true;
    if (source == nullptr || static_cast<std::int16_t>(source->number()) != record.eType()) return false;
    if (now.pictureWasSet) return false;
    if (now.original) {
        return valueText(now.value) == valueText(now.original->value) && now.description == now.original->description &&
               now.language == now.original->language;
    }
    const FrameContent read = source->content().value_or(FrameContent());
    return valueText(now.value) == valueText(read.value) && now.description == read.description &&
           valueText(now.language) == read.language;
}

// Whether the record's frame never had a value that could be changed, such as that of a private frame.
bool hasForeignValue(const ID3V230Frame& record) {
    const FrameSource* source = Record::source(record);
    if (source == nullptr || !std::holds_alternative<NoValue>(Record::content(record).value)) return false;
    const auto read = source->content();
    return !read || std::holds_alternative<NoValue>(read->value);
}

FrameToWrite frameOf(const ID3V230Frame& record, std::shared_ptr<Picture> picture) {
    const auto& now = Record::content(record);
    FrameToWrite frame;
    frame.frame = static_cast<ID3_FrameID>(record.eType());
    frame.value = now.value;
    frame.description = now.description;
    frame.language = valueText(now.language);
    frame.picture = std::move(picture);
    frame.pictureType = now.pictureHead.type;
    return frame;
}

// What becomes of a picture that was changed, or whose description was.
std::optional<RecordToWrite> changedPicture(const std::shared_ptr<ID3V230Frame>& record) {
    auto picture = record->Picture();
    if (picture) return RecordToWrite{record, frameOf(*record, std::move(picture))};
    // An image that the library does not know is not the same as none.
    const bool wasTakenOut = Record::content(*record).pictureWasSet || Record::source(*record) == nullptr;
    return wasTakenOut ? std::nullopt : std::optional(RecordToWrite{record, std::nullopt});
}

std::optional<RecordToWrite> toWrite(const std::shared_ptr<ID3V230Frame>& record) {
    if (record->Deleted()) return std::nullopt;
    if (isAsRead(*record)) return RecordToWrite{record, std::nullopt};
    if (isPicture(*record)) return changedPicture(record);
    if (hasForeignValue(*record)) return RecordToWrite{record, std::nullopt};
    if (hasNoValue(Record::content(*record).value)) return std::nullopt;
    return RecordToWrite{record, frameOf(*record, nullptr)};
}

} // namespace

void cleanQuotes(const ID3V230Frames& records) {
    for (const auto& record : records) {
        const auto& now = Record::content(*record);
        if (now.isAsRead) continue;
        std::string description = now.description;
        if (replaceQuotes(description)) record->sDescription(std::move(description));
        const auto* text = std::get_if<std::string>(&now.value);
        if (text == nullptr || isUntouchedIdentifier(*record)) continue;
        std::string value = *text;
        if (replaceQuotes(value)) record->vValue(std::move(value));
    }
}

std::vector<RecordToWrite> recordsToWrite(const ID3V230Frames& records) {
    std::vector<RecordToWrite> frames;
    frames.reserve(static_cast<std::size_t>(records.Count()));
    for (const auto& record : records) {
        if (auto frame = toWrite(record)) frames.push_back(std::move(*frame));
    }
    return frames;
}

} // namespace corvane
