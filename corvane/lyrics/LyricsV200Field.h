// One field of a Lyrics3 v2.00 tag.
#pragma once

#include "corvane/platform/Export.h"
#include "corvane/platform/Internals.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace corvane {

class CORVANE_EXPORT LyricsV200Field {
public:
    // What the field is, by its ID; upper and lower case differ.
    bool IsLyrics() const { return id_ == "LYR"; }
    bool IsArtist() const { return id_ == "EAR"; }
    bool IsAlbum() const { return id_ == "EAL"; }
    bool IsTitle() const { return id_ == "ETT"; }
    bool IsAuthor() const { return id_ == "AUT"; }

    // Always 3 characters.
    std::string ID() const { return id_; }
    // The length in bytes that the tag tells, 0 to 99999; 0 for a field that was imported.
    std::int32_t Size() const { return size_; }
    // The text, UTF-8: that of the file decoded in Windows-1252.
    std::string TextData() const { return textData_; }

private:
    friend struct Internals<LyricsV200Field>;
    void ID(std::string_view id);
    void Size(std::int32_t size) { size_ = size; }
    void TextData(std::string textData) { textData_ = std::move(textData); }

    std::string id_ = "   ";
    std::int32_t size_ = 0;
    std::string textData_;
};

} // namespace corvane
