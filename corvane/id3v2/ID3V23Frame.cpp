#include "corvane/id3v2/ID3V23Frame.h"

#include "corvane/id3v2/ByteHelpers.h"
#include "corvane/id3v2/FrameLayout.h"
#include "corvane/id3v2/FrameText.h"
#include "corvane/id3v2/ReaderAnswers.h"
#include "corvane/id3v230/ID3V230FrameInternals.h"

namespace corvane {

ByteArray Internals<ID3V23Frame>::payloadOf(const ID3V230Frame& record) {
    const FrameSource* source = Internals<ID3V230Frame>::source(record);
    return source == nullptr ? ByteArray{} : source->payload();
}

std::string Internals<ID3V23Frame>::idOf(const ID3V230Frame& record) {
    const FrameSource* source = Internals<ID3V230Frame>::source(record);
    const bool hasName = record.eType() != static_cast<std::int16_t>(ID3_FrameID::ID3FID_NOFRAME);
    return hasName || source == nullptr ? record.FrameAbbr() : std::string(source->frame().idText());
}

std::string ID3V23Frame::ID() const {
    return changeable_ ? Internals<ID3V23Frame>::idOf(*changeable_) : record_->id.text();
}

std::shared_ptr<Picture> ID3V23Frame::createPicture() const {
    if (changeable_) return valueOrEmpty([this] { return changeable_->Picture(); });
    return PictureFromBytes(removeHeader());
}

ByteArray ID3V23Frame::PictureRAW() const {
    if (changeable_) return valueOrEmpty([this] { return changeable_->PictureRAW(); });
    return removeHeader();
}

ByteArray ID3V23Frame::removeHeader() const {
    return valueOrEmpty([this] {
        if (!changeable_) return contentOf(*tag_, *record_);
        const ByteArray payload = Internals<ID3V23Frame>::payloadOf(*changeable_);
        const auto id = FrameId::named(ID());
        const Bytes content = id ? corvane::removeHeader(*id, payload) : Bytes(payload);
        return ByteArray(content.begin(), content.end());
    });
}

ByteArray ID3V23Frame::RawData() const {
    return valueOrEmpty(
        [this] { return changeable_ ? Internals<ID3V23Frame>::payloadOf(*changeable_) : payloadOf(*tag_, *record_); });
}

std::string ID3V23Frame::TextData() const {
    return valueOrEmpty([this] { return changeable_ ? valueText(changeable_->vValue()) : textOf(*tag_, *record_); });
}

bool ID3V23Frame::IsPicture() const { return ID() == "APIC"; }
bool ID3V23Frame::IsArtist() const { return ID() == "TPE1"; }
bool ID3V23Frame::IsAlbum() const { return ID() == "TALB"; }
bool ID3V23Frame::IsTitle() const { return ID() == "TIT2"; }
bool ID3V23Frame::IsGenre() const { return ID() == "TCON"; }
bool ID3V23Frame::IsTrack() const { return ID() == "TRCK"; }
bool ID3V23Frame::IsYear() const { return ID() == "TYER"; }
bool ID3V23Frame::IsComment() const { return ID() == "COMM"; }

std::string ID3V23Frame::Description() const {
    return valueOrEmpty([this] { return changeable_ ? changeable_->sDescription() : std::string(); });
}

std::string ID3V23Frame::Language() const {
    return valueOrEmpty([this] { return changeable_ ? valueText(changeable_->vLanguage()) : std::string(); });
}

} // namespace corvane
