// The numbers of id3lib's error table, under which hosts know why a tag was not changed.
#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace corvane {

enum class Id3libError : std::int32_t {
    None = 0,
    NoMemory = 1,
    BadData = 3,       // something stands there that is not understood, or a value that its frame cannot hold
    NoBuffer = 4,      // reading or writing failed, also of a temporary file
    SmallBuffer = 5,   // there is no room: the disk is full, or a limit is reached
    InvalidFrame = 6,  // there is no such frame
    FieldNotFound = 7, // the frame has no field for a value
    BadVersion = 10,   // a tag of another version
    NoFile = 11,       // none of that name, none that can hold a tag, or not the one that was read; no id3lib
    ReadOnly = 12
};

// What became of a change: None, or why nothing was changed.
struct TagChange {
    Id3libError error = Id3libError::None;
    std::string text;       // one line for the user; the system's own where it has one
    bool isDamaged = false; // the file is not what it was: the text tells how to repair it (see DamageFailure)
    // Number and source of the run-time failure that has ended the change; 0 where the library itself refuses.
    std::int32_t failureNumber = 0;
    std::string failureSource = {};

    explicit operator bool() const { return error == Id3libError::None; }
    std::int32_t number() const { return static_cast<std::int32_t>(error); }
};

// A failure of the file operations as one of changing a tag.
TagChange changeFailure(const std::exception& failure);

} // namespace corvane
