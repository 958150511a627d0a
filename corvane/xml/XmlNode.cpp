#include "corvane/xml/XmlNode.h"

#include "corvane/platform/RuntimeFailure.h"
#include "corvane/xml/XmlNodeInternals.h"
#include "corvane/xml/XmlParser.h"

#include <cstring>

namespace corvane {

namespace {

XmlNode rootOf(std::shared_ptr<pugi::xml_document> document) {
    const pugi::xml_node root = document->document_element();
    return Internals<XmlNode>::of(std::move(document), root);
}

} // namespace

XmlNode XmlNode::fromText(std::string_view text) { return rootOf(parsedText(text)); }

XmlNode XmlNode::fromBytes(Bytes document) { return rootOf(parsedFile(document)); }

std::string XmlNode::baseName() const {
    const char* name = pugi::xml_node(node_).name();
    const char* colon = std::strrchr(name, ':');
    return colon == nullptr ? name : colon + 1;
}

std::optional<std::string> XmlNode::attribute(const std::string& name) const {
    const pugi::xml_attribute found = pugi::xml_node(node_).attribute(name.c_str());
    return found ? std::optional<std::string>(found.value()) : std::nullopt;
}

std::string XmlNode::text() const { return pugi::xml_node(node_).text().get(); }

XmlNode XmlNode::selectSingleNode(const std::string& xpath) const {
    try {
        const pugi::xml_node found = pugi::xml_node(node_).select_node(xpath.c_str()).node();
        return found ? Internals<XmlNode>::of(document_, found) : XmlNode();
    } catch (const pugi::xpath_exception& failure) {
        throw RuntimeFailure(FailureNumber::ObjectDefined, "XML", failure.what());
    }
}

std::string XmlNode::xml() const {
    StringWriter writer;
    pugi::xml_node(node_).print(writer, "", pugi::format_raw);
    return std::move(writer.text);
}

} // namespace corvane
