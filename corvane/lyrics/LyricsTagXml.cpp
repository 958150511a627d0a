// The Lyrics3 tag as an XML document, and back.
#include "corvane/lyrics/LyricsTag.h"
#include "corvane/lyrics/LyricsV200FieldInternals.h"
#include "corvane/platform/Numbers.h"
#include "corvane/platform/RuntimeFailure.h"
#include "corvane/xml/XmlImport.h"
#include "corvane/xml/XmlLayout.h"

#include <algorithm>
#include <array>

namespace corvane {

namespace {

constexpr const char* kRoot = "LyricsTag";
constexpr const char* kImport = "CreateFromTag"; // the source of import failures

// Fields whose property has a name of its own, in the order of their import.
struct NamedField {
    std::string_view id;
    const char* property;
};
constexpr std::array kNamedFields{NamedField{"EAL", "Album"}, NamedField{"EAR", "Artist"}, NamedField{"AUT", "Author"},
                                  NamedField{"ETT", "Title"}, NamedField{"LYR", "Lyrics"}};

std::string propertyName(const LyricsV200Field& field) {
    const auto named = std::ranges::find(kNamedFields, field.ID(), &NamedField::id);
    return named == kNamedFields.end() ? field.ID() : named->property;
}

// Every line feed becomes CR LF, also one that follows a CR already; hosts rely on that.
std::string withCrLf(std::string_view text) {
    std::string converted;
    converted.reserve(text.size());
    for (const char character : text) {
        if (character == '\n') converted += '\r';
        converted += character;
    }
    return converted;
}

} // namespace

std::string LyricsTag::xml(XmlNode* BaseNode) const {
    return renderDocument(kRoot, BaseNode, [this](pugi::xml_node parent) { appendXml(parent); });
}

void LyricsTag::appendXml(pugi::xml_node parent) const {
    const pugi::xml_node properties = appendElementWithProperties(parent, kRoot);
    appendProperty(properties, "Version", std::to_string(static_cast<std::int32_t>(version_)));
    for (const auto& field : fields_) appendProperty(properties, propertyName(*field), field->TextData());
}

bool LyricsTag::CreateFromTag(const XmlNode& theLyricsTag) {
    return recordFailures(*error_, false, [&] {
        version_ = ELyricsVersionConstants::lvcUnknown;
        if (theLyricsTag.baseName() != kRoot) {
            error_->record(kImport, "No valid LyricsTag-Node passed.");
            return false;
        }
        forget();
        importVersion(theLyricsTag);
        importFields(theLyricsTag);
        return true;
    });
}

void LyricsTag::importVersion(const XmlNode& node) {
    const auto text = findPropertyAttribute(node, "Version", "Value");
    if (!text) return;
    try {
        version_ = static_cast<ELyricsVersionConstants>(narrowed<std::int32_t>(wholeNumber(*text, kImport), kImport));
    } catch (const RuntimeFailure&) {
        // A document with a version that is no number is imported all the same: its fields are what matters.
    }
}

void LyricsTag::importFields(const XmlNode& node) {
    for (const auto& [id, property] : kNamedFields) {
        auto text = findPropertyAttribute(node, property, "Value");
        if (!text) continue;
        if (id == "LYR") *text = withCrLf(*text);
        fields_.add(Internals<LyricsV200Field>::of(id, 0, *std::move(text)));
    }
}

} // namespace corvane
