// The frames of an ID3v2 tag as TagLib reads them.
#pragma once

#include <nlohmann/json.hpp>
#include <taglib/id3v2tag.h>

// One object a frame, with "id", and "text", "description", "language", "data" (hexadecimal) and others where the frame
// has them.
nlohmann::ordered_json framesOf(const TagLib::ID3v2::Tag& tag);

// Gives the tag one frame of each kind that people's programs write, all texts the same.
void addFrames(TagLib::ID3v2::Tag& tag, const TagLib::String& text, const TagLib::ByteVector& picture);
