#include "corvane/id3v1/GenreTable.h"

#include <gtest/gtest.h>

#include <string>

namespace corvane::genretable_test {
namespace {

// Every row as it is published: number, blank, name.
constexpr std::string_view kEveryRow =
    "0 Blues\n1 Classic Rock\n2 Country\n3 Dance\n4 Disco\n5 Funk\n6 Grunge\n7 Hip-Hop\n8 Jazz\n9 Metal\n"
    "10 New Age\n11 Oldies\n12 Other\n13 Pop\n14 R&B\n15 Rap\n16 Reggae\n17 Rock\n18 Techno\n"
    "19 Industrial\n20 Alternative\n21 Ska\n22 Death Metal\n23 Pranks\n24 Soundtrack\n25 Euro -Techno\n"
    "26 Ambient\n27 Trip -Hop\n28 Vocal\n29 Jazz Funk\n30 Fusion\n31 Trance\n32 Classical\n"
    "33 Instrumental\n34 Acid\n35 House\n36 Game\n37 Sound Clip\n38 Gospel\n39 Noise\n"
    "40 Alternative Rock\n41 Bass\n42 Soul\n43 Punk\n44 Space\n45 Meditative\n46 Instrumental Pop\n"
    "47 Instrumental Rock\n48 Ethnic\n49 Gothic\n50 Darkwave\n51 Techno -Industrial\n52 Electronic\n"
    "53 Pop -Folk\n54 Eurodance\n55 Dream\n56 Southern Rock\n57 Comedy\n58 Cult\n59 Gangsta\n60 Top 40\n"
    "61 Christian Rap\n62 Pop/Funk\n63 Jungle\n64 Native US\n65 Cabaret\n66 New Wave\n67 Psychadelic\n"
    "68 Rave\n69 Showtunes\n70 Trailer\n71 Lo -Fi\n72 Tribal\n73 Acid Punk\n74 Acid Jazz\n75 Polka\n"
    "76 Retro\n77 Musical\n78 Rock & Roll\n79 Hard Rock\n80 Folk\n81 Folk -Rock\n82 National Folk\n"
    "83 Swing\n84 Fast Fusion\n85 Bebob\n86 Latin\n87 Revival\n88 Celtic\n89 Bluegrass\n90 Avantgarde\n"
    "91 Gothic Rock\n92 Progressive Rock\n93 Psychedelic Rock\n94 Symphonic Rock\n95 Slow Rock\n"
    "96 Big Band\n97 Chorus\n98 Easy Listening\n99 Accoustic\n100 Humour\n101 Speech\n102 Chanson\n"
    "103 Opera\n104 Chamber Music\n105 Sonata\n106 Symphony\n107 BootyBass\n108 Primus\n109 Porn Groove\n"
    "110 Satire\n111 Slow Jam\n112 Club\n113 Tango\n114 Samba\n115 Folklore\n116 Ballad\n"
    "117 Power Ballad\n118 Rhytmic Soul\n119 Freestyle\n120 Duet\n121 Punk Rock\n122 Drum Solo\n"
    "123 Acapella\n124 Euro-House\n125 Dance Hall\n126 Goa\n127 Drum & Bass\n128 Club-House\n"
    "129 Hardcore\n130 Terror\n131 Indie\n132 BritPop\n133 Negerpunk\n134 Polsk Punk\n135 Beat\n"
    "136 Christian Gangsta Rap\n137 Heavy Metal\n138 Black Metal\n139 Crossover\n"
    "140 Contemporary Christian\n141 Christian Rock\n142 Merengue\n143 Salsa\n144 Trash Metal\n"
    "145 Anime\n146 Jpop\n147 Synthpop\n255 <Undefined>\n";

std::string everyRow() {
    std::string rows;
    for (const auto& [number, name] : kGenreTable) rows.append(std::to_string(number)).append(" ").append(name) += '\n';
    return rows;
}

TEST(GenreTable, HoldsExactlyTheseNamesInThisOrder) { EXPECT_EQ(everyRow(), kEveryRow); }

// Differs from the usual lists on purpose: hosts look these spellings up.
TEST(GenreTable, OddSpellingsAreKept) {
    EXPECT_EQ(genreName(25), "Euro -Techno");
    EXPECT_EQ(genreName(67), "Psychadelic");
    EXPECT_EQ(genreName(85), "Bebob");
    EXPECT_EQ(genreName(99), "Accoustic");
    EXPECT_EQ(genreName(118), "Rhytmic Soul");
}

TEST(GenreTable, ANumberOutsideTheTableHasNoName) {
    for (const int number : {-32768, -1, 148, 200, 254, 256, 32767}) {
        EXPECT_EQ(genreName(number), "") << number;
        EXPECT_FALSE(genreOffset(number)) << number;
    }
}

TEST(GenreTable, TheUndefinedGenreStandsLast) {
    EXPECT_EQ(genreOffset(255), kGenreTable.size() - 1);
    EXPECT_EQ(genreOffset(147), kGenreTable.size() - 2);
    EXPECT_EQ(genreName(255), "<Undefined>");
}

} // namespace
} // namespace corvane::genretable_test
