// The genre numbers of the ID3v1 record and their names.
//
// The format itself names the numbers 0 to 79; the others are the common extensions of players. The spelling of the
// names is this library's own ("Trip -Hop", "Psychadelic", "Bebob"): hosts compare and store these very texts.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace corvane {

struct GenreRow {
    int number; // as the record's last byte holds it
    std::string_view name;
};

inline constexpr int kUndefinedGenre = 255;

// In the order of the collection that hosts see.
inline constexpr auto kGenreTable = std::to_array<GenreRow>({
    GenreRow{0, "Blues"},
    GenreRow{1, "Classic Rock"},
    GenreRow{2, "Country"},
    GenreRow{3, "Dance"},
    GenreRow{4, "Disco"},
    GenreRow{5, "Funk"},
    GenreRow{6, "Grunge"},
    GenreRow{7, "Hip-Hop"},
    GenreRow{8, "Jazz"},
    GenreRow{9, "Metal"},
    GenreRow{10, "New Age"},
    GenreRow{11, "Oldies"},
    GenreRow{12, "Other"},
    GenreRow{13, "Pop"},
    GenreRow{14, "R&B"},
    GenreRow{15, "Rap"},
    GenreRow{16, "Reggae"},
    GenreRow{17, "Rock"},
    GenreRow{18, "Techno"},
    GenreRow{19, "Industrial"},
    GenreRow{20, "Alternative"},
    GenreRow{21, "Ska"},
    GenreRow{22, "Death Metal"},
    GenreRow{23, "Pranks"},
    GenreRow{24, "Soundtrack"},
    GenreRow{25, "Euro -Techno"},
    GenreRow{26, "Ambient"},
    GenreRow{27, "Trip -Hop"},
    GenreRow{28, "Vocal"},
    GenreRow{29, "Jazz Funk"},
    GenreRow{30, "Fusion"},
    GenreRow{31, "Trance"},
    GenreRow{32, "Classical"},
    GenreRow{33, "Instrumental"},
    GenreRow{34, "Acid"},
    GenreRow{35, "House"},
    GenreRow{36, "Game"},
    GenreRow{37, "Sound Clip"},
    GenreRow{38, "Gospel"},
    GenreRow{39, "Noise"},
    GenreRow{40, "Alternative Rock"},
    GenreRow{41, "Bass"},
    GenreRow{42, "Soul"},
    GenreRow{43, "Punk"},
    GenreRow{44, "Space"},
    GenreRow{45, "Meditative"},
    GenreRow{46, "Instrumental Pop"},
    GenreRow{47, "Instrumental Rock"},
    GenreRow{48, "Ethnic"},
    GenreRow{49, "Gothic"},
    GenreRow{50, "Darkwave"},
    GenreRow{51, "Techno -Industrial"},
    GenreRow{52, "Electronic"},
    GenreRow{53, "Pop -Folk"},
    GenreRow{54, "Eurodance"},
    GenreRow{55, "Dream"},
    GenreRow{56, "Southern Rock"},
    GenreRow{57, "Comedy"},
    GenreRow{58, "Cult"},
    GenreRow{59, "Gangsta"},
    GenreRow{60, "Top 40"},
    GenreRow{61, "Christian Rap"},
    GenreRow{62, "Pop/Funk"},
    GenreRow{63, "Jungle"},
    GenreRow{64, "Native US"},
    GenreRow{65, "Cabaret"},
    GenreRow{66, "New Wave"},
    GenreRow{67, "Psychadelic"},
    GenreRow{68, "Rave"},
    GenreRow{69, "Showtunes"},
    GenreRow{70, "Trailer"},
    GenreRow{71, "Lo -Fi"},
    GenreRow{72, "Tribal"},
    GenreRow{73, "Acid Punk"},
    GenreRow{74, "Acid Jazz"},
    GenreRow{75, "Polka"},
    GenreRow{76, "Retro"},
    GenreRow{77, "Musical"},
    GenreRow{78, "Rock & Roll"},
    GenreRow{79, "Hard Rock"},
    GenreRow{80, "Folk"},
    GenreRow{81, "Folk -Rock"},
    GenreRow{82, "National Folk"},
    GenreRow{83, "Swing"},
    GenreRow{84, "Fast Fusion"},
    GenreRow{85, "Bebob"},
    GenreRow{86, "Latin"},
    GenreRow{87, "Revival"},
    GenreRow{88, "Celtic"},
    GenreRow{89, "Bluegrass"},
    GenreRow{90, "Avantgarde"},
    GenreRow{91, "Gothic Rock"},
    GenreRow{92, "Progressive Rock"},
    GenreRow{93, "Psychedelic Rock"},
    GenreRow{94, "Symphonic Rock"},
    GenreRow{95, "Slow Rock"},
    GenreRow{96, "Big Band"},
    GenreRow{97, "Chorus"},
    GenreRow{98, "Easy Listening"},
    GenreRow{99, "Accoustic"},
    GenreRow{100, "Humour"},
    GenreRow{101, "Speech"},
    GenreRow{102, "Chanson"},
    GenreRow{103, "Opera"},
    GenreRow{104, "Chamber Music"},
    GenreRow{105, "Sonata"},
    GenreRow{106, "Symphony"},
    GenreRow{107, "BootyBass"},
    GenreRow{108, "Primus"},
    GenreRow{109, "Porn Groove"},
    GenreRow{110, "Satire"},
    GenreRow{111, "Slow Jam"},
    GenreRow{112, "Club"},
    GenreRow{113, "Tango"},
    GenreRow{114, "Samba"},
    GenreRow{115, "Folklore"},
    GenreRow{116, "Ballad"},
    GenreRow{117, "Power Ballad"},
    GenreRow{118, "Rhytmic Soul"},
    GenreRow{119, "Freestyle"},
    GenreRow{120, "Duet"},
    GenreRow{121, "Punk Rock"},
    GenreRow{122, "Drum Solo"},
    GenreRow{123, "Acapella"},
    GenreRow{124, "Euro-House"},
    GenreRow{125, "Dance Hall"},
    GenreRow{126, "Goa"},
    GenreRow{127, "Drum & Bass"},
    GenreRow{128, "Club-House"},
    GenreRow{129, "Hardcore"},
    GenreRow{130, "Terror"},
    GenreRow{131, "Indie"},
    GenreRow{132, "BritPop"},
    GenreRow{133, "Negerpunk"},
    GenreRow{134, "Polsk Punk"},
    GenreRow{135, "Beat"},
    GenreRow{136, "Christian Gangsta Rap"},
    GenreRow{137, "Heavy Metal"},
    GenreRow{138, "Black Metal"},
    GenreRow{139, "Crossover"},
    GenreRow{140, "Contemporary Christian"},
    GenreRow{141, "Christian Rock"},
    GenreRow{142, "Merengue"},
    GenreRow{143, "Salsa"},
    GenreRow{144, "Trash Metal"},
    GenreRow{145, "Anime"},
    GenreRow{146, "Jpop"},
    GenreRow{147, "Synthpop"},
    GenreRow{255, "<Undefined>"},
});
static_assert(kGenreTable.size() == 149);
// Every number but the last one stands at its own offset.
static_assert([] {
    for (std::size_t offset = 0; offset + 1 < kGenreTable.size(); ++offset) {
        if (kGenreTable[offset].number != static_cast<int>(offset)) return false;
    }
    return kGenreTable.back().number == kUndefinedGenre;
}());
static_assert(std::ranges::none_of(kGenreTable, &std::string_view::empty, &GenreRow::name));

// Where a number stands in the table, counted from 0; nothing for a number without a name.
constexpr std::optional<std::size_t> genreOffset(int number) {
    const std::size_t last = kGenreTable.size() - 1;
    if (number == kUndefinedGenre) return last;
    if (number < 0 || static_cast<std::size_t>(number) >= last) return std::nullopt;
    return static_cast<std::size_t>(number);
}

// The name of a genre number; "" when it has none.
constexpr std::string_view genreName(int number) {
    const auto offset = genreOffset(number);
    return offset ? kGenreTable[*offset].name : std::string_view();
}

} // namespace corvane
