#include "corvane/id3v230/FrameNames.h"

#include <algorithm>
#include <array>

namespace corvane {

namespace {

struct Names {
    std::string_view letters;
    std::string_view title;
};

// By frame number. "infromation" is spelt like that on purpose: hosts compare these texts.
constexpr std::array<Names, 77> kNames{{
    {R"(????)", "No known frame"},
    {"AENC", "Audio encryption"},
    {"APIC", "Attached picture"},
    {"COMM", "Comments"},
    {"COMR", "Commercial frame"},
    {"ENCR", "Encryption method registration"},
    {"EQUA", "Equalization"},
    {"ETCO", "Event timing codes"},
    {"GEOB", "General encapsulated object"},
    {"GRID", "Group identification registration"},
    {"IPLS", "Involved people list"},
    {"LINK", "Linked information"},
    {"MCDI", "Music CD identifier"},
    {"MLLT", "MPEG location lookup table"},
    {"OWNE", "Ownership frame"},
    {"PRIV", "Private frame"},
    {"PCNT", "Play counter"},
    {"POPM", "Popularimeter"},
    {"POSS", "Position synchronisation frame"},
    {"RBUF", "Recommended buffer size"},
    {"RVAD", "Relative volume adjustment"},
    {"RVRB", "Reverb"},
    {"SYLT", "Synchronized lyric/text"},
    {"SYTC", "Synchronized tempo codes"},
    {"TALB", "Album/Movie/Show title"},
    {"TBPM", "BPM (beats per minute)"},
    {"TCOM", "Composer"},
    {"TCON", "Content type"},
    {"TCOP", "Copyright message"},
    {"TDAT", "Date"},
    {"TDLY", "Playlist delay"},
    {"TENC", "Encoded by"},
    {"TEXT", "Lyricist/Text writer"},
    {"TFLT", "File type"},
    {"TIME", "Time"},
    {"TIT1", "Content group description"},
    {"TIT2", "Title/songname/content description"},
    {"TIT3", "Subtitle/Description refinement"},
    {"TKEY", "Initial key"},
    {"TLAN", "Language(s)"},
    {"TLEN", "Length"},
    {"TMED", "Media type"},
    {"TOAL", "Original album/movie/show title"},
    {"TOFN", "Original filename"},
    {"TOLY", "Original lyricist(s)/text writer(s)"},
    {"TOPE", "Original artist(s)/performer(s)"},
    {"TORY", "Original release year"},
    {"TOWN", "File owner/licensee"},
    {"TPE1", "Lead performer(s)/Soloist(s)"},
    {"TPE2", "Band/orchestra/accompaniment"},
    {"TPE3", "Conductor/performer refinement"},
    {"TPE4", "Interpreted, remixed, or otherwise modified by"},
    {"TPOS", "Part of a set"},
    {"TPUB", "Publisher"},
    {"TRCK", "Track number/Position in set"},
    {"TRDA", "Recording dates"},
    {"TRSN", "Internet radio station name"},
    {"TRSO", "Internet radio station owner"},
    {"TSIZ", "Size"},
    {"TSRC", "ISRC (international standard recording code)"},
    {"TSSE", "Software/Hardware and settings used for encoding"},
    {"TXXX", "User defined text information"},
    {"TYER", "Year"},
    {"UFID", "Unique file identifier"},
    {"USER", "Terms of use"},
    {"USLT", "Unsynchronized lyric/text transcription"},
    {"WCOM", "Commercial information"},
    {"WCOP", "Copyright/Legal infromation"},
    {"WOAF", "Official audio file webpage"},
    {"WOAR", "Official artist/performer webpage"},
    {"WOAS", "Official audio source webpage"},
    {"WORS", "Official internet radio station homepage"},
    {"WPAY", "Payment"},
    {"WPUB", "Official publisher webpage"},
    {"WXXX", "User defined URL link"},
    {"    ", "Encrypted meta frame (id3v2.2.x)"},
    {"    ", "Compressed meta frame (id3v2.2.1)"},
}};

constexpr std::int32_t kSecondLeadPerformer = -1;

constexpr std::uint32_t codeOf(std::string_view letters) {
    std::uint32_t code = 0;
    for (const char letter : letters) code = code << 8 | static_cast<std::uint8_t>(letter);
    return code;
}

// The letters as numbers, which are faster to look through. Behind the 75 stand two without letters of their own.
constexpr std::array<std::uint32_t, 75> kCodes = [] {
    std::array<std::uint32_t, 75> codes{};
    for (std::size_t frame = 0; frame < codes.size(); ++frame) codes[frame] = codeOf(kNames[frame].letters);
    return codes;
}();

Names namesOf(std::int32_t frame) {
    if (frame == kSecondLeadPerformer) return kNames[static_cast<std::size_t>(ID3_FrameID::ID3FID_LEADARTIST)];
    const auto index = static_cast<std::size_t>(frame);
    return frame >= 0 && index < kNames.size() ? kNames[index] : Names{};
}

} // namespace

std::optional<std::string_view> FrameName(std::int32_t frame, enumShortOrLongText name) {
    switch (name) {
    case enumShortOrLongText::eslSHORT:
        return namesOf(frame).letters;
    case enumShortOrLongText::eslLONG:
        return namesOf(frame).title;
    }
    return std::nullopt;
}

ID3_FrameID frameNumberOf(std::string_view letters) {
    if (letters.size() != 4) return ID3_FrameID::ID3FID_NOFRAME;
    const auto* const found = std::find(kCodes.begin() + 1, kCodes.end(), codeOf(letters));
    return found == kCodes.end() ? ID3_FrameID::ID3FID_NOFRAME : static_cast<ID3_FrameID>(found - kCodes.begin());
}

} // namespace corvane
