#include "corvane/xml/TreeBuilder.h"

namespace corvane {

namespace {

// "prefix:local", or "local", as the document has it.
std::string qualified(std::string_view name) {
    const std::size_t uriEnd = name.find(TreeBuilder::kSeparator);
    if (uriEnd == std::string_view::npos) return std::string(name);
    name.remove_prefix(uriEnd + 1);
    const std::size_t localEnd = name.find(TreeBuilder::kSeparator);
    if (localEnd == std::string_view::npos) return std::string(name);
    return std::string(name.substr(localEnd + 1)).append(1, ':').append(name.substr(0, localEnd));
}

bool isBlank(std::string_view text) { return text.find_first_not_of(" \t\r\n") == std::string_view::npos; }

} // namespace

void TreeBuilder::declare(std::string_view prefix, std::string_view uri) {
    declared_.emplace_back(prefix.empty() ? "xmlns" : std::string("xmlns:").append(prefix), uri);
}

void TreeBuilder::beginElement(std::string_view name, const char* const* attributes) {
    flushText(false);
    current_ = current_.append_child(qualified(name).c_str());
    for (const auto& [attribute, value] : declared_) {
        current_.append_attribute(attribute.c_str()).set_value(value.c_str());
    }
    declared_.clear();
    for (; *attributes != nullptr; attributes += 2) {
        current_.append_attribute(qualified(attributes[0]).c_str()).set_value(attributes[1]);
    }
}

void TreeBuilder::endElement() {
    flushText(!current_.first_child());
    current_ = current_.parent();
}

void TreeBuilder::endCdata() {
    current_.append_child(pugi::node_cdata).set_value(text_.c_str());
    text_.clear();
}

// Blanks are layout, unless they are all that an element holds.
void TreeBuilder::flushText(bool isOnly) {
    if (text_.empty()) return;
    if (isOnly || !isBlank(text_)) current_.append_child(pugi::node_pcdata).set_value(text_.c_str());
    text_.clear();
}

} // namespace corvane
