#include "corvane/id3v230/RecordsToWrite.h"

#include "corvane/id3v230/FrameFields.h"
#include "corvane/id3v230/ID3V230FrameInternals.h"

#include <algorithm>
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

// Whether the record says what its frame says but for the double quotes.
bool isOnlyCleaned(const ID3V230Frame& record) {
    const FrameSource* source = Record::source(record);
    const auto& now = Record::content(record);
    if (source == nullptr || static_cast<std::int16_t>(source->number()) != record.eType()) return false;
    const FrameContent read = source->content().value_or(FrameContent());
    return valueText(now.value) == withApostrophes(valueText(read.value)) &&
           now.description == withApostrophes(read.description) && valueText(now.language) == read.language;
}

// Whether a frame of its value could not be made. Such a frame may stand in a tag all the same.
bool cannotBeMade(const ID3V230Frame& record) {
    return hasNoValue(Record::content(record).value) ||
           record.eType() == static_cast<std::int16_t>(ID3_FrameID::ID3FID_LINKEDINFO);
}

// Whether the record's frame never had a value that could be changed, such as that of a private frame.
bool hasForeignValue(const ID3V230Frame& record) {
    const FrameSource* source = Record::source(record);
    if (source == nullptr || !std::holds_alternative<NoValue>(Record::content(record).value)) return false;
    const auto read = source->content();
    return !read || std::holds_alternative<NoValue>(read->value);
}

bool hasLanguageBytes(const FrameContent& content) {
    return std::any_of(content.fields.begin(), content.fields.end(), [](const ID3V230Field& field) {
        return field.FieldID == ID3_FieldID::ID3FN_LANGUAGE && field.NumTextItems > 0;
    });
}

// What the record's frame says beside the record's own values stays: the zeros behind a language that nobody has set
// anew, and what kind of lyrics they are, and when.
void keepRestOf(const ID3V230Frame& record, FrameToWrite& frame) {
    constexpr std::size_t kLanguageSize = 3;
    if (!hasField(frame.frame, ID3_FieldID::ID3FN_LANGUAGE)) return;
    const FrameSource* source = Record::source(record);
    auto read = source != nullptr && source->number() == frame.frame ? source->content() : std::nullopt;
    if (!read) return;
    if (frame.language == read->language && hasLanguageBytes(*read)) frame.language.resize(kLanguageSize, '\0');
    if (frame.frame != ID3_FrameID::ID3FID_SYNCEDLYRICS) return;
    frame.lyricsBefore = std::move(read->lyrics);
    frame.contentType = read->contentType;
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
    keepRestOf(record, frame);
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
    if (cannotBeMade(*record) && isOnlyCleaned(*record)) return RecordToWrite{record, std::nullopt};
    if (hasNoValue(Record::content(*record).value)) return std::nullopt;
    return RecordToWrite{record, frameOf(*record, nullptr)};
}

} // namespace

void cleanQuotes(const ID3V230Frames& records) {
    for (const auto& record : records) {
        if (record->Deleted()) continue; // what it says may not be in the file any more
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
