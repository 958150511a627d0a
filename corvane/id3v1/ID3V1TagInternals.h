// What the library does with an ID3v1 tag object beside its hosts.
#pragma once

#include "corvane/id3v1/ID3V1Tag.h"

#include <pugixml.hpp>

namespace corvane {

template <>
struct Internals<ID3V1Tag> {
    // Appends the tag's element to a document.
    static void appendXml(const ID3V1Tag& tag, pugi::xml_node parent) { tag.appendXml(parent); }
};

} // namespace corvane
