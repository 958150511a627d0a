#include "corvane/id3v230/FrameContent.h"

#include "corvane/id3v230/FrameFields.h"
#include "corvane/id3v230/SpreadText.h"
#include "corvane/platform/ByteReader.h"
#include "corvane/platform/CodePage.h"
#include "corvane/platform/EncodedText.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

namespace corvane {

namespace {

// Bytes.
constexpr std::size_t kMarkSize = 2; // of a byte-order mark
constexpr std::size_t kLanguageSize = 3, kImageFormatSize = 3, kLinkedIdSize = 4, kCounterSize = 4;

std::string codePageUpToZero(Bytes bytes) {
    return decodeCodePage(
        bytes.first(static_cast<std::size_t>(std::find(bytes.begin(), bytes.end(), 0) - bytes.begin())));
}

std::string withoutTrailingZeros(std::string text) {
    text.erase(text.find_last_not_of('\0') + 1);
    return text;
}

std::int32_t saturated(std::uint64_t number) {
    constexpr auto kMost = static_cast<std::uint64_t>(std::numeric_limits<std::int32_t>::max());
    return static_cast<std::int32_t>(std::min(number, kMost));
}

// Strings of a frame whose encoding byte has no meaning, or no place, are taken for code page.
EncodedTextReader codePageReader() {
    constexpr std::uint8_t kEncoding[] = {static_cast<std::uint8_t>(TextEncoding::CodePage)};
    ByteReader encoding(kEncoding);
    return *EncodedTextReader::begin(encoding);
}

// Reads the fields of one frame front to back.
class ContentReader {
public:
    ContentReader(ID3_FrameID frame, Bytes payload) : frame_(frame), size_(payload.size()), rest_(payload) {}

    FrameContent read();

private:
    void readField(ID3_FieldID field);
    void readEncoding();
    void readText();
    void readUrl();
    void readData();
    void readCounter();
    void readLanguage();
    void readId();
    void readMimeType();
    std::uint8_t readByte(ID3_FieldID field);
    std::string readPlainString(ID3_FieldID field);
    std::string readEncodedString(ID3_FieldID field);

    // What the strings in the rest say, with U+0000 between them, and how many bytes of it are marks.
    struct Values {
        std::string text;
        std::size_t markSize = 0;
    };
    Values takeValues();

    std::size_t markSize() const { return text_.isMarkedUtf16(rest_) ? kMarkSize : 0; }
    void note(ID3_FieldID field, std::size_t items, std::size_t size) {
        content_.fields.push_back({.FieldID = field, .NumTextItems = saturated(items), .Size = saturated(size)});
    }
    void noteText(ID3_FieldID field, std::size_t size) { note(field, size > 0 ? 1 : 0, size); }

    ID3_FrameID frame_;
    std::size_t size_;
    ByteReader rest_;
    EncodedTextReader text_ = codePageReader();
    std::size_t unitSize_ = 1; // bytes
    FrameContent content_;
};

FrameContent ContentReader::read() {
    for (const ID3_FieldID field : fieldsOf(frame_).inOrder) readField(field);
    std::sort(content_.fields.begin(), content_.fields.end(),
              [](const auto& one, const auto& other) { return one.FieldID < other.FieldID; });
    return std::move(content_);
}

void ContentReader::readField(ID3_FieldID field) {
    using enum ID3_FieldID;
    switch (field) {
    case ID3FN_TEXTENC:
        return readEncoding();
    case ID3FN_TEXT:
        return readText();
    case ID3FN_URL:
        return readUrl();
    case ID3FN_DATA:
        return readData();
    case ID3FN_COUNTER:
        return readCounter();
    case ID3FN_LANGUAGE:
        return readLanguage();
    case ID3FN_ID:
        return readId();
    case ID3FN_IMAGEFORMAT:
        return note(field, 0, kImageFormatSize);
    case ID3FN_DESCRIPTION:
        content_.description = readEncodedString(field);
        return;
    case ID3FN_MIMETYPE:
        readMimeType();
        return;
    case ID3FN_PICTURETYPE:
        content_.picture.type = readByte(field);
        return;
    case ID3FN_TIMESTAMPFORMAT:
        content_.lyrics.format = static_cast<TimeStampFormat>(readByte(field));
        return;
    case ID3FN_CONTENTTYPE:
        content_.contentType = readByte(field);
        return;
    case ID3FN_FILENAME:
        readEncodedString(field);
        return;
    case ID3FN_OWNER:
    case ID3FN_EMAIL:
        readPlainString(field);
        return;
    default:
        readByte(field);
        return;
    }
}

// An encoding without a meaning is taken for the code page. Some writers leave the encoding out: then a text begins
// here.
void ContentReader::readEncoding() {
    note(ID3_FieldID::ID3FN_TEXTENC, 0, 1);
    const ByteReader before = rest_;
    ByteReader ahead = rest_;
    const std::uint32_t encoding = ahead.number<1>().value_or(0);
    if (const auto reader = EncodedTextReader::begin(rest_)) {
        text_ = *reader;
        unitSize_ = encoding == 1 || encoding == 2 ? 2 : 1;
    } else if (encoding >= ' ' && fieldsOf(frame_).inOrder.size() == 2) {
        rest_ = before;
    }
}

ContentReader::Values ContentReader::takeValues() {
    Values values;
    for (;;) {
        values.markSize += markSize();
        const std::size_t before = rest_.left();
        values.text.append(text_.takeTerminated(rest_));
        if (rest_.left() == before) break; // the last one has no end
        values.text.push_back('\0');
    }
    values.text.append(text_.takeJoinedValues(rest_));
    return values;
}

// A list counts its texts; several texts in any other frame are one, and so are marks between them.
void ContentReader::readText() {
    const bool isList = frame_ == ID3_FrameID::ID3FID_INVOLVEDPEOPLE;
    const std::size_t whole = rest_.left() - rest_.left() % unitSize_;
    const std::size_t firstMark = markSize();
    const Values values = takeValues();
    std::string text = withoutTrailingZeros(values.text);
    if (isList && !text.empty()) {
        const std::size_t ends = (values.text.size() - text.size()) * unitSize_;
        const auto breaks = std::count(text.begin(), text.end(), '\0');
        note(ID3_FieldID::ID3FN_TEXT, static_cast<std::size_t>(breaks) + 1, whole - values.markSize - ends);
    } else {
        noteText(ID3_FieldID::ID3FN_TEXT, whole - firstMark);
    }
    content_.value = std::move(text);
}

// An address is in the code page whatever the encoding is; some writers put UTF-16 with its mark there all the same.
void ContentReader::readUrl() {
    if (frame_ == ID3_FrameID::ID3FID_LINKEDINFO) {
        readPlainString(ID3_FieldID::ID3FN_URL);
        return;
    }
    noteText(ID3_FieldID::ID3FN_URL, rest_.left());
    std::string url;
    if (markSize() > 0) {
        url = takeValues().text;
        url.erase(std::min(url.find('\0'), url.size()));
    } else {
        url = codePageUpToZero(rest_.takeRest());
    }
    content_.value = std::move(url);
}

void ContentReader::readData() {
    note(ID3_FieldID::ID3FN_DATA, 0, rest_.left());
    content_.picture.imageOffset = frame_ == ID3_FrameID::ID3FID_PICTURE ? size_ - rest_.left() : 0;
    if (frame_ == ID3_FrameID::ID3FID_UNIQUEFILEID) content_.value = unspreadText(rest_.takeRest());
    if (frame_ == ID3_FrameID::ID3FID_SYNCEDLYRICS) {
        content_.lyrics = takeSyncedLyrics(content_.lyrics.format, text_, rest_);
        content_.value = textOfSyncedLyrics(content_.lyrics);
    }
}

// Counters may be longer than four bytes (ID3v2.3.0 section 4.17).
void ContentReader::readCounter() {
    note(ID3_FieldID::ID3FN_COUNTER, 0, kCounterSize);
    std::uint64_t count = 0;
    for (const std::uint8_t byte : rest_.takeRest()) {
        count = std::min<std::uint64_t>(count << 8 | byte, std::numeric_limits<std::uint32_t>::max());
    }
    if (frame_ == ID3_FrameID::ID3FID_PLAYCOUNTER) content_.value = saturated(count);
}

void ContentReader::readLanguage() {
    const auto language = rest_.take(kLanguageSize);
    note(ID3_FieldID::ID3FN_LANGUAGE, language ? 1 : 0, kLanguageSize);
    if (language) content_.language = withoutTrailingZeros(decodeCodePage(*language));
}

// The letters of a linked frame, of which id3lib counts three; elsewhere one byte.
void ContentReader::readId() {
    if (frame_ != ID3_FrameID::ID3FID_LINKEDINFO) {
        readByte(ID3_FieldID::ID3FN_ID);
        return;
    }
    rest_.take(kLinkedIdSize);
    note(ID3_FieldID::ID3FN_ID, 0, kLinkedIdSize - 1);
}

void ContentReader::readMimeType() {
    std::string type = readPlainString(ID3_FieldID::ID3FN_MIMETYPE);
    if (frame_ == ID3_FrameID::ID3FID_PICTURE) content_.picture.mimeType = std::move(type);
}

std::uint8_t ContentReader::readByte(ID3_FieldID field) {
    note(field, 0, 1);
    return static_cast<std::uint8_t>(rest_.number<1>().value_or(0));
}

std::string ContentReader::readPlainString(ID3_FieldID field) {
    ByteReader ahead = rest_;
    const Bytes rest = ahead.takeRest();
    const auto length = static_cast<std::size_t>(std::find(rest.begin(), rest.end(), 0) - rest.begin());
    noteText(field, length);
    rest_.take(std::min(length + 1, rest.size()));
    return decodeCodePage(rest.first(length));
}

std::string ContentReader::readEncodedString(ID3_FieldID field) {
    const std::size_t mark = markSize();
    const std::size_t before = rest_.left();
    std::string text = text_.takeTerminated(rest_);
    const std::size_t taken = before - rest_.left();
    noteText(field, taken == 0 ? 0 : taken - unitSize_ - mark);
    return text;
}

} // namespace

FrameContent contentOfFrame(ID3_FrameID frame, Bytes payload) { return ContentReader(frame, payload).read(); }

} // namespace corvane
