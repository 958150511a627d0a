#include "corvane/id3v2/ID3V2TagXml.h"

#include "corvane/id3v2/FrameInternals.h"
#include "corvane/id3v2/FrameText.h"
#include "corvane/id3v230/FrameRecordContent.h"
#include "corvane/id3v230/ID3V230Frames.h"
#include "corvane/id3v230/RecordsToWrite.h"
#include "corvane/platform/Utf16Text.h"
#include "corvane/xml/XmlLayout.h"

#include <algorithm>
#include <array>

namespace corvane {

namespace {

constexpr FrameId kPicture("APIC");

struct FrameName {
    FrameId id;
    const char* name;
    bool inVersion24; // whether the reader of that version has the predicate
};
constexpr std::array<FrameName, 12> kNames{{
    {"TALB", "Album", true},
    {"TAL", "Album", false},
    {"TPE1", "Artist", true},
    {"TP1", "Artist", false},
    {"TCON", "Genre", true},
    {"TCO", "Genre", false},
    {"TIT2", "Title", true},
    {"TT2", "Title", false},
    {"TRCK", "Track", false},
    {"COMM", "Comment", true},
    {"TYER", "Year", false},
    {"TYE", "Year", false},
}};

const char* nameOf(FrameId id, unsigned majorVersion) {
    const auto found = std::find_if(kNames.begin(), kNames.end(), [id](const auto& row) { return row.id == id; });
    return found == kNames.end() || (majorVersion == 4 && !found->inVersion24) ? nullptr : found->name;
}

// Bytes assigned to a string, as the automation hosts do it: each two bytes are one UTF-16 unit, low byte first. An odd
// last byte has no unit and is dropped.
std::string textOfUnits(Bytes bytes) { return decodeUtf16(bytes, false); }

// Odd on purpose: the pictures of ID3v2.4 stand as text, not as base64.
void appendPicture(pugi::xml_node properties, Bytes payload, unsigned majorVersion) {
    const Bytes picture = removeHeader(kPicture, payload);
    if (majorVersion == 4) {
        appendProperty(properties, "Picture", textOfUnits(picture));
    } else {
        appendBinaryProperty(properties, "Picture", picture);
    }
}

void appendFrame(pugi::xml_node properties, const TagFrames& frames, const FrameRecord& frame, unsigned majorVersion) {
    const Payload payload = frames.payload(frame);
    if (frame.id == kPicture) return appendPicture(properties, payload.bytes(), majorVersion);
    const std::string text = majorVersion == 2 ? textDataOfVersion22(frame.id, payload.bytes())
                                               : textData(frame.id, frame.encrypted, payload.bytes());
    if (const char* name = nameOf(frame.id, majorVersion)) return appendProperty(properties, name, text);
    if (!text.empty()) return appendProperty(properties, frame.id.text(), text);
    appendBinaryProperty(properties, frame.id.text(), payload.bytes());
}

// The record itself fails where its frame object would give an empty value.
void appendFrame(pugi::xml_node properties, const ID3V230Frame& record) {
    const std::string id = Internals<ID3V23Frame>::idOf(record);
    const auto known = FrameId::named(id);
    if (known == kPicture) return appendBinaryProperty(properties, "Picture", record.PictureRAW());
    const std::string text = valueText(record.vValue());
    if (const char* name = known ? nameOf(*known, 3) : nullptr) return appendProperty(properties, name, text);
    // The payload of a value that was taken out still is in the file.
    if (!text.empty() || isEmptied(record)) return appendProperty(properties, id, text);
    appendBinaryProperty(properties, id, Internals<ID3V23Frame>::payloadOf(record));
}

} // namespace

void appendFrameProperties(pugi::xml_node properties, const TagFrames& frames, unsigned majorVersion) {
    for (std::size_t i = 0; i < frames.count(); ++i) appendFrame(properties, frames, *frames.at(i), majorVersion);
}

void appendFrameProperties(pugi::xml_node properties, const ID3V230Frames& records) {
    for (const auto& record : records) appendFrame(properties, *record);
}

} // namespace corvane
