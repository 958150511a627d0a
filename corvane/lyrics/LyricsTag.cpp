#include "corvane/lyrics/LyricsTag.h"

#include "corvane/id3v1/Id3v1Record.h"
#include "corvane/lyrics/LyricsFormat.h"
#include "corvane/lyrics/LyricsV200FieldInternals.h"
#include "corvane/platform/CodePage.h"
#include "corvane/platform/FileReader.h"
#include "corvane/platform/RuntimeFailure.h"

#include <utility>

namespace corvane {

namespace {

constexpr const char* kLoad = "LyricsTag::Load"; // the source of load failures

RuntimeFailure bodyOutsideTheFile() {
    return {FailureNumber::BadRecordNumber, kLoad, "The Lyrics3 tag is larger than the file."};
}

} // namespace

LyricsTag::LyricsTag() = default;

LyricsTag::~LyricsTag() = default;

std::string LyricsTag::Lyrics() const {
    return version_ == ELyricsVersionConstants::lvcV100 ? bodyText_ : textOf("LYR");
}

std::int32_t LyricsTag::FieldCount() const { return static_cast<std::int32_t>(fields_.count()); }

std::shared_ptr<LyricsV200Field> LyricsTag::getFieldByID(std::string_view FieldID) const {
    return fields_.find(FieldID);
}

std::shared_ptr<LyricsV200Field> LyricsTag::getFieldByIndex(std::int32_t Index) const {
    return Index >= 1 && Index <= FieldCount() ? fields_.at(static_cast<std::size_t>(Index - 1)) : nullptr;
}

std::string LyricsTag::textOf(std::string_view id) const {
    const auto field = fields_.find(id);
    return field ? field->TextData() : std::string();
}

void LyricsTag::forget() {
    version_ = ELyricsVersionConstants::lvcUnknown;
    size_ = 0;
    bodyText_.clear();
    fields_ = {};
}

void LyricsTag::Load(const std::string& FileName, bool HasID3v1) {
    fileName_ = FileName;
    hasId3v1Tag_ = HasID3v1;
    forget();
    FileReader file(FileName);
    Load(file, HasID3v1);
}

void LyricsTag::Load(FileReader& file, bool HasID3v1) {
    hasId3v1Tag_ = HasID3v1;
    forget();
    const std::uint64_t bytesFromTrailerOn = kLyricsTrailerSize + (HasID3v1 ? kId3v1RecordSize : 0);
    if (file.size() < bytesFromTrailerOn) return;
    const std::uint64_t trailerOffset = file.size() - bytesFromTrailerOn;
    const Bytes trailer = file.view(trailerOffset, kLyricsTrailerSize);
    version_ = lyricsVersionOf(trailer);
    if (version_ == ELyricsVersionConstants::lvcUnknown) return;
    const auto size = lyricsBodySize(trailer);
    if (!size) throw typeMismatchFailure(kLoad);
    size_ = *size;

    const auto bodySize = static_cast<std::size_t>(size_);
    if (bodySize > trailerOffset) throw bodyOutsideTheFile();
    const Bytes body = file.view(trailerOffset - bodySize, bodySize);
    if (body.size() < bodySize) throw bodyOutsideTheFile(); // the file was cut since it was opened
    // The format's lyrics of v1.00 reach from "LYRICSBEGIN" to "LYRICSEND". Here they are, on purpose, the 5100 bytes
    // in front of the trailer, whatever these are: hosts rely on the fixed length.
    if (version_ == ELyricsVersionConstants::lvcV100) {
        bodyText_ = decodeCodePage(body);
    } else {
        split(body);
    }
}

// Two things differ from other readers on purpose, and hosts rely on both: the first 11 bytes are skipped whether or
// not they are "LYRICSBEGIN", and a second field of one ID ends the loading.
void LyricsTag::split(Bytes body) {
    ByteReader rest = readerAt(body, kLyricsBeginSize);
    while (rest.left() > 0) {
        const auto field = takeLyricsField(rest);
        if (!field) throw typeMismatchFailure(kLoad);
        if (!fields_.add(
                Internals<LyricsV200Field>::of(decodeCodePage(field->id), field->size, decodeCodePage(field->data)))) {
            throw RuntimeFailure(FailureNumber::DuplicateKey, kLoad,
                                 "This key is already associated with an element of this collection");
        }
    }
}

} // namespace corvane
