// One frame of an ID3v2.3 tag as ID3V230 holds it in memory: what the frame says, and what has become of it since it
// was read. Made by ID3V230; hosts reach the records through ID3V230::Frames.
//
// What a frame says is taken out of its bytes when a member first asks for it. A payload of more than 64 KB, such as a
// picture, may still be in the file then: members fail with a RuntimeFailure when that file was changed by somebody
// else meanwhile or is gone. What the library itself takes out of the file stays with the record (see ID3V230). They
// also fail for the value or the picture of a compressed frame that would inflate beyond the limit of its tag
// (setInflationLimit). Different threads may use the records of different tags.
#pragma once

#include "corvane/id3v230/FrameVariant.h"
#include "corvane/id3v230/ID3V230Field.h"
#include "corvane/id3v230/ID3_FrameID.h"
#include "corvane/platform/Bytes.h"
#include "corvane/platform/Export.h"
#include "corvane/platform/Internals.h"
#include "corvane/platform/Picture.h"
#include "corvane/platform/Variant.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace corvane {

class FrameSource;

class CORVANE_EXPORT ID3V230Frame {
public:
    ~ID3V230Frame();
    ID3V230Frame(const ID3V230Frame&) = delete; // handed on by reference
    ID3V230Frame& operator=(const ID3V230Frame&) = delete;

    // The number of the frame (ID3_FrameID); 0 for a frame that the library does not know.
    std::int16_t eType() const { return type_; }
    void eType(std::int16_t value);
    // The number of the frame in the tag that it was read from, from 1; 0 for a record made in memory.
    std::int32_t FrameHandle() const { return handle_; }
    void FrameHandle(std::int32_t value) { handle_ = value; }
    // The value: text, the year when it was set as a number (16 bits), the count of PCNT (32 bits), the picture of
    // APIC; nothing for frames without a value of these kinds. Double quotes of the file are apostrophes here. A value
    // for a frame that has no field for it is reported in a message box at the next save, and the frame stays.
    FrameVariant vValue() const;
    void vValue(FrameVariant value);
    // Place in the tag's collection, from 1.
    std::int32_t Position() const { return position_; }
    void Position(std::int32_t value) { position_ = value; }
    // The description of a comment, of lyrics, of a user text or address, of a picture and of an object; "" for other
    // frames. The next save fails when another one cannot be written, as in an encrypted frame or one without a value.
    std::string sDescription() const;
    void sDescription(std::string value);
    // Whether the frame is to be left out of the tag at the next save.
    bool Deleted() const { return deleted_; }
    void Deleted(bool value) { deleted_ = value; }
    // Whether the value was changed since the frame was read; true for a record made in memory.
    bool bChanged() const { return changed_; }
    void bChanged(bool value) { changed_ = value; }
    // Whether the record was made in memory.
    bool IsNew() const { return new_; }
    void IsNew(bool value) { new_ = value; }
    // The language of comments and lyrics, three letters; nothing for frames without one.
    Variant vLanguage() const;
    void vLanguage(Variant value);
    // The picture of APIC; nothing without one, or when it is no JPEG, PNG, GIF or BMP image.
    std::shared_ptr<corvane::Picture> Picture() const;
    // Nothing takes the picture out at the next save. What Picture() has returned changes nothing, also nothing for an
    // image of another kind: Delete() takes the frame out.
    void Picture(std::shared_ptr<corvane::Picture> value);
    // Whether an earlier record of the tag has the same frame number and description.
    bool bDupe() const { return dupe_; }
    void bDupe(bool value) { dupe_ = value; }

    // Marks the frame to be left out of the tag at the next save. The record stays in its collection.
    FrameVariant Delete();
    // The four letters of the frame, "????" for one that the library does not know; "" for a number of none.
    std::string FrameAbbr() const;
    // The frame's title in English; "" for a number of none.
    std::string FrameTitle() const;
    // Lists the fields of the frame with this number in the record's tag, in ascending order; none without such a
    // frame.
    void Load(std::int32_t FrameHandle);
    // The bytes of the picture, also when they are no image that the library knows.
    ByteArray PictureRAW() const;

private:
    friend struct Internals<ID3V230Frame>;
    struct Content;

    ID3V230Frame();
    explicit ID3V230Frame(std::unique_ptr<FrameSource> source);
    Content& content() const;
    Content& changed();
    void setPictureBytes(ByteArray bytes);

    std::int16_t type_ = 0;
    std::int32_t handle_ = 0;
    std::int32_t position_ = 0;
    bool deleted_ = false;
    bool changed_ = false;
    bool new_ = false;
    bool dupe_ = false;
    std::vector<ID3V230Field> fields_;
    std::unique_ptr<FrameSource> source_;      // nothing for a record made in memory
    mutable std::unique_ptr<Content> content_; // what the frame says, once somebody has asked
};

} // namespace corvane
