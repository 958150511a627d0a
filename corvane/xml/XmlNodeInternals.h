// How the library makes XML nodes and reaches the document model behind them.
#pragma once

#include "corvane/xml/XmlNode.h"

#include <pugixml.hpp>

#include <memory>
#include <string>

namespace corvane {

template <>
struct Internals<XmlNode> {
    static XmlNode of(std::shared_ptr<const pugi::xml_document> document, pugi::xml_node node) {
        XmlNode made;
        made.document_ = std::move(document);
        made.node_ = node.internal_object();
        return made;
    }
    static pugi::xml_node node(const XmlNode& node) { return pugi::xml_node(node.node_); }
};

// Collects what the document model writes.
struct StringWriter final : pugi::xml_writer {
    void write(const void* data, std::size_t size) override { text.append(static_cast<const char*>(data), size); }
    std::string text;
};

} // namespace corvane
