#include "corvane/id3v230/FrameEncoder.h"

#include "corvane/id3v230/EncodingFailure.h"
#include "corvane/id3v230/FrameFields.h"
#include "corvane/id3v230/LibraryFrames.h"
#include "corvane/id3v230/OwnFrame.h"
#include "corvane/id3v230/WantedFrame.h"
#include "corvane/platform/Picture.h"

#include <cstddef>
#include <string>
#include <utility>

namespace corvane {

namespace {

constexpr std::size_t kMostBytes = std::size_t{1} << 28; // of a whole tag (ID3v2.3.0 section 3.1)

bool isPlainText(const WantedFrame& frame) {
    return fieldsOf(frame.frame).inOrder.size() == 2 && hasField(frame.frame, ID3_FieldID::ID3FN_TEXT);
}

bool hasSeveralValues(const WantedFrame& frame) {
    return hasField(frame.frame, ID3_FieldID::ID3FN_TEXT) && frame.text.find('\0') != std::string::npos;
}

bool hasMarkOnly(const WantedFrame& frame) {
    return frame.encoding == TextEncoding::Utf16 && frame.description.empty() &&
           hasField(frame.frame, ID3_FieldID::ID3FN_DESCRIPTION);
}

// Plain texts are most changes, and id3lib takes a file to make one. Of several values it would keep the first. In
// front of an empty description in UTF-16 it would write no byte-order mark: there are readers that skip such a frame.
bool isOwn(const WantedFrame& frame) { return isPlainText(frame) || hasSeveralValues(frame) || hasMarkOnly(frame); }

ByteArray ownFrame(const WantedFrame& wanted) {
    OwnFrame fields(wanted.frame, wanted.encoding);
    writeFields(fields, wanted);
    const ByteArray payload = fields.payload();
    if (!says(payload, wanted)) {
        throw EncodingFailure(Id3libError::BadData,
                              std::string(wanted.letters) + ": The value would not be read back.");
    }
    ByteArray frame(wanted.letters.begin(), wanted.letters.end());
    for (const int shift : {24, 16, 8, 0}) frame.push_back(static_cast<std::uint8_t>(payload.size() >> shift & 0xFF));
    frame.insert(frame.end(), 2, 0); // flags
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

} // namespace

std::vector<ByteArray> encodedFrames(std::span<const FrameToWrite> frames) {
    std::vector<WantedFrame> wanted;
    wanted.reserve(frames.size());
    for (const FrameToWrite& frame : frames) wanted.push_back(wantedFrame(frame));
    checkSizes(wanted);
    std::vector<ByteArray> encoded(frames.size());
    std::vector<WantedFrame> others;
    std::vector<std::size_t> places; // of the others
    for (std::size_t place = 0; place < wanted.size(); ++place) {
        if (isOwn(wanted[place])) {
            encoded[place] = ownFrame(wanted[place]);
        } else {
            others.push_back(std::move(wanted[place]));
            places.push_back(place);
        }
    }
    if (others.empty()) return encoded;
    std::vector<ByteArray> made = libraryFrames(others);
    for (std::size_t i = 0; i < made.size(); ++i) encoded[places[i]] = std::move(made[i]);
    return encoded;
}

} // namespace corvane
