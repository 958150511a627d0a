// One frame of an ID3v2.4 tag. A frame shares ownership of the tag's data and lives on when the tag is gone.
//
// A large payload, such as a picture, stays in the file until it is asked for. A read that fails then, because the file
// was changed or is gone, gives the empty value.
#pragma once

#include "corvane/platform/Bytes.h"
#include "corvane/platform/Export.h"
#include "corvane/platform/Internals.h"
#include "corvane/platform/Picture.h"

#include <memory>
#include <string>
#include <utility>

namespace corvane {

class TagFrames;
struct FrameRecord;

class CORVANE_EXPORT ID3V24Frame {
public:
    // The ID, 4 characters.
    std::string ID() const;
    // The picture that removeHeader gives; nothing when it is no JPEG, PNG, GIF or BMP image.
    std::shared_ptr<Picture> createPicture() const;
    // The payload without its leading fields (encoding, language, description, MIME type); all of it for frames that
    // have none. The description ends at the first single 0 byte in every encoding.
    ByteArray removeHeader() const;
    // The payload; un-synchronised, and of a compressed frame what came out of it.
    ByteArray RawData() const;
    // The text of a T frame, COMM, USLT, SYLT or APIC, the number of PCNT in decimal; "" for every other frame. The
    // rules are those of ID3v2.3: UTF-8 is not decoded, its bytes are read in the code page.
    std::string TextData() const;

    // What the frame is, by its ID.
    bool IsPicture() const;
    bool IsArtist() const;
    bool IsAlbum() const;
    bool IsTitle() const;
    bool IsGenre() const;
    bool IsComment() const;

private:
    friend struct Internals<ID3V24Frame>;
    ID3V24Frame(std::shared_ptr<const TagFrames> tag, const FrameRecord* record)
        : tag_(std::move(tag)), record_(record) {}

    std::shared_ptr<const TagFrames> tag_;
    const FrameRecord* record_;
};

} // namespace corvane
