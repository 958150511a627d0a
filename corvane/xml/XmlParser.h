// From the text of a document to its document model.
//
// A conforming parser decides what is a document (XML 1.0 and Namespaces in XML 1.0), so that a damaged one is refused
// instead of guessed at. Entities that a document declares itself are expanded, up to a bound; nothing outside of the
// document is ever read, and a document that needs something from there is refused.
#pragma once

#include "corvane/platform/Bytes.h"

#include <pugixml.hpp>

#include <memory>
#include <string_view>

namespace corvane {

// A document given as UTF-8 text, whatever its declaration says of an encoding. Comments, processing instructions and
// blanks between elements are left out. Fails with a RuntimeFailure (0x80040000), which names the line, when it is not
// well-formed.
std::shared_ptr<pugi::xml_document> parsedText(std::string_view text);

// A document given as the bytes of a file. Fails as parsedText does, and as utf8Document does.
std::shared_ptr<pugi::xml_document> parsedFile(Bytes document);

} // namespace corvane
