// An ID3v2.3 tag that can be changed: the one object through which the library writes ID3v2 tags.
//
// The tag is a collection of frame records in memory. Named properties look their record up by frame number and
// description; Frames gives all of them. Reading and changing them touches no file; the object is bound to a file when
// it is read from one, and the changed tag is written by ID3V23Tag::saveTag. An object made by a host holds values for
// FileHandler::createID3V2Tag.
//
// Only a tag that was read completely is written over. A save fails, and leaves the file as it is, when the tag could
// not be read, when another program has changed the file since, and when a second tag has come to light because the
// first one was removed: open the file again to change it then.
//
// Records outlive their frames: what a save or ID3V23Tag::removeTag takes out of the file is kept, up to 16 MB of it in
// memory, more in a nameless temporary file. So a tag that was removed can be saved again, and a frame is there again
// when its record is no longer marked as deleted. Where nothing can be kept, the file is not changed.
//
// A text property that is set to "" deletes its frame at the next save. Writing back what a property has returned
// changes nothing, also where it returns only a part of the frame, or nothing of a frame that it cannot read; such a
// frame is taken out by the Delete of its record. Text is UTF-8; double quotes become apostrophes when a tag is read
// and when it is written. A frame of the file in which only they change keeps all its other bytes; one that has flags,
// a group or a compression keeps the quotes too. Different threads may use different objects.
#pragma once

#include "corvane/id3v230/FrameVariant.h"
#include "corvane/id3v230/ID3V230Frames.h"
#include "corvane/id3v230/ID3_FrameID.h"
#include "corvane/platform/Export.h"
#include "corvane/platform/Internals.h"
#include "corvane/platform/Picture.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

class FileReader;
class KeptFrames;
class TagImage;

class CORVANE_EXPORT ID3V230 {
public:
    // A tag without frames, bound to no file.
    ID3V230();
    ~ID3V230();
    ID3V230(const ID3V230&) = delete;
    ID3V230& operator=(const ID3V230&) = delete;

    // For hosts; the library never sets them.
    bool HadError() const { return hadError_; }
    void HadError(bool value) { hadError_ = value; }
    std::string ErrorDescription() const { return errorDescription_; }
    void ErrorDescription(std::string value) { errorDescription_ = std::move(value); }

    // Whether a save by this object gives the file its new content in one step (true, as it is from the start), or
    // may write a tag that fits in place. What a host sets has no effect on files: ID3V23Tag and createID3V2Tag save
    // through objects of their own, which keep true.
    bool UseTempCopy() const { return useTempCopy_; }
    void UseTempCopy(bool value) { useTempCopy_ = value; }

    // The value of the first record with this frame number and exactly this description; nothing without one.
    FrameVariant FrameValue(ID3_FrameID eFrameID, std::string_view Descriptor = {}) const;
    // Bytes of the tag that was read, with its header and padding; 0 without one.
    std::int32_t FramesSize() const;
    // Number of frames of the tag when it was read. Fails with an overflow when there are more than 32,767.
    std::int16_t FrameCount() const;

    // Texts, UTF-8: the value of the frame named here, "" without one. Writing "" takes the frame out at the next save.
    std::string Title() const; // TIT2
    void Title(std::string_view value);
    std::string Song() const; // another name of Title
    void Song(std::string_view value);
    std::string Artist() const; // TPE1
    void Artist(std::string_view value);
    std::string ArtistURL() const; // WOAR; in the file, characters outside ISO-8859-1 are escaped with "%"
    void ArtistURL(std::string_view value);
    std::string UserURL() const; // WXXX without a description; escaped like ArtistURL
    void UserURL(std::string_view value);
    std::string Album() const; // TALB
    void Album(std::string_view value);
    std::string Track() const; // TRCK, such as "3/12"
    void Track(std::string_view value);
    std::string Composer() const; // TCOM
    void Composer(std::string_view value);
    std::string OriginalArtist() const; // TOPE
    void OriginalArtist(std::string_view value);
    std::string Copyright() const; // TCOP
    void Copyright(std::string_view value);
    std::string EncodedBy() const; // TENC
    void EncodedBy(std::string_view value);
    // The number behind the first "/" of TRCK, 0 without one. Fails with an overflow when it does not fit 16 bits.
    std::int16_t TotalTracks() const;
    // Appends "/" and the number to the text of TRCK, whatever stands there: odd on purpose, "3/12" becomes "3/12/15".
    // Set Track first for a clean text.
    void TotalTracks(std::int16_t value);
    // The number that TYER begins with, 0 without one. Fails with an overflow when it does not fit 16 bits.
    std::int16_t Year() const;
    // Stores the number; 0 is a year too and deletes nothing. The year of a date such as "1999-05-01" leaves the date.
    void Year(std::int16_t value);
    // UTF-8, "" without the frame. Writing "" takes it out at the next save.
    std::string Comments() const; // COMM without a description
    void Comments(std::string_view value);
    // UFID, UTF-8; "" without the frame, and writing "" takes it out. In the file a blank follows each character, as
    // hosts expect it; the frame gets no owner. The bytes of a key that is not changed stay, double quotes included.
    std::string UniqueKey() const;
    void UniqueKey(std::string_view value);
    // UTF-8, "" without the frame. Writing "" takes it out at the next save.
    std::string Genre() const; // TCON without blanks at both ends, such as "(17)Rock"
    void Genre(std::string_view value);
    std::string UserText() const; // TXXX without a description
    void UserText(std::string_view value);
    std::string LyricsUnsynced() const; // USLT without a description
    void LyricsUnsynced(std::string_view value);
    // SYLT without a description, UTF-8; "" without the frame, and writing "" takes it out. Lines "[mm:ss.f] text" with
    // the time at which each begins; a text without times is one entry at 0.
    std::string LyricsSynced() const;
    void LyricsSynced(std::string_view value);
    // APIC without a description; nothing without the frame, or when it is no JPEG, PNG, GIF or BMP image.
    std::shared_ptr<corvane::Picture> Picture() const;
    // Nothing takes the picture out of the file at the next save, but not an image of another kind. Fails with a
    // RuntimeFailure when the picture that is there can no longer be read.
    void Picture(std::shared_ptr<corvane::Picture> value);
    // UTF-8, "" without the frame. Writing "" takes it out at the next save.
    std::string Tempo() const; // COMM "MusicMatch_Tempo"
    void Tempo(std::string_view value);
    std::string Mood() const; // COMM "MusicMatch_Mood"
    void Mood(std::string_view value);
    std::string Situation() const; // COMM "MusicMatch_Situation"
    void Situation(std::string_view value);
    std::string Preference() const; // COMM "MusicMatch_Preference"
    void Preference(std::string_view value);

    // The live collection of records, not a copy. Properties may be set while it is iterated.
    std::shared_ptr<ID3V230Frames> Frames() const { return frames_; }

private:
    friend struct Internals<ID3V230>;
    // Why a save or a strip did not happen: a number of id3lib's error table, and a text for people.
    struct Failure {
        std::int32_t number = 0;
        std::string description;
        bool isDamaged = false; // the file is not what it was, the description tells how to repair it
        // Number and source of the run-time failure that was the cause; 0 where the library itself refuses.
        std::int32_t causeNumber = 0;
        std::string causeSource = {};
    };

    bool LoadFromFile(const std::string& path);
    void ReadFrames();
    void readFrames(std::shared_ptr<TagImage> tag);
    void ResetValues();
    bool SaveTag();
    std::int32_t StripTags(std::uint8_t flags);
    template <class Change>
    bool succeeds(Change&& change);
    void requireTag() const;
    std::shared_ptr<const KeptFrames> framesBeforeRemoval() const;
    bool isChanged() const;

    std::shared_ptr<ID3V230Frame> find(ID3_FrameID frame, std::string_view descriptor) const;
    std::shared_ptr<ID3V230Frame> findToRead(ID3_FrameID frame, std::string_view descriptor) const;
    std::string text(ID3_FrameID frame, std::string_view descriptor = {}) const;
    void SetFrameValue(ID3_FrameID frame, FrameVariant value, std::string_view descriptor = {});
    void setText(ID3_FrameID frame, std::string_view value, std::string_view descriptor = {});
    std::shared_ptr<ID3V230Frame> AddFrameValue(ID3_FrameID frame, FrameVariant value, std::string_view descriptor);

    bool hadError_ = false;
    std::string errorDescription_;
    bool useTempCopy_ = true;
    std::string fileName_;
    std::size_t frameCount_ = 0;
    std::uint32_t framesSize_ = 0;
    std::shared_ptr<TagImage> tag_; // as it is in the file; nothing when it was not read completely
    std::shared_ptr<ID3V230Frames> frames_;
    std::optional<Failure> failure_;
};

} // namespace corvane
