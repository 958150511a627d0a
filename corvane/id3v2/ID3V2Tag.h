// The ID3v2 tag at the start of a file, whatever its version. Made by FileHandler.
//
// Version and size come from the tag's header. The frames are read when a property first asks for them, and large
// payloads, such as pictures, when they are asked for themselves. A tag whose frames cannot be read gives empty values;
// LastError tells why. Different threads may use different tags.
#pragma once

#include "corvane/core/TagError.h"
#include "corvane/core/cError.h"
#include "corvane/id3v2/ID3V22Tag.h"
#include "corvane/id3v2/ID3V23Tag.h"
#include "corvane/id3v2/ID3V24Tag.h"
#include "corvane/id3v2/ID3V2Header.h"
#include "corvane/id3v2/ID3V2Version.h"
#include "corvane/platform/Export.h"
#include "corvane/platform/Internals.h"
#include "corvane/platform/Picture.h"
#include "corvane/platform/Variant.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace pugi {
class xml_node;
}

namespace corvane {

struct FileChange;
class XmlNode;

class CORVANE_EXPORT ID3V2Tag {
public:
    // An empty tag of version 2.0.0: every text "", nothing to save.
    ID3V2Tag();

    // The version that the header tells, such as 2.3.0.
    std::shared_ptr<ID3V2Version> Version() const;
    // Bytes of the tag with its 10 header bytes, as a 32-bit number; 0 without a tag.
    Variant Size() const;

    // The reader of that version; nothing when the tag has another one or cannot be read.
    std::shared_ptr<corvane::ID3V22Tag> ID3V22Tag();
    std::shared_ptr<corvane::ID3V23Tag> ID3V23Tag();
    std::shared_ptr<corvane::ID3V24Tag> ID3V24Tag();

    // The common properties, UTF-8. Reads forward to the reader of the tag's version. Writes forward to the ID3v2.3
    // reader and do nothing for other versions; they do not read the tag, so a write before the first read of an
    // ID3v2.3 tag fails with a RuntimeFailure (ObjectNotSet).
    std::string Artist();
    void Artist(std::string_view value);
    std::string Album();
    void Album(std::string_view value);
    std::string Title();
    void Title(std::string_view value);
    std::string Genre();
    void Genre(std::string_view value);
    std::string Track();
    void Track(std::string_view value);
    std::string Year(); // decimal; "" for ID3v2.4, which has no such frame
    void Year(std::string_view value);

    // A new view of the error record: the tag's own, or that of the reader that has refused to save.
    std::shared_ptr<TagError> LastError() const;

    // The tag as an XML document: version, size and the frames that the reader keeps. BaseNode, where given, is set to
    // the root element. Fails with a RuntimeFailure when a payload that was left in the file can no longer be read, or
    // inflates beyond the limit of the tag (setInflationLimit).
    std::string xml(XmlNode* BaseNode = nullptr);

    // Whether the tag can be changed; when it cannot, LastError says why.
    bool canSave();

    // ID3v2.3 and ID3v2.4 only, nothing and "" otherwise. Texts are UTF-8; writes are those of the common properties.
    std::shared_ptr<corvane::Picture> Picture();
    void Picture(const std::shared_ptr<corvane::Picture>& value);
    std::string LyricsUnsynced();
    void LyricsUnsynced(std::string_view value);
    std::string LyricsSynced();
    void LyricsSynced(std::string_view value);
    std::string UserURL();
    void UserURL(std::string_view value);
    std::string Comment();
    void Comment(std::string_view value);
    std::string Composer();
    void Composer(std::string_view value);
    std::string OriginalArtist();
    void OriginalArtist(std::string_view value);
    std::string Copyright();
    void Copyright(std::string_view value);
    std::string EncodedBy();
    void EncodedBy(std::string_view value);

    // Writes the changed tag into the file; false, with LastError, when it cannot, as ID3V23Tag::saveTag.
    bool saveTag();
    // Accepted and ignored.
    void SavingOptions(std::int32_t Options, std::int32_t SynchronizationOptions = 0);
    // ID3v2.3: as ID3V23Tag::splittedGenre. False for other versions, and the arguments stay as they are.
    bool splittedGenre(std::int16_t& GenreID, std::string& GenreDescription);

private:
    friend struct Internals<ID3V2Tag>;

    void setHeader(const std::string& fileName, const ID3V2Header& header);
    bool loadTag();
    bool parse();
    bool loadReader(FileReader& file);
    bool isLoaded() { return loaded_ || loadTag(); }
    bool hasKnownVersion() const;
    std::uint8_t majorVersion() const { return header_.Version[0]; }
    const TagFrames* frames() const;
    void follow(const FileChange& change) const;
    void appendXml(pugi::xml_node parent);

    template <class Body>
    bool load(Body&& body);
    template <class Result, class Visit>
    Result withReader(Result otherwise, Visit&& visit);
    template <class Read>
    std::string text(Read&& read);
    template <class Reader>
    void adoptRecordOf(const Reader& reader);
    corvane::ID3V23Tag& writable();

    std::shared_ptr<ID3V2Version> version_;
    std::shared_ptr<ErrorRecordPlace> errorPlace_; // views of it show what adoptRecordOf puts there
    std::shared_ptr<cError> error_;                // the record in that place
    std::string fileName_;
    ID3V2Header header_;
    std::int32_t size_ = 0; // bytes, with the header
    bool headerSet_ = false;
    bool loaded_ = false;
    std::shared_ptr<corvane::ID3V22Tag> reader22_; // at most one of the three
    std::shared_ptr<corvane::ID3V23Tag> reader23_;
    std::shared_ptr<corvane::ID3V24Tag> reader24_;
};

} // namespace corvane
