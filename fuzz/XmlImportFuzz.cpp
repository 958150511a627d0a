// Any text, imported as a document, fills a tag or ends with a RuntimeFailure; nothing else escapes. What an imported
// tag writes reads back the same. The input is taken as a whole document, and as the values of a document that has
// every property, one line each.
#include "corvane/id3v1/ID3V1Tag.h"
#include "corvane/lyrics/LyricsTag.h"
#include "corvane/platform/RuntimeFailure.h"
#include "corvane/xml/XmlLayout.h"

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

namespace {

using namespace corvane;

void require(bool holds) {
    if (!holds) std::abort();
}

void importId3v1(const XmlNode& node) {
    ID3V1Tag tag;
    try {
        tag.Tag(node);
    } catch (const RuntimeFailure&) {
        return;
    }
    const std::string written = tag.xml();
    ID3V1Tag again;
    again.Tag(XmlNode::fromText(written));
    require(again.xml() == written && again.TagType() == tag.TagType());
}

void importLyrics(const XmlNode& node) {
    LyricsTag tag;
    const bool imported = tag.CreateFromTag(node);
    require(imported == (node.baseName() == "LyricsTag"));
    LyricsTag again;
    require(again.CreateFromTag(XmlNode::fromText(tag.xml())));
    require(again.Version() == tag.Version() && again.FieldCount() == tag.FieldCount());
}

std::string_view takeLine(std::string_view& rest) {
    const std::string_view line = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(line.size() == rest.size() ? line.size() : line.size() + 1);
    return line;
}

XmlNode documentOf(const char* root, std::string_view lines) {
    const auto document = std::make_shared<pugi::xml_document>();
    const pugi::xml_node properties = appendElementWithProperties(*document, root);
    for (const char* name : {"Genre", "Track", "Version", "Lyrics", "Title", "Artist", "Album", "Year", "Comment"}) {
        const std::string_view line = takeLine(lines);
        appendProperty(properties, name, line, line);
    }
    return Internals<XmlNode>::of(document, document->document_element());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    importId3v1(documentOf("ID3V1Tag", text));
    importLyrics(documentOf("LyricsTag", text));
    try {
        const XmlNode root = XmlNode::fromText(text);
        importId3v1(root);
        importLyrics(root);
    } catch (const RuntimeFailure&) {
        // no document
    }
    return 0;
}
