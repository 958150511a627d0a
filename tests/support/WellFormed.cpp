#include "tests/support/WellFormed.h"

#include <libxml/c14n.h>
#include <libxml/parser.h>
#include <libxml/xmlerror.h>

#include <memory>

namespace corvane::test {

namespace {

struct FreeDocument {
    void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
};
using Document = std::unique_ptr<xmlDoc, FreeDocument>;

Document parse(std::string_view document, const char* encoding) {
    constexpr int kOptions = XML_PARSE_NONET | XML_PARSE_HUGE | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;
    return Document(
        xmlReadMemory(document.data(), static_cast<int>(document.size()), "document.xml", encoding, kOptions));
}

} // namespace

std::string faultOfDocument(std::string_view document, const char* encoding) {
    if (parse(document, encoding)) return {};
    const auto* error = xmlGetLastError();
    return error != nullptr && error->message != nullptr ? error->message : "not a document";
}

std::string canonicalDocument(std::string_view document, const char* encoding) {
    const Document parsed = parse(document, encoding);
    if (!parsed) return {};
    xmlChar* text = nullptr;
    const int size = xmlC14NDocDumpMemory(parsed.get(), nullptr, XML_C14N_1_0, nullptr, 1, &text);
    const std::unique_ptr<xmlChar, void (*)(xmlChar*)> owner(text, [](xmlChar* memory) { xmlFree(memory); });
    return size > 0 ? std::string(reinterpret_cast<const char*>(text), static_cast<std::size_t>(size)) : std::string();
}

} // namespace corvane::test
