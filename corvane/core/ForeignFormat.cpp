#include "corvane/core/ForeignFormat.h"

#include "corvane/platform/Utf.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

namespace corvane {

namespace {

using namespace std::string_view_literals;

struct Signature {
    std::string_view bytes;
    std::string_view name;
    std::size_t offset = 0;
    std::string_view form = {}; // bytes at offset 8, where the format is one of a family
};

// The first row that matches counts.
constexpr std::array kSignatures{
    // Pictures
    Signature{"\xFF\xD8\xFF"sv, "a JPEG image"},
    Signature{"\x89PNG\r\n\x1A\n"sv, "a PNG image"},
    Signature{"GIF87a"sv, "a GIF image"},
    Signature{"GIF89a"sv, "a GIF image"},
    Signature{"BM"sv, "a BMP image", 0, "\0\0"sv}, // reserved bytes
    Signature{"II*\0"sv, "a TIFF image"},
    Signature{"MM\0*"sv, "a TIFF image"},
    Signature{"8BPS"sv, "a Photoshop image"},
    Signature{"\0\0\1\0"sv, "an icon"},
    Signature{"\xFF\x0A"sv, "a JPEG XL image"},
    Signature{"\0\0\0\x0CJXL \r\n\x87\n"sv, "a JPEG XL image"},
    Signature{"\0\0\0\x0CjP  \r\n\x87\n"sv, "a JPEG 2000 image"},
    // Audio and video
    Signature{"RIFF"sv, "a WAV file", 0, "WAVE"sv},
    Signature{"RIFF"sv, "an AVI video", 0, "AVI "sv},
    Signature{"RIFF"sv, "a WebP image", 0, "WEBP"sv},
    Signature{"RIFF"sv, "a RIFF file"},
    Signature{"RIFX"sv, "a RIFF file"},
    Signature{"RF64"sv, "a WAV file"},
    Signature{"BW64"sv, "a WAV file"},
    Signature{"riff\x2E\x91\xCF\x11"sv, "a Wave64 file"},
    Signature{"FORM"sv, "an AIFF file", 0, "AIFF"sv},
    Signature{"FORM"sv, "an AIFF file", 0, "AIFC"sv},
    Signature{"FORM"sv, "an IFF file"},
    Signature{"OggS"sv, "an Ogg file"},
    Signature{"fLaC"sv, "a FLAC file"},
    Signature{"ftyp"sv, "an MP4 file", 4},
    Signature{"moov"sv, "a QuickTime file", 4},
    Signature{"mdat"sv, "a QuickTime file", 4},
    Signature{"\x30\x26\xB2\x75\x8E\x66\xCF\x11"sv, "an ASF or WMA file"},
    Signature{"\x1A\x45\xDF\xA3"sv, "a Matroska file"},
    Signature{"FLV\1"sv, "a Flash video"},
    Signature{"FWS"sv, "a Flash movie"},
    Signature{"CWS"sv, "a Flash movie"},
    Signature{".RMF"sv, "a RealMedia file"},
    Signature{".ra\xFD"sv, "a RealAudio file"},
    Signature{"\0\0\1\xBA"sv, "an MPEG video"},
    Signature{"\0\0\1\xB3"sv, "an MPEG video"},
    Signature{"MThd"sv, "a MIDI file"},
    Signature{"MAC "sv, "a Monkey's Audio file"},
    Signature{"MP+"sv, "a Musepack file"},
    Signature{"MPCK"sv, "a Musepack file"},
    Signature{"wvpk"sv, "a WavPack file"},
    Signature{"TTA1"sv, "a True Audio file"},
    Signature{"TTA2"sv, "a True Audio file"},
    Signature{"OFR "sv, "an OptimFROG file"},
    Signature{"ajkg"sv, "a Shorten file"},
    Signature{"DSD "sv, "a DSF file"},
    Signature{"FRM8"sv, "a DSDIFF file"},
    Signature{"caff"sv, "a Core Audio file"},
    Signature{".snd"sv, "an AU file"},
    Signature{"#!AMR"sv, "an AMR file"},
    Signature{"ADIF"sv, "an AAC file"},
    Signature{"\xFF\xF0"sv, "an AAC file"}, // ADTS: the layer is 0, which no frame of MPEG audio has
    Signature{"\xFF\xF1"sv, "an AAC file"},
    Signature{"\xFF\xF8"sv, "an AAC file"},
    Signature{"\xFF\xF9"sv, "an AAC file"},
    // Documents, archives, programs
    Signature{"%PDF"sv, "a PDF document"},
    Signature{"%!PS"sv, "a PostScript document"},
    Signature{"{\\rtf"sv, "an RTF document"},
    Signature{"\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"sv, "an Office document"},
    Signature{"SQLite format 3\0"sv, "an SQLite database"},
    Signature{"PK\3\4"sv, "a ZIP archive"},
    Signature{"PK\5\6"sv, "a ZIP archive"},
    Signature{"Rar!\x1A\7"sv, "a RAR archive"},
    Signature{"7z\xBC\xAF\x27\x1C"sv, "a 7z archive"},
    Signature{"\x1F\x8B\x08"sv, "a gzip file"},
    Signature{"BZh"sv, "a bzip2 file"},
    Signature{"\xFD"
              "7zXZ\0"sv,
              "an xz file"},
    Signature{"\x28\xB5\x2F\xFD"sv, "a Zstandard file"},
    Signature{"ustar"sv, "a tar archive", 257},
    Signature{"070701"sv, "a cpio archive"},
    Signature{"!<arch>\n"sv, "an ar archive"},
    Signature{"\x7F"
              "ELF"sv,
              "an ELF program"},
    Signature{"MZ"sv, "a Windows program"},
    Signature{"\xCA\xFE\xBA\xBE"sv, "a program"},
};

bool hasAt(Bytes head, std::size_t offset, std::string_view wanted) {
    return head.size() >= offset + wanted.size() &&
           std::equal(wanted.begin(), wanted.end(), head.begin() + static_cast<std::ptrdiff_t>(offset),
                      [](char expected, std::uint8_t byte) { return static_cast<std::uint8_t>(expected) == byte; });
}

bool matches(const Signature& signature, Bytes head) {
    constexpr std::size_t kFormOffset = 8;
    return hasAt(head, signature.offset, signature.bytes) &&
           (signature.form.empty() || hasAt(head, kFormOffset, signature.form));
}

// Packets of 188 bytes, each of which begins with 0x47 (ISO/IEC 13818-1 section 2.4.3.2).
bool isTransportStream(Bytes head) {
    constexpr std::size_t kPacketSize = 188, kPackets = 4;
    for (std::size_t packet = 0; packet < kPackets; ++packet) {
        if (!hasAt(head, packet * kPacketSize, "G"sv)) return false;
    }
    return true;
}

// The head as text; "" when it is none. A character that the head ends in the middle of is left out.
std::string textOf(Bytes head) {
    std::string text(head.begin(), head.end());
    if (head.size() >= kForeignFormatBytes) {
        while (!text.empty() && static_cast<std::uint8_t>(text.back()) >= 0x80) text.pop_back();
    }
    const auto isControl = [](char character) {
        const auto code = static_cast<std::uint8_t>(character);
        return code == 0x7F || (code < 0x20 && "\t\n\f\r"sv.find(character) == std::string_view::npos);
    };
    return std::any_of(text.begin(), text.end(), isControl) || !isUtf8(text) ? std::string() : text;
}

std::string_view textFormat(std::string text) {
    if (text.empty()) return {};
    constexpr auto kByteOrderMark = "\xEF\xBB\xBF"sv;
    if (text.starts_with(kByteOrderMark)) text.erase(0, kByteOrderMark.size());
    text.erase(0, text.find_first_not_of(" \t\n\f\r"));
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    std::transform(text.begin(), text.end(), text.begin(), lower);
    if (text.starts_with("<!doctype html") || text.starts_with("<html")) return "an HTML page";
    return text.starts_with("<?xml") || text.starts_with("<svg") ? "an XML document" : "a text file";
}

} // namespace

std::string_view foreignFormat(Bytes head) {
    const auto known = std::find_if(kSignatures.begin(), kSignatures.end(),
                                    [head](const Signature& signature) { return matches(signature, head); });
    if (known != kSignatures.end()) return known->name;
    return isTransportStream(head) ? "an MPEG video" : textFormat(textOf(head));
}

} // namespace corvane
