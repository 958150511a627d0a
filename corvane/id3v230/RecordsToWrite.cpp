#include "corvane/id3v230/RecordsToWrite.h"

#include "corvane/id3v230/EncodingFailure.h"
#include "corvane/id3v230/FieldWriter.h"
#include "corvane/id3v230/FrameDescription.h"
#include "corvane/id3v230/FrameFields.h"
#include "corvane/id3v230/ID3V230FrameInternals.h"
#include "corvane/id3v230/QuoteCleaning.h"
#include "corvane/platform/Utf.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace corvane {

namespace {

using Record = Internals<ID3V230Frame>;

bool isPicture(const ID3V230Frame& record) {
    return record.eType() == static_cast<std::int16_t>(ID3_FrameID::ID3FID_PICTURE);
}

// The frame with other data.
ByteArray withHeader(RawFrame frame, Bytes payload) {
    frame.dataSize = static_cast<std::uint32_t>(payload.size());
    const auto header = encodedFrameHeader(frame);
    ByteArray bytes(header.size() + payload.size());
    std::ranges::copy(payload, std::ranges::copy(header, bytes.begin()).out);
    return bytes;
}

bool hasNoValue(const FrameVariant& value) {
    const auto* text = std::get_if<std::string>(&value);
    return std::holds_alternative<NoValue>(value) || (text != nullptr && text->empty());
}

bool isOfKind(const FrameSource* source, const ID3V230Frame& record) {
    return source != nullptr && static_cast<std::int16_t>(source->number()) == record.eType();
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

RecordToWrite copied(const std::shared_ptr<ID3V230Frame>& record, ByteArray made = {}) {
    return {record, std::nullopt, std::move(made)};
}

RecordToWrite encoded(const std::shared_ptr<ID3V230Frame>& record, std::shared_ptr<Picture> picture = nullptr) {
    return {record, frameOf(*record, std::move(picture)), {}};
}

// What of a record differs from its frame, but for the double quotes.
struct Change {
    bool value = false;
    bool description = false;
    bool language = false;
    bool isNone() const { return !value && !description && !language; }
};

Change changeOf(const ID3V230Frame& record, const FrameContent& read) {
    const auto& now = Record::content(record);
    return {valueText(now.value) != withApostrophes(valueText(read.value)),
            now.description != withApostrophes(read.description), valueText(now.language) != read.language};
}

bool hasQuotes(std::string_view text) { return text.find('"') != std::string_view::npos; }

// The frame of a record that nobody has changed, without the double quotes of its texts; empty where it is copied with
// them. Flags and a group say what other programs may do with exactly these bytes.
ByteArray cleanedFrame(const FrameSource& source, const FrameContent& read) {
    const RawFrame& frame = source.frame();
    const bool isPlain = frame.statusFlags == 0 && frame.formatFlags == 0;
    const bool isFixed = source.number() == ID3_FrameID::ID3FID_UNIQUEFILEID ||
                         source.number() == ID3_FrameID::ID3FID_LINKEDINFO || hasNoValue(read.value);
    if (!isPlain || isFixed || !(hasQuotes(valueText(read.value)) || hasQuotes(read.description))) return {};
    const ByteArray payload = withoutQuotes(source.number(), source.payload());
    const FrameContent cleaned = contentOfFrame(source.number(), payload);
    const bool isRight = valueText(cleaned.value) == withApostrophes(valueText(read.value)) &&
                         cleaned.description == withApostrophes(read.description) && cleaned.language == read.language;
    return isRight ? withHeader(frame, payload) : ByteArray();
}

void reportMissingFields(const ID3V230Frame& record, const Change& change) {
    const auto& now = Record::content(record);
    const auto type = static_cast<ID3_FrameID>(record.eType());
    const auto report = [type](bool isSet, const FrameVariant& value, ID3_FieldID field) {
        if (isSet && !fieldText(value).empty() && !hasField(type, field)) reportMissingField(value, field);
    };
    report(change.description, now.description, ID3_FieldID::ID3FN_DESCRIPTION);
    report(change.language, valueText(now.language), ID3_FieldID::ID3FN_LANGUAGE);
    // The value of a picture is its image.
    report(change.value && !isPicture(record), now.value, ID3_FieldID::ID3FN_TEXT);
}

EncodingFailure refusal(const ID3V230Frame& record, const std::string& reason) {
    return {Id3libError::BadData, record.FrameAbbr() + ": " + reason};
}

ByteArray describedFrame(const ID3V230Frame& record, const FrameSource& source) {
    const std::string description = repairedUtf8(Record::content(record).description);
    if (description.find('\0') != std::string::npos) throw refusal(record, "The description has a zero.");
    const auto payload = withDescription(source.number(), source.payload(), description);
    if (!payload || contentOfFrame(source.number(), *payload).description != description)
        throw refusal(record, "The description of a damaged frame cannot be changed.");
    RawFrame header = source.frame();
    header.statusFlags = header.formatFlags = 0;
    return withHeader(header, *payload);
}

// A record that still is its frame, with nothing but its texts changed; nothing when the frame must be encoded anew.
std::optional<RecordToWrite> changedInPlace(const std::shared_ptr<ID3V230Frame>& record) {
    const FrameSource& source = *Record::source(*record);
    const auto found = source.content();
    const FrameContent read = found.value_or(FrameContent());
    const Change change = changeOf(*record, read);
    if (change.isNone()) return copied(record, cleanedFrame(source, read));
    const FrameFields fields = fieldsOf(source.number());
    const bool isText = fields.value != ID3_FieldID::ID3FN_NOFIELD;
    if (change.value && isText) return std::nullopt;
    const bool isDescribed = change.description && hasField(source.number(), ID3_FieldID::ID3FN_DESCRIPTION);
    const bool isSpoken = change.language && hasField(source.number(), ID3_FieldID::ID3FN_LANGUAGE);
    if (!found && (isDescribed || isSpoken)) throw refusal(*record, "The frame is encrypted or damaged.");
    if (isText && (isDescribed || isSpoken)) return std::nullopt;
    reportMissingFields(*record, change);
    return copied(record, isDescribed ? describedFrame(*record, source) : ByteArray());
}

std::optional<RecordToWrite> encodedPicture(const std::shared_ptr<ID3V230Frame>& record) {
    auto picture = record->Picture();
    const bool wasTakenOut = Record::content(*record).pictureWasSet || Record::source(*record) == nullptr;
    if (!picture && wasTakenOut) return std::nullopt;
    return encoded(record, std::move(picture));
}

std::optional<RecordToWrite> toWrite(const std::shared_ptr<ID3V230Frame>& record) {
    if (record->Deleted()) return std::nullopt;
    if (isAsRead(*record)) return copied(record);
    if (isOfKind(Record::source(*record), *record) && !Record::content(*record).pictureWasSet) {
        if (auto inPlace = changedInPlace(record)) return inPlace;
    }
    if (isPicture(*record)) return encodedPicture(record);
    if (isEmptied(*record)) return std::nullopt;
    return encoded(record);
}

} // namespace

bool isAsRead(const ID3V230Frame& record) {
    const FrameSource* source = Record::source(record);
    const auto& now = Record::content(record);
    if (now.isAsRead) return true;
    if (!isOfKind(source, record) || now.pictureWasSet) return false;
    if (now.original) {
        return valueText(now.value) == valueText(now.original->value) && now.description == now.original->description &&
               now.language == now.original->language;
    }
    const FrameContent read = source->content().value_or(FrameContent());
    return valueText(now.value) == valueText(read.value) && now.description == read.description &&
           valueText(now.language) == read.language;
}

bool isEmptied(const ID3V230Frame& record) {
    const FrameSource* source = Record::source(record);
    if (!hasNoValue(Record::content(record).value)) return false;
    const auto read = source != nullptr ? source->content() : std::nullopt;
    return source == nullptr || (read && !hasNoValue(read->value));
}

bool losesQuotes(const ID3V230Frame& record) {
    const FrameSource* source = Record::source(record);
    if (record.Deleted() || !isOfKind(source, record)) return false;
    const auto read = source->content();
    if (!read) return false;
    const Change change = changeOf(record, *read);
    if (change.isNone()) return !cleanedFrame(*source, *read).empty();
    return (!change.value && hasQuotes(valueText(read->value))) ||
           (!change.description && hasQuotes(read->description));
}

void cleanQuotes(const ID3V230Frames& records) {
    for (const auto& record : records) {
        if (record->Deleted()) continue; // what it says may not be in the file any more
        const auto& now = Record::content(*record);
        if (now.isAsRead) continue;
        std::string description = now.description;
        if (replaceQuotes(description)) record->sDescription(std::move(description));
        const auto* text = std::get_if<std::string>(&now.value);
        if (text == nullptr) continue;
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
