// The fields of one ID3v1 or ID3v1.1 record. The object touches no file: FileHandler reads the record into it and
// writes it back.
//
// Different threads may use different objects; one object belongs to one thread at a time.
#pragma once

#include "corvane/id3v1/EID3TagConstants.h"
#include "corvane/id3v1/Genres.h"
#include "corvane/platform/Export.h"
#include "corvane/platform/Internals.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

namespace pugi {
class xml_node;
}

namespace corvane {

class XmlNode;

class CORVANE_EXPORT ID3V1Tag {
public:
    // Empty texts, no track, genre 255, type ID3Unknown.
    ID3V1Tag();
    ~ID3V1Tag();
    ID3V1Tag(const ID3V1Tag&) = delete; // handed on by reference
    ID3V1Tag& operator=(const ID3V1Tag&) = delete;

    // Texts are UTF-8 and kept as given, whatever their length. Writing the record cuts them to the number of
    // characters named here, and writes a character that Windows-1252 lacks as "?".
    std::string Title() const { return title_; } // 30
    void Title(std::string title) { title_ = std::move(title); }
    std::string Artist() const { return artist_; } // 30
    void Artist(std::string artist) { artist_ = std::move(artist); }
    std::string Album() const { return album_; } // 30
    void Album(std::string album) { album_ = std::move(album); }
    std::string Year() const { return year_; } // 4
    void Year(std::string year) { year_ = std::move(year); }
    std::string Comment() const { return comment_; } // 30; 28 in ID3v1.1
    void Comment(std::string comment) { comment_ = std::move(comment); }

    // Track number; only ID3v1.1 stores it. Any number can be kept here, but a record takes 0 to 255 only.
    std::int16_t Track() const { return track_; }
    void Track(std::int16_t track) { track_ = track; }
    // Genre number, see GenreList; 255 means no genre.
    std::uint8_t Genre() const { return genre_; }
    void Genre(std::uint8_t genre) { genre_ = genre; }

    // Length of the record in bytes: 128.
    std::int16_t TagLength() const;
    // What the record begins with: "TAG".
    std::string TagIdentifier() const;
    // The decimal text of the byte that ends a text in the record: "0". This is a digit and not a NUL character; hosts
    // take its numeric value.
    std::string TagTerminator() const;

    // Which record this is, and which one writing makes; ID3Unknown in a new object.
    EID3TagConstants TagType() const { return tagType_; }
    void TagType(EID3TagConstants tagType) { tagType_ = tagType; }

    // The tag's own list of genres, the same object at every call.
    std::shared_ptr<Genres> GenreList() const;

    // The tag as an XML document, UTF-8. BaseNode, where given, is set to its element "ID3V1Tag".
    std::string xml(XmlNode* BaseNode = nullptr) const;

    // Fills the tag from such an element. The genre is taken from its number and not from its name; the tag type
    // follows from the track: 0 or none gives ID3v1, a negative one ID3Unknown, any other ID3V11. Numbers may have a
    // sign and blanks around them. Fails with a RuntimeFailure: 0x80040000 for an element of another name (nothing is
    // changed), ObjectNotSet for a missing property or attribute, TypeMismatch for a number that is none, Overflow for
    // one that does not fit; the description says which number it is. What was read before the failure (artist, album,
    // comment, title, year, track, genre, in this order) stays.
    void Tag(const XmlNode& node);

private:
    friend struct Internals<ID3V1Tag>;
    void appendXml(pugi::xml_node parent) const;

    std::string title_, artist_, album_, year_, comment_;
    std::int16_t track_ = 0;
    std::uint8_t genre_ = 255;
    EID3TagConstants tagType_ = EID3TagConstants::ID3Unknown;
    mutable std::shared_ptr<Genres> genreList_; // made when it is first asked for
};

} // namespace corvane
