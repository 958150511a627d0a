// One MP3 file: the entry point of the library.
//
// Create opens the file once, refuses archives, and reads the ID3v2 header, the first MPEG audio frame and the ID3v1
// record. ID3v2 frames and the Lyrics3 tag are read when they are first asked for. No operation leaves the file open,
// and none lets a failure escape (but xml, see there): an operation returns its failure value and LastError tells why.
//
// Different threads may use different FileHandler objects; one object belongs to one thread at a time.
#pragma once

#include "corvane/core/TagError.h"
#include "corvane/id3v1/EID3TagConstants.h"
#include "corvane/platform/Export.h"
#include "corvane/platform/Internals.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

namespace corvane {

class Drive;
class File;
class FileReader;
struct FileChange;
struct FileStart;
class ID3V1Tag;
class ID3V230;
class ID3V2Tag;
class LyricsTag;
class MPEGHeader;

class CORVANE_EXPORT FileHandler {
public:
    // An object without a file: all its tags are empty.
    FileHandler();
    ~FileHandler();
    FileHandler(const FileHandler&) = delete;
    FileHandler& operator=(const FileHandler&) = delete;

    // Opens and analyses a file, whose name may be any bytes. A relative one is seen from the folder that is current
    // now, for all operations to come. False, with LastError, when it cannot be read or is a ZIP
    // archive. A file without an MPEG frame header is no failure: LastError tells of it (source "LoadHeaderEx"), unless
    // the file has no ID3v1 record either, of which it tells then. Meant to be called once per object.
    bool Create(const std::string& FileName);

    // Always ID3Unknown: the record is read by Create. Only a file that does not exist is recorded.
    EID3TagConstants readTag();
    // Writes ID3v1xTag as the last 128 bytes of the file: over the record that is there, else behind the last byte. A
    // failure leaves the file as it was; a Track outside 0 to 255 is one.
    bool writeID3v1xTag();
    // Cuts the last 128 bytes, an ID3v1 record, off the file, by a safe replacement. The tag objects stay as they are.
    // Of a file that cannot be read the system's failure is recorded, and not that it has no record.
    bool removeID3V1xTag();
    // Whether the file, as it is now, is longer than 128 bytes and its last 128 begin with "TAG".
    bool HasTag() const;

    // The ID3v1 tag that Create has read; an empty one when there is none.
    std::shared_ptr<ID3V1Tag> ID3v1xTag() const { return id3v1Tag_; }
    // Replaces the object, by reference.
    void ID3v1xTag(std::shared_ptr<ID3V1Tag> tag) { id3v1Tag_ = std::move(tag); }
    // The ID3v2 tag at the start of the file, an empty one without it. Its frames are read when they are asked for.
    std::shared_ptr<corvane::ID3V2Tag> ID3V2Tag() const { return id3v2Tag_; }
    // The Lyrics3 tag as it stands: HasLyricsTag and xml load it.
    std::shared_ptr<corvane::LyricsTag> LyricsTag() const;
    // The technical data of the first audio frame; those of an all-zero frame when none was found.
    std::shared_ptr<corvane::MPEGHeader> MPEGHeader() const { return mpegHeader_; }

    // Whether the file has a Lyrics3 tag; loads it when that has not been done.
    bool HasLyricsTag();
    // Whether Create has found a valid ID3v2 header.
    bool HasID3V2Tag() const { return hasId3v2Tag_; }
    // Whether the ID3v1 tag object has a known tag type.
    bool HasID3V1Tag() const;

    // The name that was given to Create.
    std::string FileName() const { return fileName_; }
    // 0 unknown, 1 MP3, 2 ZIP, 3 RAR.
    std::int16_t FileType() const { return fileType_; }
    // "MP3", "ZIP", "RAR" or "Unknown".
    std::string FileTypeName() const;
    // Size of the file in bytes, as the MPEG header object knows it: 0 for one of 2 GB (2^31 bytes) or more.
    std::int32_t Size() const;
    // The folder of the file without a drive name and the first separator: "music/rock/" for "/music/rock/a.mp3".
    std::string Path() const;
    // The mount that holds the file, or nothing when it cannot be found out.
    std::shared_ptr<corvane::Drive> Drive() const;
    // The file's entry in the file system; nothing, with LastError, when there is no such file. A folder or a device is
    // none.
    std::shared_ptr<corvane::File> File() const;

    // A new view of the object's error record.
    std::shared_ptr<TagError> LastError() const { return viewOf(error_); }

    // Everything about the drive, the file and its tags as one XML document, UTF-8. Failures of the file system, a
    // folder or a device in the place of the file among them, and ObjectNotSet without an ID3v1 tag object, reach the
    // caller as RuntimeFailure and are not recorded.
    std::string xml();

    // Gives a file without an ID3v2 tag a new ID3v2.3 tag with the named values of theTag. False when the file has a
    // tag already, or, with LastError, when it cannot be read or written; it is then exactly what it was, and a failure
    // of the system is recorded with its number. This object goes on without the tag until the file is opened again.
    // The year is written as it reads, 0 without one.
    bool createID3V2Tag(const std::shared_ptr<ID3V230>& theTag);

private:
    friend struct Internals<FileHandler>;

    void analyse(FileReader& file);
    void takeId3v2Header(FileStart& start);
    void readId3v1Record(FileReader& file);
    void loadLyricsTag();
    void followOwnChange(const FileChange& change) const;

    std::shared_ptr<cError> error_ = std::make_shared<cError>();
    std::string fileName_;       // as it was given
    std::string path_;           // of the same file whatever the current folder is
    std::string lyricsFileName_; // the path for which the Lyrics3 tag was last loaded
    std::shared_ptr<ID3V1Tag> id3v1Tag_;
    std::shared_ptr<corvane::MPEGHeader> mpegHeader_;
    mutable std::shared_ptr<corvane::LyricsTag> lyricsTag_;
    std::shared_ptr<corvane::ID3V2Tag> id3v2Tag_;
    std::int16_t fileType_ = 0;
    bool hasId3v2Tag_ = false;
};

} // namespace corvane
