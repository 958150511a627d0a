// The ID3 tags of one file as the editor works with them: plain values, which can be compared, copied and kept.
#pragma once

#include "corvane/platform/Picture.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

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

struct TagValues {
    bool present = false;
    std::array<std::string, kFieldCount> texts; // UTF-8
    // Pictures that are wanted; nullptr inside for none. Nothing: those that the file has, whatever they are. The cover
    // is the front cover, which the tools set; the other one is the picture that the ID3v2 control shows.
    std::optional<std::shared_ptr<Picture>> cover, picture;

    std::string& operator[](Field field) { return texts[static_cast<std::size_t>(field)]; }
    const std::string& operator[](Field field) const { return texts[static_cast<std::size_t>(field)]; }
    bool operator==(const TagValues&) const = default;
};

struct FileTags {
    TagValues v1, v2;

    bool operator==(const FileTags&) const = default;
};

// The tags of a file. Fails with an exception that tells why when the file cannot be read.
FileTags readTags(const std::string& path);
FileTags tagsOf(FileHandler& file);

// Reading and writing the texts of an ID3v2 tag object, whose Year is a number: "" stands for its 0.
TagValues valuesOf(ID3V2Tag& tag);
void setText(ID3V2Tag& tag, Field field, const std::string& text);

} // namespace corvane::editor
