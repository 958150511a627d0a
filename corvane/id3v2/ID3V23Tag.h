// An ID3v2.3 tag. Made by ID3V2Tag.
//
// Where id3lib is installed the tag can be changed: the properties are views of one ID3V230, the frames of its records,
// and saveTag writes them. Where it is not, the tag is read by the library's own parser, which is stricter: property
// writes then do nothing, and saving and removing are refused.
#pragma once

#include "corvane/core/TagError.h"
#include "corvane/core/cError.h"
#include "corvane/id3v2/ID3V23Frame.h"
#include "corvane/platform/Export.h"
#include "corvane/platform/Internals.h"
#include "corvane/platform/Picture.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace corvane {

class FileReader;
class ID3V230;
class RecordIndex;
class TagFrames;
struct ID3V2Header;

class CORVANE_EXPORT ID3V23Tag {
public:
    // A tag without frames.
    ID3V23Tag();

    // Every frame ID in file order, each followed by ";". A second frame of the same ID is listed too.
    std::string FrameList() const;
    // Number of frames in the collection: of all records, or of a parsed tag the first frame of each ID.
    std::int32_t FrameCount() const;
    // The frame kept under that ID, or nothing. Each call gives a new view of the same frame.
    std::shared_ptr<ID3V23Frame> GetFrameByID(std::string_view FrameID) const;
    // The frame at that place of the collection (from 1), or nothing.
    std::shared_ptr<ID3V23Frame> GetFrameByIndex(std::int32_t Index) const;
    // The text of the first frame of that ID; "" without one, or when it can no longer be read (see LastError).
    std::string GetText(std::string_view FrameID) const;

    // The text of the frame named here, UTF-8; "" without one, or when it can no longer be read (see LastError). Writes
    // change the tag in memory, "" takes the frame out; they do nothing where the tag cannot be changed.
    std::string Artist() const; // TPE1
    void Artist(std::string_view value);
    std::string Album() const; // TALB
    void Album(std::string_view value);
    std::string Title() const; // TIT2
    void Title(std::string_view value);
    std::string GenreID() const; // the text between "(" and ")" at the start of TCON, else all of it
    std::string Genre() const;   // TCON; of a parsed tag the text behind such a part, if there is one
    void Genre(std::string_view value);
    // Splits TCON, "(17)Rock", into 17 and "Rock"; what the text does not have stays as it is. Always true. Of a parsed
    // tag only a description behind "(...)" is set and never the number: odd on purpose, that is to be had from
    // GenreID().
    bool splittedGenre(std::int16_t& GenreID, std::string& GenreDescription) const;
    // TRCK, such as "3/12"; read and written as the texts above.
    std::string Track() const;
    void Track(std::string_view value);
    // TYER, a year in decimal; of a tag that can be changed the number in it, "0" without one.
    std::string Year() const;
    // Fails with a RuntimeFailure when the text is no number (TypeMismatch) or one outside 16 bits (Overflow).
    void Year(std::string_view value);

    // Takes the tag out of the file, which is not touched otherwise. The values stay, large ones too (see ID3V230), so
    // that saveTag writes the tag again. False, with LastError, when that is not possible; the file is then what it
    // was.
    bool removeTag();
    // Whether tags of this version can be changed; when they cannot, LastError says why.
    bool canSave();
    // Writes the tag into the file. False when that is not possible; the file is then exactly what it was. So it is
    // when the tag could not be read before, when another program has changed the file, and when a second tag has come
    // to light since (see ID3V230). LastError reads "Unable to save the ID3v23 tag." in either case: odd on purpose,
    // hosts go by the result.
    bool saveTag();

    // The picture of APIC; nothing without one, or when it is no JPEG, PNG, GIF or BMP image or can no longer be read.
    // Of a tag that can be changed: that of the APIC frame without a description.
    std::shared_ptr<corvane::Picture> Picture() const;
    void Picture(const std::shared_ptr<corvane::Picture>& value);
    // UTF-8; "" without the frame. Writes are those of the texts above.
    std::string LyricsUnsynced() const; // USLT
    void LyricsUnsynced(std::string_view value);
    std::string LyricsSynced() const; // SYLT, a line "[mm:ss.f] text" each of a tag that can be changed
    void LyricsSynced(std::string_view value);
    // WXXX. "" for a parsed tag: odd on purpose, the address is in the frame's removeHeader.
    std::string UserURL() const;
    void UserURL(std::string_view value);
    // UTF-8; "" without the frame. Writes are those of the texts above.
    std::string Comment() const; // COMM
    void Comment(std::string_view value);
    std::string Composer() const; // TCOM
    void Composer(std::string_view value);
    std::string OriginalArtist() const; // TOPE
    void OriginalArtist(std::string_view value);
    std::string Copyright() const; // TCOP
    void Copyright(std::string_view value);
    std::string EncodedBy() const; // TENC
    void EncodedBy(std::string_view value);

    // A new view of the object's error record.
    std::shared_ptr<TagError> LastError() const;

private:
    friend struct Internals<ID3V23Tag>;
    bool loadFromFile(FileReader& file, const std::string& fileName, std::int64_t fileLength,
                      std::int64_t startPosition, const ID3V2Header& header);
    std::shared_ptr<cError> getErrorRecord() const { return error_; }
    bool loadWithId3lib(const std::string& fileName, const ID3V2Header& header);
    void refuseSaving(bool refused) { savingRefused_ = refused; }

    using ReadText = std::string (ID3V230::*)() const;
    using WriteText = void (ID3V230::*)(std::string_view);
    std::string text(ReadText property, std::string_view frameId) const;
    void setText(WriteText property, std::string_view value);
    std::shared_ptr<ID3V23Frame> frameNamed(std::string_view frameId) const;
    std::string frameList() const;

    std::shared_ptr<const TagFrames> frames_; // of a parsed tag
    std::shared_ptr<ID3V230> changeable_;     // nothing for a parsed tag
    std::shared_ptr<RecordIndex> records_;    // of a tag that can be changed
    std::shared_ptr<cError> error_;
    bool savingRefused_ = false;
};

} // namespace corvane
