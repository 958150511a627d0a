#include "corvane/id3v230/FrameEncoder.h"

#include "corvane/id3v230/EncodingFailure.h"
#include "corvane/id3v230/FrameFields.h"
#include "corvane/id3v230/FrameNames.h"
#include "corvane/id3v230/LibraryFrames.h"
#include "corvane/id3v230/OwnFrame.h"
#include "corvane/id3v230/WantedFrame.h"
#include "corvane/platform/Picture.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>

namespace corvane {

namespace {

constexpr std::size_t kMostBytes = std::size_t{1} << 28; // of a whole tag (ID3v2.3.0 section 3.1)
constexpr std::size_t kFrameHeaderSize = 10;             // bytes, of a frame

bool isPlainText(ID3_FrameID frame) {
    return fieldsOf(frame).inOrder.size() == 2 && hasField(frame, ID3_FieldID::ID3FN_TEXT);
}

ByteArray headerOf(std::string_view letters, std::size_t payloadSize) {
    ByteArray frame;
    frame.reserve(kFrameHeaderSize + payloadSize);
    frame.assign(letters.begin(), letters.end());
    for (const int shift : {24, 16, 8, 0}) frame.push_back(static_cast<std::uint8_t>(payloadSize >> shift & 0xFF));
    frame.insert(frame.end(), 2, 0); // flags
    return frame;
}

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char letter) { return letter > 0; });
}

// What most changes are: a plain text of ASCII characters, whose bytes are its characters. Nothing for other frames.
std::optional<ByteArray> asciiTextFrame(const FrameToWrite& frame) {
    const auto* text = std::get_if<std::string>(&frame.value);
    const bool isPlain = text != nullptr && !text->empty() && frame.description.empty() && frame.language.empty() &&
                         isPlainText(frame.frame) && text->size() < kMostBytes / 2 && isAscii(*text);
    if (!isPlain) return std::nullopt;
    const auto number = static_cast<std::int32_t>(frame.frame);
    ByteArray bytes = headerOf(*FrameName(number, enumShortOrLongText::eslSHORT), text->size() + 1);
    bytes.push_back(static_cast<std::uint8_t>(TextEncoding::CodePage));
    bytes.insert(bytes.end(), text->begin(), text->end());
    return bytes;
}

bool hasSeveralValues(const WantedFrame& frame) {
    return hasField(frame.frame, ID3_FieldID::ID3FN_TEXT) && frame.text.find('\0') != std::string::npos;
}

bool hasZeroInLanguage(const WantedFrame& frame) { return frame.language.find('\0') != std::string::npos; }

bool hasMarkOnly(const WantedFrame& frame) {
    return frame.encoding == TextEncoding::Utf16 && frame.description.empty() &&
           hasField(frame.frame, ID3_FieldID::ID3FN_DESCRIPTION);
}

// Plain texts are most changes, and id3lib takes a file to make one. Of several values it would keep the first, and its
// texts end at a zero. In front of an empty description in UTF-16 it would write no byte-order mark: there are readers
// that skip such a frame.
bool isOwn(const WantedFrame& frame) {
    return isPlainText(frame.frame) || hasSeveralValues(frame) || hasZeroInLanguage(frame) || hasMarkOnly(frame);
}

ByteArray ownFrame(const WantedFrame& wanted) {
    OwnFrame fields(wanted.frame, wanted.encoding);
    writeFields(fields, wanted);
    const ByteArray payload = fields.payload();
    if (!says(payload, wanted)) {
        throw EncodingFailure(Id3libError::BadData,
                              std::string(wanted.letters) + ": The value would not be read back.");
    }
    ByteArray frame = headerOf(wanted.letters, payload.size());
    frame.insert(frame.end(), payload.begin(), payload.end());
    return frame;
}

// An upper limit of what the frame's data take.
std::size_t mostBytesOf(const WantedFrame& frame) {
    constexpr std::size_t kFixed = 64, kUnit = 2, kPerEntry = 8;
    return kFixed + kUnit * (frame.text.size() + frame.description.size()) + kPerEntry * frame.lyrics.entries.size() +
           (frame.picture ? frame.picture->bytes().size() : 0);
}

void checkSizes(const std::vector<WantedFrame>& frames) {
    std::size_t all = 0;
    for (const WantedFrame& frame : frames) all += mostBytesOf(frame);
    if (all >= kMostBytes) throw EncodingFailure(Id3libError::BadData, "The values are too large for a tag.");
}

// Those of id3lib all at once, since it takes a file each time.
std::vector<ByteArray> madeFrames(std::vector<WantedFrame> frames) {
    checkSizes(frames);
    std::vector<ByteArray> made(frames.size());
    std::vector<WantedFrame> others;
    std::vector<std::size_t> places; // of the others
    for (std::size_t place = 0; place < frames.size(); ++place) {
        if (isOwn(frames[place])) {
            made[place] = ownFrame(frames[place]);
        } else {
            others.push_back(std::move(frames[place]));
            places.push_back(place);
        }
    }
    if (others.empty()) return made;
    std::vector<ByteArray> ofLibrary = libraryFrames(others);
    for (std::size_t i = 0; i < ofLibrary.size(); ++i) made[places[i]] = std::move(ofLibrary[i]);
    return made;
}

} // namespace

std::vector<ByteArray> encodedFrames(std::span<const FrameToWrite> frames) {
    std::vector<ByteArray> encoded(frames.size());
    std::vector<WantedFrame> wanted;
    std::vector<std::size_t> places; // of those that are wanted yet
    for (std::size_t place = 0; place < frames.size(); ++place) {
        if (auto made = asciiTextFrame(frames[place])) {
            encoded[place] = std::move(*made);
        } else {
            wanted.push_back(wantedFrame(frames[place]));
            places.push_back(place);
        }
    }
    if (wanted.empty()) return encoded;
    std::vector<ByteArray> made = madeFrames(std::move(wanted));
    for (std::size_t i = 0; i < made.size(); ++i) encoded[places[i]] = std::move(made[i]);
    return encoded;
}

} // namespace corvane
