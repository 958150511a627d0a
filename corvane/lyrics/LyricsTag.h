// The Lyrics3 tag of a file, version 1.00 or 2.00. FileHandler loads it; it can also be filled from XML. It is not
// written.
//
// Different threads may use different objects; one object belongs to one thread at a time.
#pragma once

#include "corvane/core/TagError.h"
#include "corvane/lyrics/ELyricsVersionConstants.h"
#include "corvane/lyrics/LyricsFields.h"
#include "corvane/lyrics/LyricsV200Field.h"
#include "corvane/platform/Bytes.h"
#include "corvane/platform/Export.h"
#include "corvane/platform/Internals.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace pugi {
class xml_node;
}

namespace corvane {

class FileReader;
class XmlNode;

class CORVANE_EXPORT LyricsTag {
public:
    // No tag: version unknown, no fields.
    LyricsTag();
    ~LyricsTag();
    LyricsTag(const LyricsTag&) = delete; // handed on by reference
    LyricsTag& operator=(const LyricsTag&) = delete;

    // The version found; lvcUnknown without a tag. An imported tag has the number that its document tells.
    ELyricsVersionConstants Version() const { return version_; }
    // Bytes of the tag's body: what a v2.00 tag tells, always 5100 in v1.00; 0 without a tag and after an import.
    std::int32_t Size() const { return size_; }
    // The lyrics: in v1.00 the 5100 bytes that end 15 bytes before the end of the tag, as text; else the text of the
    // field "LYR", or "".
    std::string Lyrics() const;

    // The fields, in the order of the tag; v1.00 has none.
    std::int32_t FieldCount() const;
    // The field of an ID (upper and lower case differ), or nothing.
    std::shared_ptr<LyricsV200Field> getFieldByID(std::string_view FieldID) const;
    // The field at a position from 1 to FieldCount, or nothing.
    std::shared_ptr<LyricsV200Field> getFieldByIndex(std::int32_t Index) const;

    // The text of the field named here, UTF-8; "" without it.
    std::string Author() const { return textOf("AUT"); } // "AUT"
    std::string Album() const { return textOf("EAL"); }  // "EAL"
    std::string Artist() const { return textOf("EAR"); } // "EAR"
    std::string Title() const { return textOf("ETT"); }  // "ETT"

    // A new view of the object's error record.
    std::shared_ptr<TagError> LastError() const { return viewOf(error_); }

    // The version and the fields as an XML document, UTF-8. BaseNode, where given, is set to its element "LyricsTag".
    std::string xml(XmlNode* BaseNode = nullptr) const;

    // Fills the tag from such an element: version and fields "EAL", "EAR", "AUT", "ETT" and "LYR", in this order, as
    // far as the document has them; a version that is missing or no number is unknown. Line feeds in the lyrics become
    // CR LF. False, with LastError, for an element of another name: the version is unknown then and the fields stay.
    bool CreateFromTag(const XmlNode& theLyricsTag);

private:
    friend struct Internals<LyricsTag>;
    void Load(const std::string& FileName, bool HasID3v1);
    void Load(FileReader& file, bool HasID3v1);
    void appendXml(pugi::xml_node parent) const;

    void forget();
    void split(Bytes body);
    void importVersion(const XmlNode& node);
    void importFields(const XmlNode& node);
    std::string textOf(std::string_view id) const;

    std::shared_ptr<cError> error_ = std::make_shared<cError>();
    std::string fileName_;
    bool hasId3v1Tag_ = false;
    ELyricsVersionConstants version_ = ELyricsVersionConstants::lvcUnknown;
    std::int32_t size_ = 0;
    std::string bodyText_; // of a v1.00 tag
    LyricsFields fields_;
};

} // namespace corvane
