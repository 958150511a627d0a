#include "corvane/id3v2/ID3V24Frame.h"

#include "corvane/id3v2/ByteHelpers.h"
#include "corvane/id3v2/ReaderAnswers.h"

namespace corvane {

std::string ID3V24Frame::ID() const { return record_->id.text(); }

std::shared_ptr<Picture> ID3V24Frame::createPicture() const { return PictureFromBytes(removeHeader()); }

ByteArray ID3V24Frame::removeHeader() const {
    return valueOrEmpty([this] { return contentOf(*tag_, *record_); });
}

ByteArray ID3V24Frame::RawData() const {
    return valueOrEmpty([this] { return payloadOf(*tag_, *record_); });
}

std::string ID3V24Frame::TextData() const {
    return valueOrEmpty([this] { return textOf(*tag_, *record_); });
}

bool ID3V24Frame::IsPicture() const { return record_->id == FrameId("APIC"); }
bool ID3V24Frame::IsArtist() const { return record_->id == FrameId("TPE1"); }
bool ID3V24Frame::IsAlbum() const { return record_->id == FrameId("TALB"); }
bool ID3V24Frame::IsTitle() const { return record_->id == FrameId("TIT2"); }
bool ID3V24Frame::IsGenre() const { return record_->id == FrameId("TCON"); }
bool ID3V24Frame::IsComment() const { return record_->id == FrameId("COMM"); }

} // namespace corvane
