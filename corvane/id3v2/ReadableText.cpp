#include "corvane/id3v2/ReadableText.h"

#include "corvane/id3v2/ReadableGenre.h"
#include "corvane/platform/CodePage.h"
#include "corvane/platform/EncodedText.h"

#include <algorithm>
#include <array>

namespace corvane {

namespace {

using Read = ReadableFrame (*)(ByteReader& payload);

constexpr std::size_t kLanguageLength = 3;
constexpr std::size_t kTimeStampLength = 4;

// A string in the code page up to a byte 0, which is taken too, or to the end.
std::string takeCodePageText(ByteReader& payload) {
    ByteReader ahead = payload;
    const Bytes rest = ahead.takeRest();
    const auto length = static_cast<std::size_t>(std::find(rest.begin(), rest.end(), 0) - rest.begin());
    const Bytes text = *payload.take(length);
    payload.take(1);
    return decodeCodePage(text);
}

std::string takeLanguage(ByteReader& payload) {
    const auto language = payload.take(kLanguageLength);
    if (!language || std::find(language->begin(), language->end(), 0) != language->end()) return {};
    return decodeCodePage(*language);
}

ReadableFrame readText(ByteReader& payload) {
    auto text = EncodedTextReader::begin(payload);
    if (!text) return {};
    return {.text = text->takeJoinedValues(payload)};
}

ReadableFrame readGenre(ByteReader& payload) {
    auto text = EncodedTextReader::begin(payload);
    if (!text) return {};
    return {.text = readableGenre(text->takeValues(payload))};
}

ReadableFrame readUserText(ByteReader& payload) {
    auto text = EncodedTextReader::begin(payload);
    if (!text) return {};
    ReadableFrame frame{.description = text->takeTerminated(payload)};
    frame.text = text->takeJoinedValues(payload);
    return frame;
}

ReadableFrame readUrl(ByteReader& payload) { return {.text = takeCodePageText(payload)}; }

// The address is in the code page whatever the encoding is; some writers put UTF-16 with its mark there all the same.
ReadableFrame readUserUrl(ByteReader& payload) {
    auto text = EncodedTextReader::begin(payload);
    if (!text) return {};
    ReadableFrame frame{.description = text->takeTerminated(payload)};
    frame.text = text->isMarkedUtf16(payload) ? text->takeJoinedValues(payload) : takeCodePageText(payload);
    return frame;
}

ReadableFrame readComment(ByteReader& payload) {
    auto text = EncodedTextReader::begin(payload);
    if (!text) return {};
    ReadableFrame frame{.language = takeLanguage(payload), .description = text->takeTerminated(payload)};
    frame.text = text->takeJoinedValues(payload);
    return frame;
}

ReadableFrame readTermsOfUse(ByteReader& payload) {
    auto text = EncodedTextReader::begin(payload);
    if (!text) return {};
    ReadableFrame frame{.language = takeLanguage(payload)};
    frame.text = text->takeJoinedValues(payload);
    return frame;
}

// The texts of synchronised lyrics, each of which has a time stamp behind it. The last one needs its end to count.
std::vector<std::string> takeTimedTexts(EncodedTextReader& text, ByteReader& payload) {
    std::vector<std::string> parts;
    while (payload.left() > kTimeStampLength) {
        const std::size_t before = payload.left();
        std::string part = text.takeTerminated(payload);
        if (payload.left() == before) break;
        payload.take(kTimeStampLength);
        if (!part.empty()) parts.push_back(std::move(part));
    }
    return parts;
}

// A line begins where a text begins with a line feed or, when no text does, with each text.
std::string joinedLines(const std::vector<std::string>& parts) {
    const auto beginsLine = [](const std::string& part) { return part.front() == '\n'; };
    const bool areMarked = std::any_of(parts.begin(), parts.end(), beginsLine);
    std::string text;
    for (const std::string& part : parts) {
        if (!areMarked) text.push_back('\n');
        text.append(part);
    }
    return text.starts_with('\n') ? text.substr(1) : text;
}

ReadableFrame readSyncedLyrics(ByteReader& payload) {
    auto text = EncodedTextReader::begin(payload);
    if (!text) return {};
    ReadableFrame frame{.language = takeLanguage(payload)};
    payload.take(2); // format of the time stamps, content type
    frame.description = text->takeTerminated(payload);
    frame.text = joinedLines(takeTimedTexts(*text, payload));
    return frame;
}

// A counter of any length, "" when it has no byte or does not fit 64 bits.
std::string counterText(Bytes digits) {
    std::uint64_t value = 0;
    for (const std::uint8_t digit : digits) {
        if (value >> 56 != 0) return {};
        value = value << 8 | digit;
    }
    return digits.empty() ? std::string() : std::to_string(value);
}

ReadableFrame readCounter(ByteReader& payload) { return {.text = counterText(payload.takeRest())}; }

ReadableFrame readRating(ByteReader& payload) {
    ReadableFrame frame{.description = takeCodePageText(payload)};
    if (const auto rating = payload.number<1>()) frame.text = std::to_string(*rating);
    return frame;
}

// The identifier is any bytes; it is readable when all of them are visible ASCII.
ReadableFrame readIdentifier(ByteReader& payload) {
    ReadableFrame frame{.description = takeCodePageText(payload)};
    const Bytes identifier = payload.takeRest();
    const auto isVisible = [](std::uint8_t byte) { return byte >= 0x20 && byte < 0x7F; };
    if (std::all_of(identifier.begin(), identifier.end(), isVisible)) frame.text = decodeCodePage(identifier);
    return frame;
}

struct FrameKind {
    FrameId id;
    Read read;
};
constexpr std::array<FrameKind, 21> kFrameKinds{{
    {"CNT", readCounter},      {"COM", readComment},     {"IPL", readText},          {"POP", readRating},
    {"SLT", readSyncedLyrics}, {"TCO", readGenre},       {"TXX", readUserText},      {"UFI", readIdentifier},
    {"ULT", readComment},      {"WXX", readUserUrl},     {"COMM", readComment},      {"IPLS", readText},
    {"PCNT", readCounter},     {"POPM", readRating},     {"SYLT", readSyncedLyrics}, {"TCON", readGenre},
    {"TXXX", readUserText},    {"UFID", readIdentifier}, {"USER", readTermsOfUse},   {"USLT", readComment},
    {"WXXX", readUserUrl},
}};
static_assert(std::ranges::is_sorted(kFrameKinds, {}, &FrameKind::id));
static_assert(std::ranges::adjacent_find(kFrameKinds, {}, &FrameKind::id) == kFrameKinds.end());

// Any other T frame is text, any other W frame an address.
Read readOf(FrameId id) {
    const auto found = std::ranges::lower_bound(kFrameKinds, id, {}, &FrameKind::id);
    if (found != kFrameKinds.end() && found->id == id) return found->read;
    return id.first() == 'T' ? readText : id.first() == 'W' ? readUrl : nullptr;
}

} // namespace

bool isReadable(FrameId id) { return readOf(id) != nullptr; }

ReadableFrame readableFrame(FrameId id, Bytes payload) {
    const Read read = readOf(id);
    if (read == nullptr) return {};
    ByteReader reader(payload);
    return read(reader);
}

std::string readableText(FrameId id, Bytes payload) { return readableFrame(id, payload).text; }

ReadableFrame readableFrame(const TagFrames& frames, const FrameRecord& frame) {
    if (frame.encrypted || frame.place == FramePlace::TooLarge || !isReadable(frame.id)) return {};
    return readableFrame(frame.id, frames.payload(frame).bytes());
}

} // namespace corvane
