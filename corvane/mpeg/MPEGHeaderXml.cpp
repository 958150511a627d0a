#include "corvane/mpeg/MPEGHeader.h"
#include "corvane/xml/XmlLayout.h"

namespace corvane {

namespace {

constexpr const char* kRoot = "MPEGHeader";

// Appends "Property" elements, each value in the form that its type has in a document.
class Properties {
public:
    explicit Properties(pugi::xml_node properties) : properties_(properties) {}

    void add(const char* name, std::int32_t value) { appendProperty(properties_, name, std::to_string(value)); }
    void add(const char* name, bool value) { appendProperty(properties_, name, xmlBoolean(value)); }
    void add(const char* name, const std::string& value, std::int32_t id) {
        appendProperty(properties_, name, value, std::to_string(id));
    }

private:
    pugi::xml_node properties_;
};

} // namespace

std::string MPEGHeader::xml(XmlNode* BaseNode) const {
    return renderDocument(kRoot, BaseNode, [this](pugi::xml_node parent) { appendXml(parent); });
}

void MPEGHeader::appendXml(pugi::xml_node parent) const {
    Properties properties(appendElementWithProperties(parent, kRoot));
    properties.add("AudioSize", AudioSize());
    properties.add("BitRate", BitRate());
    properties.add("Copyright", Copyright());
    properties.add("CRC", CRC());
    properties.add("Duration", Duration());
    properties.add("Emphasis", Emphasis(), EmphasisID());
    properties.add("FileSize", FileSize());
    properties.add("FrameSize", FrameSize());
    properties.add("Frequency", Frequency());
    properties.add("Layer", Layer(), LayerID());
    properties.add("Mode", Mode(), ModeID());
    properties.add("NumFrames", NumFrames());
    properties.add("Original", Original());
    properties.add("PaddingBit", PaddingBit());
    properties.add("PrivateBit", PrivateBit());
    properties.add("ProtectionBit", ProtectionBit());
    properties.add("VBR", VBR());
    properties.add("Version", Version(), VersionID());
}

} // namespace corvane
