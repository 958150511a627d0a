// An ID3v2.3 tag as read by the library's own parser. Made by ID3V2Tag.
//
// A tag that was parsed cannot be changed: property writes do nothing, and saving and removing are refused.
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
class TagFrames;
struct ID3V2Header;

class CORVANE_EXPORT ID3V23Tag {
public:
    ID3V23Tag();

    // Every frame ID in file order, each followed by ";". A second frame of the same ID is listed too.
    std::string FrameList() const;
    // Number of frames in the collection, which keeps the first frame of each ID.
    std::int32_t FrameCount() const;
    // The frame kept under that ID, or nothing. Each call gives a new view of the same frame.
    std::shared_ptr<ID3V23Frame> GetFrameByID(std::string_view FrameID) const;
    // The frame at that place of the collection (from 1), or nothing.
    std::shared_ptr<ID3V23Frame> GetFrameByIndex(std::int32_t Index) const;
    // The text of the frame kept under that ID; "" without one, or when it can no longer be read (see LastError).
    std::string GetText(std::string_view FrameID) const;

    std::string Artist() const; // TPE1
    void Artist(std::string_view value);
    std::string Album() const; // TALB
    void Album(std::string_view value);
    std::string Title() const; // TIT2
    void Title(std::string_view value);
    std::string GenreID() const; // the text between "(" and ")" at the start of TCON, else all of it
    std::string Genre() const;   // the text of TCON behind such a part, else all of it
    void Genre(std::string_view value);
    // Sets GenreDescription to the text behind the leading "(...)" of TCON and leaves it as it is when there is none.
    // Always true, and GenreID is never set: odd on purpose, the number is to be had from GenreID().
    bool splittedGenre(std::int16_t& GenreID, std::string& GenreDescription) const;
    std::string Track() const; // TRCK
    void Track(std::string_view value);
    std::string Year() const; // TYER
    void Year(std::string_view value);

    // Refused, see LastError.
    bool removeTag();
    // Whether this tag can be changed; when it cannot, LastError says why.
    bool canSave();
    bool saveTag();

    // The picture of APIC; nothing without one, or when it is no JPEG, PNG, GIF or BMP image or can no longer be read.
    std::shared_ptr<corvane::Picture> Picture() const;
    void Picture(const std::shared_ptr<corvane::Picture>& value);
    std::string LyricsUnsynced() const; // USLT
    void LyricsUnsynced(std::string_view value);
    std::string LyricsSynced() const; // SYLT
    void LyricsSynced(std::string_view value);
    // WXXX. Its frame object gives no text, so this is "": odd on purpose, the address is in the frame's removeHeader.
    std::string UserURL() const;
    void UserURL(std::string_view value);
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

    std::shared_ptr<TagError> LastError() const;

private:
    friend struct Internals<ID3V23Tag>;
    bool loadFromFile(FileReader& file, const std::string& fileName, std::int64_t fileLength,
                      std::int64_t startPosition, const ID3V2Header& header);
    std::shared_ptr<cError> getErrorRecord() const { return error_; }
    void refuseSaving(bool refused) { savingRefused_ = refused; }

    std::shared_ptr<const TagFrames> frames_;
    std::shared_ptr<cError> error_;
    bool savingRefused_ = false;
};

} // namespace corvane
