// How FileHandler fills an ID3V2Tag and reads it without detours.
#pragma once

#include "corvane/id3v2/ID3V2Tag.h"

#include <pugixml.hpp>

#include <string>

namespace corvane {

template <>
struct Internals<ID3V2Tag> {
    // Takes the header over: version and size are known, the frames will be read when they are asked for.
    static void setHeader(ID3V2Tag& tag, const std::string& fileName, const ID3V2Header& header) {
        tag.setHeader(fileName, header);
    }
    // Reads the frames now with the library's own parser, which is all that showing them takes; the tag cannot be
    // changed then.
    static bool parse(ID3V2Tag& tag) { return tag.parse(); }
    // Appends the element "ID3V2Tag" with its properties. Fails as ID3V2Tag::xml does.
    static void appendXml(ID3V2Tag& tag, pugi::xml_node parent) { tag.appendXml(parent); }
    // The frames of a parsed tag, nullptr before; they live as long as the tag.
    static const TagFrames* frames(const ID3V2Tag& tag) { return tag.frames(); }
    // The library has changed the tag's file itself, behind the tag.
    static void follow(const ID3V2Tag& tag, const FileChange& change) { tag.follow(change); }
};

} // namespace corvane
