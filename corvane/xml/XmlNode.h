// A node of an XML document, as hosts hand it in and get it out. It shares ownership of its document: the document
// lives as long as any node of it does.
#pragma once

#include "corvane/platform/Bytes.h"
#include "corvane/platform/Export.h"
#include "corvane/platform/Internals.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace pugi {
class xml_document;
struct xml_node_struct;
} // namespace pugi

namespace corvane {

class CORVANE_EXPORT XmlNode {
public:
    // Nothing: no node at all.
    XmlNode() = default;

    // The root element of a document given as UTF-8 text; what its declaration says of an encoding is only a label.
    // Entities that the document declares are expanded; nothing outside of it is read. Fails with a RuntimeFailure
    // (0x80040000) when the text is no well-formed document, when it needs an entity from outside, declares more than
    // 1000 entities, or makes far more text of them than it has itself.
    static XmlNode fromText(std::string_view text);
    // The root element of a document given as the bytes of a file, in the encoding that its byte-order mark or its
    // declaration names (UTF-8 without them), any that the system knows. Fails as fromText does, and with the same
    // number for an unknown encoding and for bytes that are no text in it.
    static XmlNode fromBytes(Bytes document);

    // Whether there is a node.
    explicit operator bool() const { return node_ != nullptr; }

    // The element's name without a namespace prefix; "" for nothing.
    std::string baseName() const;
    // The text of an attribute, or nothing when the element has none of that name.
    std::optional<std::string> attribute(const std::string& name) const;
    // The text directly inside the element.
    std::string text() const;
    // The first node that an XPath 1.0 expression selects from this node; nothing when it selects none, or an
    // attribute. Fails with a RuntimeFailure (0x80040000) when the text is no such expression.
    XmlNode selectSingleNode(const std::string& xpath) const;
    // The node as XML text, without a declaration.
    std::string xml() const;

private:
    friend struct Internals<XmlNode>;

    std::shared_ptr<const pugi::xml_document> document_;
    pugi::xml_node_struct* node_ = nullptr;
};

} // namespace corvane
