// One frame of an ID3v2.2 tag. A frame shares ownership of the tag's data and lives on when the tag is gone.
//
// A large payload, such as a picture, stays in the file until it is asked for. A read that fails then, because the file
// was changed or is gone, gives the empty value.
#pragma once

#include "corvane/platform/Bytes.h"
#include "corvane/platform/Export.h"
#include "corvane/platform/Internals.h"

#include <memory>
#include <string>
#include <utility>

namespace corvane {

class TagFrames;
struct FrameRecord;

class CORVANE_EXPORT ID3V22Frame {
public:
    // The ID, 3 characters.
    std::string ID() const;
    // The payload.
    ByteArray RawData() const;
    // The text of a T frame in encoding 0 or 1; "" for every other frame.
    std::string TextData() const;

    // What the frame is, by its ID.
    bool IsArtist() const;
    bool IsAlbum() const;
    bool IsTitle() const;
    bool IsGenre() const;
    bool IsYear() const;

private:
    friend struct Internals<ID3V22Frame>;
    ID3V22Frame(std::shared_ptr<const TagFrames> tag, const FrameRecord* record)
        : tag_(std::move(tag)), record_(record) {}

    std::shared_ptr<const TagFrames> tag_;
    const FrameRecord* record_;
};

} // namespace corvane
