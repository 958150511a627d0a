// The ID3 tags of one file as the editor works with them: plain values, which can be compared, copied and kept.
#pragma once

#include "corvane/platform/Picture.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvane {
class FileHandler;
class ID3V2Tag;
} // namespace corvane

namespace corvane::editor {

// The first seven are fields of both kinds of tag, the others of ID3v2 alone.
enum class Field : std::uint8_t {
    Title,
    Artist,
    Album,
    Year,
    Track, // "3" in ID3v1, "3" or "3/12" in ID3v2; "" for none
    Genre, // the number in ID3v1, "" for none; as it is stored in ID3v2: "(17)", see StoredGenre.h
    Comment,
    Composer,
    OriginalArtist,
    Copyright,
    Url,
    EncodedBy,
    Lyrics,
    SyncedLyrics
};
inline constexpr std::size_t kFieldCount = 14;
inline constexpr std::size_t kCommonFieldCount = 7;

constexpr Field fieldAt(std::size_t at) { return static_cast<Field>(at); }
constexpr bool isCommon(Field field) { return static_cast<std::size_t>(field) < kCommonFieldCount; }

// A text of an ID3v2 tag which the hosts of the library have always read in another way than its standard means it.
struct OtherReading {
    Field field;
    std::string asHosts, published;
};

// nullptr inside for no picture.
using OptionalPicture = std::optional<std::shared_ptr<Picture>>;

struct TagValues {
    bool present = false;
    std::array<std::string, kFieldCount> texts; // UTF-8
    // Pictures that are wanted. Nothing: those that the file has, whatever they are. The cover is the front cover,
    // which the tools set; the other one is the picture that the page shows, which is the front cover or else the first
    // one.
    OptionalPicture cover, picture;
    std::vector<OtherReading> otherReadings; // of the texts that all tags have, as the file has them; nothing wanted

    std::string& operator[](Field field) { return texts[static_cast<std::size_t>(field)]; }
    const std::string& operator[](Field field) const { return texts[static_cast<std::size_t>(field)]; }
    bool operator==(const TagValues& other) const {
        return present == other.present && texts == other.texts && cover == other.cover && picture == other.picture;
    }
};

struct FileTags {
    TagValues v1, v2;

    bool operator==(const FileTags&) const = default;
};

// The tags of a file. Fails with an exception that tells why when the file cannot be read.
FileTags readTags(const std::string& path);
FileTags tagsOf(FileHandler& file);

// A text as the standard of the tag means it, which is what lists show. A text that is not the file's is as it is.
const std::string& publishedText(const TagValues& tag, Field field);

// Reading and writing the texts of an ID3v2 tag object, whose Year is a number: "" stands for its 0.
TagValues valuesOf(ID3V2Tag& tag);
void setText(ID3V2Tag& tag, Field field, const std::string& text);

} // namespace corvane::editor
