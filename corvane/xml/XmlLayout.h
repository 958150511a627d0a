// The one document layout of every `xml` method.
//
//   <?xml version = '1.0' encoding = 'iso-8859-1'?>   the encoding is a label: the text is UTF-8
//   <!--R-->
//   <R><Properties><Property Name="..." ID="..." Value="..."/>...</Properties></R>
//
// R is the name of the class. "ID" stands only where a numeric code belongs to the value. Bytes stand as base64 text of
// a child element "Value". Every text is made well-formed on the way in.
#pragma once

#include "corvane/platform/Bytes.h"
#include "corvane/xml/XmlNode.h"
#include "corvane/xml/XmlNodeInternals.h"

#include <pugixml.hpp>

#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace corvane {

// "1" or "0".
inline const char* xmlBoolean(bool value) { return value ? "1" : "0"; }

// A "Property" element in a new document of its own. With AsElement the value is a CDATA section in a child element
// "Value", else the attribute "Value".
XmlNode CreatePropertyNode(std::string_view Name, std::string_view Value, bool AsElement = false,
                           std::string_view ID = {});
// A "Property" element in a new document of its own that holds bytes.
XmlNode CreateBinaryPropertyNode(std::string_view Name, Bytes Data);
// The folder part of a path with its trailing separator, or "".
std::string FolderOfPath(std::string_view Path);

// The same elements, appended to a "Properties" element.
void appendProperty(pugi::xml_node properties, std::string_view name, std::string_view value, std::string_view id = {});
void appendBinaryProperty(pugi::xml_node properties, std::string_view name, Bytes data);

// Appends the element `name` with an empty "Properties" element, which is the result.
pugi::xml_node appendElementWithProperties(pugi::xml_node parent, const char* name);

// A document that holds the declaration and one comment so far.
std::shared_ptr<pugi::xml_document> newDocument(const char* comment);
// A document's text.
std::string documentText(const pugi::xml_document& document);

// What the `xml` method of class R does: a new document, filled by `append(parent)`, which appends the element R. The
// result is the document's text; `baseNode`, where there is one, is set to the element.
template <class Append>
std::string renderDocument(const char* root, XmlNode* baseNode, Append&& append) {
    const auto document = newDocument(root);
    std::forward<Append>(append)(static_cast<pugi::xml_node>(*document));
    if (baseNode != nullptr) *baseNode = Internals<XmlNode>::of(document, document->document_element());
    return documentText(*document);
}

} // namespace corvane
