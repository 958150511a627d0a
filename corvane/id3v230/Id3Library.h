// id3lib, the library that makes ID3v2.3 frames.
//
// It is looked for when it is first needed and not linked: a program that only reads tags neither needs it nor pays for
// loading it, and on a system without it everything but changing ID3v2.3 tags works. What the first look has found
// counts until the process ends, so that a tag can be saved at the end when it could be at the beginning: a host that
// installs the library is to be started again.
#pragma once

#include "corvane/platform/Bytes.h"

#include <cstdint>
#include <string>

namespace corvane {

class Id3Library {
public:
    // The library; nullptr when it cannot be loaded or lacks a function. May be called from any thread.
    static const Id3Library* loaded();

    // Objects of id3lib.
    class Tag;
    class Frame;
    class Field;

    Tag* newTag() const;
    void deleteTag(Tag* tag) const;
    // Puts a tag over a file. What the file holds becomes part of the tag: only ever a new, empty file of our own.
    void link(Tag* tag, const std::string& path) const;
    // Takes the frame over.
    void attachFrame(Tag* tag, Frame* frame) const;
    // Writes the ID3v2 tag into the linked file. Tells nothing: whether it worked, only the file can say.
    void update(Tag* tag) const;
    void clear(Tag* tag) const;

    // frame: a number of id3lib's own (Id3FrameNumbers.h); any other brings the process down.
    Frame* newFrame(std::int32_t frame) const;
    void deleteFrame(Frame* frame) const;
    // nullptr when the frame has no such field. The numbers of fields are the same in id3lib.
    Field* field(Frame* frame, std::int32_t field) const;

    void setNumber(Field* field, std::uint32_t number) const;
    // One byte a character, up to the first 0.
    void setText(Field* field, const std::string& text) const;
    // Makes the field one of UTF-16 and sets it, up to the first 0. The frame must be told by its encoding field.
    void setUtf16(Field* field, const std::u16string& text) const;
    // Must not be empty: id3lib would keep what the field holds.
    void setBytes(Field* field, Bytes bytes) const;

private:
    struct Functions;

    explicit Id3Library(const Functions* functions) : functions_(functions) {}

    const Functions* functions_;
};

// The name under which the loader looks for id3lib.
inline constexpr const char* kId3LibraryFile = "libid3-3.8.so.3";

// Whether id3lib is there, and what to tell a user when it is not.
struct Id3LibraryCheck {
    bool present = false;
    std::string message; // "" when it is present
};
Id3LibraryCheck checkId3Library();

} // namespace corvane
