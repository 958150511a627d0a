#include "corvane/id3v230/FrameNames.h"

#include <gtest/gtest.h>

#include <string>

namespace corvane::framenames_test {
namespace {

using enum enumShortOrLongText;

// Every row as it is published: number, letters, title.
constexpr std::string_view kEveryRow = R"(0 ?)"
                                       R"(??? No known frame
1 AENC Audio encryption
2 APIC Attached picture
3 COMM Comments
4 COMR Commercial frame
5 ENCR Encryption method registration
6 EQUA Equalization
7 ETCO Event timing codes
8 GEOB General encapsulated object
9 GRID Group identification registration
10 IPLS Involved people list
11 LINK Linked information
12 MCDI Music CD identifier
13 MLLT MPEG location lookup table
14 OWNE Ownership frame
15 PRIV Private frame
16 PCNT Play counter
17 POPM Popularimeter
18 POSS Position synchronisation frame
19 RBUF Recommended buffer size
20 RVAD Relative volume adjustment
21 RVRB Reverb
22 SYLT Synchronized lyric/text
23 SYTC Synchronized tempo codes
24 TALB Album/Movie/Show title
25 TBPM BPM (beats per minute)
26 TCOM Composer
27 TCON Content type
28 TCOP Copyright message
29 TDAT Date
30 TDLY Playlist delay
31 TENC Encoded by
32 TEXT Lyricist/Text writer
33 TFLT File type
34 TIME Time
35 TIT1 Content group description
36 TIT2 Title/songname/content description
37 TIT3 Subtitle/Description refinement
38 TKEY Initial key
39 TLAN Language(s)
40 TLEN Length
41 TMED Media type
42 TOAL Original album/movie/show title
43 TOFN Original filename
44 TOLY Original lyricist(s)/text writer(s)
45 TOPE Original artist(s)/performer(s)
46 TORY Original release year
47 TOWN File owner/licensee
48 TPE1 Lead performer(s)/Soloist(s)
49 TPE2 Band/orchestra/accompaniment
50 TPE3 Conductor/performer refinement
51 TPE4 Interpreted, remixed, or otherwise modified by
52 TPOS Part of a set
53 TPUB Publisher
54 TRCK Track number/Position in set
55 TRDA Recording dates
56 TRSN Internet radio station name
57 TRSO Internet radio station owner
58 TSIZ Size
59 TSRC ISRC (international standard recording code)
60 TSSE Software/Hardware and settings used for encoding
61 TXXX User defined text information
62 TYER Year
63 UFID Unique file identifier
64 USER Terms of use
65 USLT Unsynchronized lyric/text transcription
66 WCOM Commercial information
67 WCOP Copyright/Legal infromation
68 WOAF Official audio file webpage
69 WOAR Official artist/performer webpage
70 WOAS Official audio source webpage
71 WORS Official internet radio station homepage
72 WPAY Payment
73 WPUB Official publisher webpage
74 WXXX User defined URL link
75      Encrypted meta frame (id3v2.2.x)
76      Compressed meta frame (id3v2.2.1)
)";

std::string row(std::int32_t frame) {
    return std::to_string(frame)
        .append(" ")
        .append(FrameName(frame, eslSHORT).value_or("none"))
        .append(" ")
        .append(FrameName(frame, eslLONG).value_or("none"))
        .append("\n");
}

TEST(FrameNames, HoldExactlyTheseRows) {
    std::string rows;
    for (std::int32_t frame = 0; frame <= 76; ++frame) rows += row(frame);
    EXPECT_EQ(rows, kEveryRow);
}

TEST(FrameNames, MinusOneIsASecondNumberOfTheLeadPerformer) {
    EXPECT_EQ(row(-1), "-1 TPE1 Lead performer(s)/Soloist(s)\n");
}

TEST(FrameNames, ANumberWithoutAFrameHasEmptyNames) {
    for (const std::int32_t frame : {77, 78, 32767, 2'147'483'647, -2, -32768}) {
        EXPECT_EQ(FrameName(frame, eslSHORT), "") << frame;
        EXPECT_EQ(FrameName(frame, eslLONG), "") << frame;
    }
}

TEST(FrameNames, AnyOtherChoiceOfNameGivesNothing) {
    for (const int choice : {-1, 0, 3}) EXPECT_FALSE(FrameName(36, static_cast<enumShortOrLongText>(choice)));
}

TEST(FrameNames, EveryFrameIsFoundByItsLetters) {
    for (std::int32_t frame = 1; frame <= 74; ++frame) {
        EXPECT_EQ(static_cast<std::int32_t>(frameNumberOf(*FrameName(frame, eslSHORT))), frame);
    }
}

TEST(FrameNames, LettersOfNoFrameHaveTheNumberOfNoFrame) {
    for (const char* letters : {"", "????", "    ", "TDRC", "tit2", "TIT", "TIT22"}) {
        EXPECT_EQ(frameNumberOf(letters), ID3_FrameID::ID3FID_NOFRAME) << letters;
    }
}

} // namespace
} // namespace corvane::framenames_test
