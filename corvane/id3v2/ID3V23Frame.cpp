#include "corvane/id3v2/ID3V23Frame.h"

#include "corvane/id3v2/ByteHelpers.h"
#include "corvane/id3v2/ReaderAnswers.h"

namespace corvane {

std::string ID3V23Frame::ID() const { return record_->id.text(); }

std::shared_ptr<Picture> ID3V23Frame::createPicture() const { return PictureFromBytes(removeHeader()); }

ByteArray ID3V23Frame::PictureRAW() const { return removeHeader(); }

ByteArray ID3V23Frame::removeHeader() const {
    return valueOrEmpty([this] { return contentOf(*tag_, *record_); });
}

ByteArray ID3V23Frame::RawData() const {
    return valueOrEmpty([this] { return payloadOf(*tag_, *record_); });
}

std::string ID3V23Frame::TextData() const {
    return valueOrEmpty([this] { return textOf(*tag_, *record_); });
}

bool ID3V23Frame::IsPicture() const { return record_->id == FrameId("APIC"); }
bool ID3V23Frame::IsArtist() const { return record_->id == FrameId("TPE1"); }
bool ID3V23Frame::IsAlbum() const { return record_->id == FrameId("TALB"); }
bool ID3V23Frame::IsTitle() const { return record_->id == FrameId("TIT2"); }
bool ID3V23Frame::IsGenre() const { return record_->id == FrameId("TCON"); }
bool ID3V23Frame::IsTrack() const { return record_->id == FrameId("TRCK"); }
bool ID3V23Frame::IsYear() const { return record_->id == FrameId("TYER"); }
bool ID3V23Frame::IsComment() const { return record_->id == FrameId("COMM"); }

std::string ID3V23Frame::Description() const { return {}; }
std::string ID3V23Frame::Language() const { return {}; }

} // namespace corvane
