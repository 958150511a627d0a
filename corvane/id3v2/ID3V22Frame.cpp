#include "corvane/id3v2/ID3V22Frame.h"

#include "corvane/id3v2/ReaderAnswers.h"

namespace corvane {

std::string ID3V22Frame::ID() const { return record_->id.text(); }

ByteArray ID3V22Frame::RawData() const {
    return valueOrEmpty([this] { return payloadOf(*tag_, *record_); });
}

std::string ID3V22Frame::TextData() const {
    return valueOrEmpty([this] { return textOfVersion22(*tag_, *record_); });
}

bool ID3V22Frame::IsArtist() const { return record_->id == FrameId("TP1"); }
bool ID3V22Frame::IsAlbum() const { return record_->id == FrameId("TAL"); }
bool ID3V22Frame::IsTitle() const { return record_->id == FrameId("TT2"); }
bool ID3V22Frame::IsGenre() const { return record_->id == FrameId("TCO"); }
bool ID3V22Frame::IsYear() const { return record_->id == FrameId("TYE"); }

} // namespace corvane
