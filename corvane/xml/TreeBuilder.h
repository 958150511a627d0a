// Makes the document model out of what a parser finds, one call for each thing.
#pragma once

#include <pugixml.hpp>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvane {

class TreeBuilder {
public:
    // The separator of the parts of a name below; no document can hold it.
    static constexpr char kSeparator = '\x0C';

    // A namespace that the next element declares; the empty prefix is that of elements without one.
    void declare(std::string_view prefix, std::string_view uri);
    // Names are "local", "URI | local" or "URI | local | prefix" with kSeparator between the parts. Attributes are
    // names and values in turns up to a nullptr.
    void beginElement(std::string_view name, const char* const* attributes);
    void endElement();
    // Text comes in as many pieces as the parser likes.
    void text(std::string_view piece) { text_.append(piece); }
    void beginCdata() { flushText(false); }
    void endCdata();

    std::shared_ptr<pugi::xml_document> done() { return std::move(document_); }

private:
    void flushText(bool isOnly);

    std::shared_ptr<pugi::xml_document> document_ = std::make_shared<pugi::xml_document>();
    pugi::xml_node current_ = *document_;
    std::vector<std::pair<std::string, std::string>> declared_; // attributes of the next element
    std::string text_;
};

} // namespace corvane
