// One frame of an ID3v2.3 tag. A frame shares ownership of the tag's data and lives on when the tag is gone.
//
// A large payload, such as a picture, stays in the file until it is asked for. A read that fails then, because the file
// was changed or is gone, gives the empty value.
//
// A frame of a tag that can be changed is a view of its record (ID3V230Frame): texts, description, language and picture
// are those that the record has now, the other bytes are those of the frame that it was read from.
#pragma once

#include "corvane/platform/Bytes.h"
#include "corvane/platform/Export.h"
#include "corvane/platform/Internals.h"
#include "corvane/platform/Picture.h"

#include <memory>
#include <string>
#include <utility>

namespace corvane {

class ID3V230Frame;
class TagFrames;
struct FrameRecord;

class CORVANE_EXPORT ID3V23Frame {
public:
    // The ID, 4 characters. That of a frame without a name is the one that stands in the file.
    std::string ID() const;
    // The picture that removeHeader gives; nothing when it is no JPEG, PNG, GIF or BMP image.
    std::shared_ptr<Picture> createPicture() const;
    // The picture's bytes as they stand in the frame.
    ByteArray PictureRAW() const;
    // The payload without its leading fields (encoding, language, description, MIME type); all of it for frames that
    // have none. The description ends at the first single 0 byte in every encoding.
    ByteArray removeHeader() const;
    // The payload; of a compressed frame what came out of it.
    ByteArray RawData() const;
    // The text of a T frame, COMM, USLT, SYLT or APIC, the number of PCNT in decimal; "" for every other frame. Of a
    // record its value as text.
    std::string TextData() const;

    // What the frame is, by its ID.
    bool IsPicture() const;
    bool IsArtist() const;
    bool IsAlbum() const;
    bool IsTitle() const;
    bool IsGenre() const;
    bool IsTrack() const;
    bool IsYear() const;
    bool IsComment() const;

    // "" for frames without one, and for all frames of a tag that cannot be changed.
    std::string Description() const;
    std::string Language() const;

private:
    friend struct Internals<ID3V23Frame>;
    ID3V23Frame(std::shared_ptr<const TagFrames> tag, const FrameRecord* record)
        : tag_(std::move(tag)), record_(record) {}
    explicit ID3V23Frame(std::shared_ptr<const ID3V230Frame> changeable) : changeable_(std::move(changeable)) {}

    std::shared_ptr<const TagFrames> tag_;
    const FrameRecord* record_ = nullptr;
    std::shared_ptr<const ID3V230Frame> changeable_; // instead of the other two
};

} // namespace corvane
