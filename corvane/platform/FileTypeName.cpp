#include "corvane/platform/FileTypeName.h"

#include <algorithm>
#include <array>

namespace corvane {

namespace {

struct FileType {
    std::string_view extension; // in lower case
    std::string_view name;
};

constexpr std::array kFileTypes{
    FileType{"aac", "AAC audio"},           FileType{"aif", "AIFF audio"},    FileType{"aiff", "AIFF audio"},
    FileType{"bmp", "Bitmap image"},        FileType{"flac", "FLAC audio"},   FileType{"gif", "GIF image"},
    FileType{"jpeg", "JPEG image"},         FileType{"jpg", "JPEG image"},    FileType{"m3u", "Playlist"},
    FileType{"m3u8", "Playlist"},           FileType{"m4a", "MPEG-4 audio"},  FileType{"mp1", "MPEG audio"},
    FileType{"mp2", "MPEG audio"},          FileType{"mp3", "MPEG audio"},    FileType{"mp4", "MPEG-4 video"},
    FileType{"mpa", "MPEG audio"},          FileType{"mpeg", "MPEG video"},   FileType{"mpg", "MPEG video"},
    FileType{"mpga", "MPEG audio"},         FileType{"oga", "Ogg audio"},     FileType{"ogg", "Ogg audio"},
    FileType{"opus", "Opus audio"},         FileType{"png", "PNG image"},     FileType{"rar", "RAR archive"},
    FileType{"tmp", "Temporary file"},      FileType{"txt", "Text document"}, FileType{"wav", "Waveform audio"},
    FileType{"wma", "Windows Media audio"}, FileType{"xml", "XML document"},  FileType{"zip", "ZIP archive"},
};
static_assert(std::ranges::is_sorted(kFileTypes, {}, &FileType::extension));
static_assert(std::ranges::adjacent_find(kFileTypes, {}, &FileType::extension) == kFileTypes.end());

// ASCII letters alone: what is a letter elsewhere depends on the locale.
constexpr char lower(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}
constexpr char upper(char character) {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

} // namespace

std::string fileTypeNameOf(std::string_view extension) {
    if (extension.empty()) return "File";
    std::string wanted(extension);
    std::ranges::transform(wanted, wanted.begin(), lower);
    const auto known = std::ranges::lower_bound(kFileTypes, std::string_view(wanted), {}, &FileType::extension);
    if (known != kFileTypes.end() && known->extension == wanted) return std::string(known->name);
    std::ranges::transform(wanted, wanted.begin(), upper);
    return wanted + " File";
}

} // namespace corvane
