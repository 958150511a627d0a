// An ID3v2.4 tag as read by the library's own parser. Read only; made by ID3V2Tag.
#pragma once

#include "corvane/core/TagError.h"
#include "corvane/core/cError.h"
#include "corvane/id3v2/ID3V24Frame.h"
#include "corvane/platform/Export.h"
#include "corvane/platform/Internals.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace corvane {

class FileReader;
class TagFrames;
struct ID3V2Header;

class CORVANE_EXPORT ID3V24Tag {
public:
    // A tag without frames.
    ID3V24Tag();

    // Every frame ID in file order, each followed by ";". A second frame of the same ID is listed too.
    std::string FrameList() const;
    // Number of frames in the collection, which keeps the first frame of each ID.
    std::int32_t FrameCount() const;
    // The frame kept under that ID, or nothing. Each call gives a new view of the same frame.
    std::shared_ptr<ID3V24Frame> GetFrameByID(std::string_view FrameID) const;
    // The frame at that place of the collection (from 1), or nothing.
    std::shared_ptr<ID3V24Frame> GetFrameByIndex(std::int32_t Index) const;
    // The text of the frame kept under that ID; "" without one, or when it can no longer be read (see LastError).
    std::string GetText(std::string_view FrameID) const;

    // The text of the frame named here, UTF-8; "" without one, or when it can no longer be read (see LastError).
    std::string Artist() const;  // TPE1
    std::string Album() const;   // TALB
    std::string Title() const;   // TIT2
    std::string GenreID() const; // the text between "(" and ")" at the start of TCON, else all of it
    std::string Genre() const;   // the text of TCON behind such a part, else all of it
    std::string Track() const;   // TRCK

    // Tags of this version are read only: always false, and LastError says so.
    bool removeTag();
    bool canSave();
    bool saveTag();

    // A new view of the object's error record.
    std::shared_ptr<TagError> LastError() const;

private:
    friend struct Internals<ID3V24Tag>;
    bool loadFromFile(FileReader& file, const std::string& fileName, std::int64_t fileLength,
                      std::int64_t startPosition, const ID3V2Header& header);
    std::shared_ptr<cError> getErrorRecord() const { return error_; }

    std::shared_ptr<const TagFrames> frames_;
    std::shared_ptr<cError> error_;
};

} // namespace corvane
