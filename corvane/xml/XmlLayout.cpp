#include "corvane/xml/XmlLayout.h"

#include "corvane/xml/XmlText.h"

namespace corvane {

namespace {

constexpr const char* kProperty = "Property";
constexpr const char* kValue = "Value";

pugi::xml_node appendNamed(pugi::xml_node parent, std::string_view name) {
    pugi::xml_node property = parent.append_child(kProperty);
    property.append_attribute("Name").set_value(xmlCharacters(name).c_str());
    return property;
}

void fill(pugi::xml_node property, std::string_view value, bool asElement, std::string_view id) {
    if (!id.empty()) property.append_attribute("ID").set_value(xmlCharacters(id).c_str());
    const std::string text = xmlCharacters(value);
    if (asElement) {
        property.append_child(kValue).append_child(pugi::node_cdata).set_value(text.c_str());
    } else {
        property.append_attribute(kValue).set_value(text.c_str());
    }
}

XmlNode propertyOf(std::shared_ptr<pugi::xml_document> document) {
    const pugi::xml_node property = document->document_element();
    return Internals<XmlNode>::of(std::move(document), property);
}

} // namespace

XmlNode CreatePropertyNode(std::string_view Name, std::string_view Value, bool AsElement, std::string_view ID) {
    auto document = std::make_shared<pugi::xml_document>();
    fill(appendNamed(*document, Name), Value, AsElement, ID);
    return propertyOf(std::move(document));
}

XmlNode CreateBinaryPropertyNode(std::string_view Name, Bytes Data) {
    auto document = std::make_shared<pugi::xml_document>();
    appendBinaryProperty(*document, Name, Data);
    return propertyOf(std::move(document));
}

std::string FolderOfPath(std::string_view Path) { return std::string(Path.substr(0, Path.rfind('/') + 1)); }

void appendProperty(pugi::xml_node properties, std::string_view name, std::string_view value, std::string_view id) {
    fill(appendNamed(properties, name), value, false, id);
}

void appendBinaryProperty(pugi::xml_node properties, std::string_view name, Bytes data) {
    pugi::xml_node value = appendNamed(properties, name).append_child(kValue);
    if (!data.empty()) value.text().set(base64(data).c_str());
}

pugi::xml_node appendElementWithProperties(pugi::xml_node parent, const char* name) {
    return parent.append_child(name).append_child("Properties");
}

std::shared_ptr<pugi::xml_document> newDocument(const char* comment) {
    auto document = std::make_shared<pugi::xml_document>();
    pugi::xml_node declaration = document->append_child(pugi::node_pi);
    declaration.set_name("xml");
    declaration.set_value("version = '1.0' encoding = 'iso-8859-1'");
    document->append_child(pugi::node_comment).set_value(comment);
    return document;
}

std::string documentText(const pugi::xml_document& document) {
    StringWriter writer;
    document.save(writer, "", pugi::format_raw | pugi::format_no_declaration, pugi::encoding_utf8);
    return std::move(writer.text);
}

} // namespace corvane
