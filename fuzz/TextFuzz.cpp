// Any bytes, taken as text, make a well-formed XML document from which the same text is read back; and every byte
// survives the code page.
#include "corvane/platform/CodePage.h"
#include "corvane/xml/XmlLayout.h"
#include "corvane/xml/XmlText.h"

#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace corvane;
    const Bytes bytes{data, size};
    const std::string text(bytes.begin(), bytes.end());

    for (const bool asElement : {false, true}) {
        const std::string property = CreatePropertyNode("Title", text, asElement).xml();
        const XmlNode read = XmlNode::fromText(property);
        if (asElement) continue;
        if (read.attribute("Value") != xmlCharacters(text)) std::abort();
        const std::string encoded = latin1Document(property);
        const std::string declaration = "<?xml version='1.0' encoding='iso-8859-1'?>" + encoded;
        const Bytes document{reinterpret_cast<const std::uint8_t*>(declaration.data()), declaration.size()};
        if (XmlNode::fromBytes(document).attribute("Value") != xmlCharacters(text)) std::abort();
    }

    const CodePageText encoded = encodeCodePage(decodeCodePage(bytes));
    if (encoded.replacedCount != 0 || encoded.bytes != ByteArray(bytes.begin(), bytes.end())) std::abort();
    return 0;
}
