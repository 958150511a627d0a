#include "corvane/id3v230/WantedFrame.h"

#include "corvane/id3v230/EncodingFailure.h"
#include "corvane/id3v230/FrameFields.h"
#include "corvane/id3v230/FrameNames.h"
#include "corvane/id3v230/FrameTextEncoding.h"
#include "corvane/id3v230/UrlText.h"
#include "corvane/platform/Numbers.h"
#include "corvane/platform/Picture.h"
#include "corvane/platform/Utf.h"

#include <algorithm>
#include <utility>

namespace corvane {

namespace {

using enum ID3_FieldID;

constexpr std::string_view kOwnLanguage = "eng", kUnknownLanguage = "XXX"; // ID3v2.3.0 section 4.11

EncodingFailure refusal(const WantedFrame& frame, const std::string& reason) {
    return {Id3libError::BadData, std::string(frame.letters) + ": " + reason};
}

// Four letters, of which two frames of ID3v2.2 have none.
std::string_view lettersOf(ID3_FrameID frame) {
    const auto letters = FrameName(static_cast<std::int32_t>(frame), enumShortOrLongText::eslSHORT).value_or("");
    if (frameNumberOf(letters) == ID3_FrameID::ID3FID_NOFRAME) {
        throw EncodingFailure(Id3libError::InvalidFrame,
                              "There is no frame " + std::to_string(static_cast<std::int32_t>(frame)) + ".");
    }
    return letters;
}

std::string withoutZerosAtTheEnd(std::string text) {
    text.erase(text.find_last_not_of('\0') + 1);
    return text;
}

std::string settledLanguage(const std::string& given) {
    if (given.empty()) return std::string(kOwnLanguage);
    const std::string language = withoutZerosAtTheEnd(given);
    const bool isPlain = isUtf8(language) && encodingFor(language) == TextEncoding::CodePage &&
                         std::none_of(language.begin(), language.end(),
                                      [](char character) { return character >= 0 && character < ' '; });
    return isPlain && characterCount(given) == 3 ? given : std::string(kUnknownLanguage);
}

std::string settledText(const FrameToWrite& frame) {
    return withoutZerosAtTheEnd(repairedUtf8(fieldText(frame.value)));
}

void settlePicture(WantedFrame& wanted, const FrameToWrite& frame) {
    if (frame.picture == nullptr) throw refusal(wanted, "There is no picture.");
    wanted.picture = frame.picture;
    wanted.pictureType = frame.pictureType;
}

void settleCount(WantedFrame& wanted) {
    const auto count = parseNumber<std::int32_t>(wanted.text);
    if (!count || *count < 0) throw refusal(wanted, "The value is no count.");
    wanted.count = static_cast<std::uint32_t>(*count);
}

void settleLyrics(WantedFrame& wanted, const FrameToWrite& frame) {
    auto lyrics = parseSyncedLyrics(wanted.text);
    if (!lyrics || lyrics->entries.empty()) {
        throw refusal(wanted, "Each line must begin with its time, as in \"[01:23.4] line\".");
    }
    keepTimes(*lyrics, frame.lyricsBefore);
    wanted.lyrics = std::move(*lyrics);
    wanted.contentType = frame.contentType;
}

void settleValue(WantedFrame& wanted, const FrameToWrite& frame) {
    if (wanted.frame == ID3_FrameID::ID3FID_PICTURE) return settlePicture(wanted, frame);
    wanted.text = settledText(frame);
    if (wanted.text.empty()) throw refusal(wanted, "There is no value.");
    const ID3_FieldID value = fieldsOf(wanted.frame).value;
    const bool mayHaveZeros = value == ID3FN_TEXT || wanted.frame == ID3_FrameID::ID3FID_UNIQUEFILEID;
    if (!mayHaveZeros && wanted.text.find('\0') != std::string::npos) throw refusal(wanted, "The value has a zero.");
    if (value == ID3FN_URL) wanted.text = escapedUrl(wanted.text);
    if (wanted.frame == ID3_FrameID::ID3FID_PLAYCOUNTER) settleCount(wanted);
    if (wanted.frame == ID3_FrameID::ID3FID_SYNCEDLYRICS) settleLyrics(wanted, frame);
}

// What is in the frame beside the value would be lost.
void refuseLink(const WantedFrame& wanted) {
    if (wanted.frame == ID3_FrameID::ID3FID_LINKEDINFO) throw refusal(wanted, "A link cannot be made from a text.");
}

// Of the strings that have an encoding.
TextEncoding settledEncoding(const WantedFrame& wanted) {
    std::string all;
    if (hasField(wanted.frame, ID3FN_DESCRIPTION)) all.append(wanted.description);
    if (fieldsOf(wanted.frame).value != ID3FN_URL) all.append(wanted.text);
    return encodingFor(all);
}

void writePicture(FieldWriter& fields, const WantedFrame& frame) {
    fields.setText(ID3FN_MIMETYPE, frame.picture->mimeType());
    fields.setNumber(ID3FN_PICTURETYPE, frame.pictureType);
    fields.setBytes(ID3FN_DATA, frame.picture->bytes());
}

void writeLyrics(FieldWriter& fields, const WantedFrame& frame) {
    fields.setNumber(ID3FN_TIMESTAMPFORMAT, static_cast<std::uint32_t>(frame.lyrics.format));
    fields.setNumber(ID3FN_CONTENTTYPE, frame.contentType);
    fields.setBytes(ID3FN_DATA, syncedLyricsData(frame.lyrics, frame.encoding));
}

void writeText(FieldWriter& fields, const WantedFrame& frame) {
    const ID3_FieldID own = fieldsOf(frame.frame).value;
    const ID3_FieldID field = own == ID3FN_NOFIELD ? ID3FN_TEXT : own;
    id3SetField(fields, frame.text, field);
    if (!fields.has(field)) {
        throw EncodingFailure(Id3libError::FieldNotFound,
                              std::string(frame.letters) + ": There is no place for a value.");
    }
}

bool valueIs(const FrameContent& content, Bytes payload, const WantedFrame& frame) {
    switch (frame.frame) {
    case ID3_FrameID::ID3FID_PICTURE:
        return content.picture.mimeType == frame.picture->mimeType() && content.picture.type == frame.pictureType &&
               std::ranges::equal(payload.subspan(content.picture.imageOffset), frame.picture->bytes());
    case ID3_FrameID::ID3FID_PLAYCOUNTER:
        return content.value == FrameVariant(static_cast<std::int32_t>(frame.count));
    case ID3_FrameID::ID3FID_SYNCEDLYRICS:
        return content.value == FrameVariant(textOfSyncedLyrics(frame.lyrics));
    default:
        return content.value == FrameVariant(frame.text);
    }
}

} // namespace

WantedFrame wantedFrame(const FrameToWrite& frame) {
    WantedFrame wanted;
    wanted.letters = lettersOf(frame.frame);
    wanted.frame = frameNumberOf(wanted.letters); // a frame may have a second number
    refuseLink(wanted);
    wanted.description = repairedUtf8(frame.description);
    if (wanted.description.find('\0') != std::string::npos) throw refusal(wanted, "The description has a zero.");
    wanted.language = hasField(wanted.frame, ID3FN_LANGUAGE) ? settledLanguage(frame.language) : frame.language;
    settleValue(wanted, frame);
    wanted.encoding = settledEncoding(wanted);
    return wanted;
}

void writeFields(FieldWriter& fields, const WantedFrame& frame) {
    if (!frame.description.empty()) id3SetField(fields, frame.description, ID3FN_DESCRIPTION);
    if (!frame.language.empty()) id3SetField(fields, frame.language, ID3FN_LANGUAGE);
    switch (frame.frame) {
    case ID3_FrameID::ID3FID_PICTURE:
        return writePicture(fields, frame);
    case ID3_FrameID::ID3FID_PLAYCOUNTER:
        return fields.setNumber(ID3FN_COUNTER, frame.count);
    case ID3_FrameID::ID3FID_SYNCEDLYRICS:
        return writeLyrics(fields, frame);
    default:
        return writeText(fields, frame);
    }
}

bool says(Bytes payload, const WantedFrame& frame) {
    const FrameContent content = contentOfFrame(frame.frame, payload);
    const bool describes = !hasField(frame.frame, ID3FN_DESCRIPTION) || content.description == frame.description;
    const bool speaks =
        !hasField(frame.frame, ID3FN_LANGUAGE) || content.language == withoutZerosAtTheEnd(frame.language);
    return describes && speaks && valueIs(content, payload, frame);
}

} // namespace corvane
