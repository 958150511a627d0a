// What the ID3v2 editor shows of a tag and writes back into it. No window is needed for any of it.
#pragma once

#include "corvane/id3v2/ID3V2Tag.h"
#include "corvane/xml/XmlNode.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace corvane::controls {

// A text of the tag: the box that shows it, the property that it comes from, and its name in the tag's XML document.
struct Id3v2Text {
    const char* box;
    std::string (ID3V2Tag::*read)();
    void (ID3V2Tag::*write)(std::string_view);
    const char* xmlName;
};

// The rows of the table of texts.
namespace text_row {
enum : std::size_t {
    Title,
    Artist,
    Album,
    Year,
    Track,
    Comment,
    Composer,
    OriginalArtist,
    Copyright,
    Url,
    EncodedBy,
    Lyrics,
    SyncedLyrics,
    Count
};
} // namespace text_row

inline constexpr std::array<Id3v2Text, text_row::Count> kId3v2Texts{{
    {"txtTitle", &ID3V2Tag::Title, &ID3V2Tag::Title, "Title"},
    {"txtArtist", &ID3V2Tag::Artist, &ID3V2Tag::Artist, "Artist"},
    {"txtAlbum", &ID3V2Tag::Album, &ID3V2Tag::Album, "Album"},
    {"txtYear", &ID3V2Tag::Year, &ID3V2Tag::Year, "Year"},
    {"txtTrack", &ID3V2Tag::Track, &ID3V2Tag::Track, "Track"},
    {"txtComment", &ID3V2Tag::Comment, &ID3V2Tag::Comment, "Comment"},
    {"txtComposer", &ID3V2Tag::Composer, &ID3V2Tag::Composer, "TCOM"},
    {"txtOriginalArtist", &ID3V2Tag::OriginalArtist, &ID3V2Tag::OriginalArtist, "TOPE"},
    {"txtCopyright", &ID3V2Tag::Copyright, &ID3V2Tag::Copyright, "TCOP"},
    {"txtURL", &ID3V2Tag::UserURL, &ID3V2Tag::UserURL, "WXXX"},
    {"txtEncodedBy", &ID3V2Tag::EncodedBy, &ID3V2Tag::EncodedBy, "TENC"},
    {"txtLyrics", &ID3V2Tag::LyricsUnsynced, &ID3V2Tag::LyricsUnsynced, "USLT"},
    {"txtSyncedLyrics", &ID3V2Tag::LyricsSynced, &ID3V2Tag::LyricsSynced, "SYLT"},
}};
static_assert(std::string_view(kId3v2Texts[text_row::Year].box) == "txtYear");
static_assert(std::string_view(kId3v2Texts[text_row::SyncedLyrics].box) == "txtSyncedLyrics");
inline constexpr const char* kNoYear = "0"; // what a tag without a year tells

struct Id3v2Values {
    std::array<std::string, kId3v2Texts.size()> texts; // UTF-8
    std::optional<std::uint8_t> genre;                 // number, where the tag tells one that the table knows
    std::string genreText;                             // as the tag has it; what is to be written without a number
    std::shared_ptr<Picture> picture;
};

// The values of a tag; a year of "0", which stands for none, is "".
Id3v2Values valuesOf(ID3V2Tag& tag);
// The same from the XML document of a tag, without the picture.
Id3v2Values valuesOf(const XmlNode& tag);

// Writes what differs from the values that were shown. Everything else stays as the tag has it, so what a field cannot
// show in full, such as a genre of two names, is not lost. Fails with a RuntimeFailure when the year is no number;
// nothing has been written then.
void writeChanges(ID3V2Tag& tag, const Id3v2Values& shown, const Id3v2Values& wanted);

} // namespace corvane::controls
