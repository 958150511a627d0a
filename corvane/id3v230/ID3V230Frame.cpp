#include "corvane/id3v230/ID3V230Frame.h"

#include "corvane/id3v230/FrameNames.h"
#include "corvane/id3v230/FrameRecordContent.h"
#include "corvane/id3v230/FrameSource.h"
#include "corvane/id3v230/ID3V230FrameInternals.h"
#include "corvane/platform/Inflate.h"

#include <atomic>
#include <utility>

namespace corvane {

namespace {

constexpr auto kPictureNumber = static_cast<std::int16_t>(ID3_FrameID::ID3FID_PICTURE);

constexpr std::uint8_t kFrontCover = 3; // what a new picture is (ID3v2.3.0 section 4.15)

std::string nameOf(std::int16_t type, enumShortOrLongText which) {
    return std::string(FrameName(type, which).value_or(std::string_view()));
}

// The identifier of a file may be any bytes, which must stay what they are: only its text has apostrophes.
bool isBinary(const FrameSource& source) { return source.number() == ID3_FrameID::ID3FID_UNIQUEFILEID; }

std::atomic<std::uint64_t> retypeCount = 0;

} // namespace

std::uint64_t Internals<ID3V230Frame>::retypeCount() { return corvane::retypeCount; }

ID3V230Frame::ID3V230Frame() = default;

ID3V230Frame::ID3V230Frame(std::unique_ptr<FrameSource> source)
    : type_(static_cast<std::int16_t>(source->number())),
      handle_(static_cast<std::int32_t>(source->index()) + 1),
      source_(std::move(source)) {}

ID3V230Frame::~ID3V230Frame() = default;

ID3V230Frame::Content& ID3V230Frame::content() const {
    if (content_) return *content_;
    auto content = std::make_unique<Content>();
    if (source_) {
        auto found = source_->content();
        content->isHidden = !found;
        FrameContent read = found ? std::move(*found) : FrameContent();
        content->value = std::move(read.value);
        auto* text = std::get_if<std::string>(&content->value);
        const bool isCleaned = text != nullptr && replaceQuotes(*text);
        content->isAsRead = !isCleaned || isBinary(*source_);
        content->description = std::move(read.description);
        if (replaceQuotes(content->description)) content->isAsRead = false;
        if (!read.language.empty()) content->language = std::move(read.language);
        content->pictureHead = std::move(read.picture);
    }
    if (!source_ || static_cast<std::int16_t>(source_->number()) != kPictureNumber)
        content->pictureHead.type = kFrontCover;
    content_ = std::move(content);
    return *content_;
}

ID3V230Frame::Content& ID3V230Frame::changed() {
    Content& now = content();
    if (now.isAsRead) {
        now.original = std::make_unique<Content::Original>(Content::Original{now.value, now.description, now.language});
        now.isAsRead = false;
    }
    return now;
}

void ID3V230Frame::eType(std::int16_t value) {
    changed();
    ++retypeCount;
    type_ = value;
}

FrameVariant ID3V230Frame::vValue() const {
    const Content& now = content();
    if (type_ == kPictureNumber && std::holds_alternative<NoValue>(now.value)) {
        if (auto picture = Picture()) return picture;
    }
    if (now.isHidden && std::holds_alternative<NoValue>(now.value) && source_->isTooLarge()) throw inflationFailure();
    return now.value;
}

void ID3V230Frame::vValue(FrameVariant value) {
    if (const auto* picture = std::get_if<std::shared_ptr<corvane::Picture>>(&value)) {
        Picture(*picture);
        value = NoValue();
    }
    changed().value = std::move(value);
}

std::string ID3V230Frame::sDescription() const { return content().description; }

void ID3V230Frame::sDescription(std::string value) { changed().description = std::move(value); }

Variant ID3V230Frame::vLanguage() const { return content().language; }

void ID3V230Frame::vLanguage(Variant value) { changed().language = std::move(value); }

std::shared_ptr<corvane::Picture> ID3V230Frame::Picture() const {
    Content& now = content();
    if (!now.picture) now.picture = type_ == kPictureNumber ? corvane::Picture::fromBytes(PictureRAW()) : nullptr;
    return *now.picture;
}

// Hosts write back all that they have read: the picture that is there already is no change of its frame, and neither is
// none for an image that the library does not know.
void ID3V230Frame::Picture(std::shared_ptr<corvane::Picture> value) {
    if (!content().pictureBytes && Picture() == value) return;
    Content& now = changed();
    now.picture = std::move(value);
    now.pictureWasSet = true;
    now.pictureBytes.reset();
}

FrameVariant ID3V230Frame::Delete() {
    deleted_ = true;
    return {};
}

std::string ID3V230Frame::FrameAbbr() const { return nameOf(type_, enumShortOrLongText::eslSHORT); }

std::string ID3V230Frame::FrameTitle() const { return nameOf(type_, enumShortOrLongText::eslLONG); }

void ID3V230Frame::Load(std::int32_t FrameHandle) {
    fields_.clear();
    if (!source_ || FrameHandle < 1) return;
    const auto index = static_cast<std::size_t>(FrameHandle) - 1;
    if (index >= source_->tag()->frames().size()) return;
    if (auto content = FrameSource(source_->tag(), index).content()) fields_ = std::move(content->fields);
}

ByteArray ID3V230Frame::PictureRAW() const {
    const Content& now = content();
    if (now.pictureBytes) return *now.pictureBytes;
    if (now.pictureWasSet) {
        if (*now.picture == nullptr) return {};
        const Bytes bytes = (*now.picture)->bytes();
        return {bytes.begin(), bytes.end()};
    }
    if (!source_ || source_->number() != ID3_FrameID::ID3FID_PICTURE) return {};
    ByteArray payload = source_->payload();
    const std::size_t offset = std::min(now.pictureHead.imageOffset, payload.size());
    payload.erase(payload.begin(), payload.begin() + static_cast<std::ptrdiff_t>(offset));
    return payload;
}

void ID3V230Frame::setPictureBytes(ByteArray bytes) { changed().pictureBytes = std::move(bytes); }

} // namespace corvane
