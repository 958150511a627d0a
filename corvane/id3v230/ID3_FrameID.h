// Numbers of the frames of ID3v2.3, under the names that id3lib gives them. The numbers are this interface's own: those
// of an installed id3lib differ.
#pragma once

#include <cstdint>

namespace corvane {

enum class ID3_FrameID : std::int32_t {
    ID3FID_NOFRAME = 0,            // no known frame
    ID3FID_AUDIOCRYPTO = 1,        // AENC
    ID3FID_PICTURE = 2,            // APIC
    ID3FID_COMMENT = 3,            // COMM
    ID3FID_COMMERCIAL = 4,         // COMR
    ID3FID_CRYPTOREG = 5,          // ENCR
    ID3FID_EQUALIZATION = 6,       // EQUA
    ID3FID_EVENTTIMING = 7,        // ETCO
    ID3FID_GENERALOBJECT = 8,      // GEOB
    ID3FID_GROUPINGREG = 9,        // GRID
    ID3FID_INVOLVEDPEOPLE = 10,    // IPLS
    ID3FID_LINKEDINFO = 11,        // LINK
    ID3FID_CDID = 12,              // MCDI
    ID3FID_MPEGLOOKUP = 13,        // MLLT
    ID3FID_OWNERSHIP = 14,         // OWNE
    ID3FID_PRIVATE = 15,           // PRIV
    ID3FID_PLAYCOUNTER = 16,       // PCNT
    ID3FID_POPULARIMETER = 17,     // POPM
    ID3FID_POSITIONSYNC = 18,      // POSS
    ID3FID_BUFFERSIZE = 19,        // RBUF
    ID3FID_VOLUMEADJ = 20,         // RVAD
    ID3FID_REVERB = 21,            // RVRB
    ID3FID_SYNCEDLYRICS = 22,      // SYLT
    ID3FID_SYNCEDTEMPO = 23,       // SYTC
    ID3FID_ALBUM = 24,             // TALB
    ID3FID_BPM = 25,               // TBPM
    ID3FID_COMPOSER = 26,          // TCOM
    ID3FID_CONTENTTYPE = 27,       // TCON
    ID3FID_COPYRIGHT = 28,         // TCOP
    ID3FID_DATE = 29,              // TDAT
    ID3FID_PLAYLISTDELAY = 30,     // TDLY
    ID3FID_ENCODEDBY = 31,         // TENC
    ID3FID_LYRICIST = 32,          // TEXT
    ID3FID_FILETYPE = 33,          // TFLT
    ID3FID_TIME = 34,              // TIME
    ID3FID_CONTENTGROUP = 35,      // TIT1
    ID3FID_TITLE = 36,             // TIT2
    ID3FID_SUBTITLE = 37,          // TIT3
    ID3FID_INITIALKEY = 38,        // TKEY
    ID3FID_LANGUAGE = 39,          // TLAN
    ID3FID_SONGLEN = 40,           // TLEN
    ID3FID_MEDIATYPE = 41,         // TMED
    ID3FID_ORIGALBUM = 42,         // TOAL
    ID3FID_ORIGFILENAME = 43,      // TOFN
    ID3FID_ORIGLYRICIST = 44,      // TOLY
    ID3FID_ORIGARTIST = 45,        // TOPE
    ID3FID_ORIGYEAR = 46,          // TORY
    ID3FID_FILEOWNER = 47,         // TOWN
    ID3FID_LEADARTIST = 48,        // TPE1
    ID3FID_BAND = 49,              // TPE2
    ID3FID_CONDUCTOR = 50,         // TPE3
    ID3FID_MIXARTIST = 51,         // TPE4
    ID3FID_PARTINSET = 52,         // TPOS
    ID3FID_PUBLISHER = 53,         // TPUB
    ID3FID_TRACKNUM = 54,          // TRCK
    ID3FID_RECORDINGDATES = 55,    // TRDA
    ID3FID_NETRADIOSTATION = 56,   // TRSN
    ID3FID_NETRADIOOWNER = 57,     // TRSO
    ID3FID_SIZE = 58,              // TSIZ
    ID3FID_ISRC = 59,              // TSRC
    ID3FID_ENCODERSETTINGS = 60,   // TSSE
    ID3FID_USERTEXT = 61,          // TXXX
    ID3FID_YEAR = 62,              // TYER
    ID3FID_UNIQUEFILEID = 63,      // UFID
    ID3FID_TERMSOFUSE = 64,        // USER
    ID3FID_UNSYNCEDLYRICS = 65,    // USLT
    ID3FID_WWWCOMMERCIALINFO = 66, // WCOM
    ID3FID_WWWCOPYRIGHT = 67,      // WCOP
    ID3FID_WWWAUDIOFILE = 68,      // WOAF
    ID3FID_WWWARTIST = 69,         // WOAR
    ID3FID_WWWAUDIOSOURCE = 70,    // WOAS
    ID3FID_WWWRADIOPAGE = 71,      // WORS
    ID3FID_WWWPAYMENT = 72,        // WPAY
    ID3FID_WWWPUBLISHER = 73,      // WPUB
    ID3FID_WWWUSER = 74,           // WXXX
    ID3FID_METACRYPTO = 75,        // encrypted frame of ID3v2.2
    ID3FID_METACOMPRESSION = 76,   // compressed frame of ID3v2.2
    // Other names of two of them.
    ID3EZFID_Artist = ID3FID_LEADARTIST,
    ID3EZFID_Genre = ID3FID_CONTENTTYPE
};

} // namespace corvane
