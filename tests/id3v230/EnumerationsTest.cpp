// The numbers under which hosts know frames, fields and tags.
#include "corvane/id3v230/ID3_FieldID.h"
#include "corvane/id3v230/ID3_FieldType.h"
#include "corvane/id3v230/ID3_FrameID.h"
#include "corvane/id3v230/ID3_TagType.h"
#include "corvane/id3v230/enumShortOrLongText.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>

namespace corvane::enumerations_test {
namespace {

using enum ID3_FrameID;
using enum ID3_FieldID;

// In the order of their numbers.
constexpr std::array kFrames{ID3FID_NOFRAME,
                             ID3FID_AUDIOCRYPTO,
                             ID3FID_PICTURE,
                             ID3FID_COMMENT,
                             ID3FID_COMMERCIAL,
                             ID3FID_CRYPTOREG,
                             ID3FID_EQUALIZATION,
                             ID3FID_EVENTTIMING,
                             ID3FID_GENERALOBJECT,
                             ID3FID_GROUPINGREG,
                             ID3FID_INVOLVEDPEOPLE,
                             ID3FID_LINKEDINFO,
                             ID3FID_CDID,
                             ID3FID_MPEGLOOKUP,
                             ID3FID_OWNERSHIP,
                             ID3FID_PRIVATE,
                             ID3FID_PLAYCOUNTER,
                             ID3FID_POPULARIMETER,
                             ID3FID_POSITIONSYNC,
                             ID3FID_BUFFERSIZE,
                             ID3FID_VOLUMEADJ,
                             ID3FID_REVERB,
                             ID3FID_SYNCEDLYRICS,
                             ID3FID_SYNCEDTEMPO,
                             ID3FID_ALBUM,
                             ID3FID_BPM,
                             ID3FID_COMPOSER,
                             ID3FID_CONTENTTYPE,
                             ID3FID_COPYRIGHT,
                             ID3FID_DATE,
                             ID3FID_PLAYLISTDELAY,
                             ID3FID_ENCODEDBY,
                             ID3FID_LYRICIST,
                             ID3FID_FILETYPE,
                             ID3FID_TIME,
                             ID3FID_CONTENTGROUP,
                             ID3FID_TITLE,
                             ID3FID_SUBTITLE,
                             ID3FID_INITIALKEY,
                             ID3FID_LANGUAGE,
                             ID3FID_SONGLEN,
                             ID3FID_MEDIATYPE,
                             ID3FID_ORIGALBUM,
                             ID3FID_ORIGFILENAME,
                             ID3FID_ORIGLYRICIST,
                             ID3FID_ORIGARTIST,
                             ID3FID_ORIGYEAR,
                             ID3FID_FILEOWNER,
                             ID3FID_LEADARTIST,
                             ID3FID_BAND,
                             ID3FID_CONDUCTOR,
                             ID3FID_MIXARTIST,
                             ID3FID_PARTINSET,
                             ID3FID_PUBLISHER,
                             ID3FID_TRACKNUM,
                             ID3FID_RECORDINGDATES,
                             ID3FID_NETRADIOSTATION,
                             ID3FID_NETRADIOOWNER,
                             ID3FID_SIZE,
                             ID3FID_ISRC,
                             ID3FID_ENCODERSETTINGS,
                             ID3FID_USERTEXT,
                             ID3FID_YEAR,
                             ID3FID_UNIQUEFILEID,
                             ID3FID_TERMSOFUSE,
                             ID3FID_UNSYNCEDLYRICS,
                             ID3FID_WWWCOMMERCIALINFO,
                             ID3FID_WWWCOPYRIGHT,
                             ID3FID_WWWAUDIOFILE,
                             ID3FID_WWWARTIST,
                             ID3FID_WWWAUDIOSOURCE,
                             ID3FID_WWWRADIOPAGE,
                             ID3FID_WWWPAYMENT,
                             ID3FID_WWWPUBLISHER,
                             ID3FID_WWWUSER,
                             ID3FID_METACRYPTO,
                             ID3FID_METACOMPRESSION};
constexpr std::array kFields{ID3FN_NOFIELD,
                             ID3FN_TEXTENC,
                             ID3FN_TEXT,
                             ID3FN_URL,
                             ID3FN_DATA,
                             ID3FN_DESCRIPTION,
                             ID3FN_OWNER,
                             ID3FN_EMAIL,
                             ID3FN_RATING,
                             ID3FN_FILENAME,
                             ID3FN_LANGUAGE,
                             ID3FN_PICTURETYPE,
                             ID3FN_IMAGEFORMAT,
                             ID3FN_MIMETYPE,
                             ID3FN_COUNTER,
                             ID3FN_ID,
                             ID3FN_VOLUMEADJ,
                             ID3FN_NUMBITS,
                             ID3FN_VOLCHGRIGHT,
                             ID3FN_VOLCHGLEFT,
                             ID3FN_PEAKVOLRIGHT,
                             ID3FN_PEAKVOLLEFT,
                             ID3FN_TIMESTAMPFORMAT,
                             ID3FN_CONTENTTYPE,
                             ID3FN_LASTFIELDID};

TEST(Enumerations, FramesAreNumberedFrom0To76) {
    static_assert(kFrames.size() == 77);
    for (std::size_t i = 0; i < kFrames.size(); ++i) EXPECT_EQ(static_cast<std::size_t>(kFrames[i]), i);
    EXPECT_EQ(static_cast<std::int32_t>(ID3FID_COMMENT), 3);
    EXPECT_EQ(static_cast<std::int32_t>(ID3FID_TITLE), 36);
    EXPECT_EQ(static_cast<std::int32_t>(ID3FID_WWWUSER), 74);
    EXPECT_EQ(static_cast<std::int32_t>(ID3EZFID_Artist), 48);
    EXPECT_EQ(static_cast<std::int32_t>(ID3EZFID_Genre), 27);
}

TEST(Enumerations, FieldsAreNumberedFrom0To24) {
    static_assert(kFields.size() == 25);
    for (std::size_t i = 0; i < kFields.size(); ++i) EXPECT_EQ(static_cast<std::size_t>(kFields[i]), i);
    EXPECT_EQ(static_cast<std::int32_t>(ID3FN_LASTFIELDID), 24);
}

TEST(Enumerations, FieldTypesHaveTheirNumbers) {
    EXPECT_EQ(static_cast<std::int32_t>(ID3_FieldType::ID3FTY_NONE), -1);
    EXPECT_EQ(static_cast<std::int32_t>(ID3_FieldType::ID3FTY_INTEGER), 0);
    EXPECT_EQ(static_cast<std::int32_t>(ID3_FieldType::ID3FTY_BINARY), 1);
    EXPECT_EQ(static_cast<std::int32_t>(ID3_FieldType::ID3FTY_TEXTSTRING), 2);
    EXPECT_EQ(static_cast<std::int32_t>(ID3_FieldType::ID3FTY_NUMTYPES), 3);
}

struct TagTypeRow {
    ID3_TagType type;
    std::int32_t number;
};

TEST(Enumerations, TagTypesAreBits) {
    using enum ID3_TagType;
    for (const auto& [type, number] :
         {TagTypeRow{ID3TT_NONE, 0}, TagTypeRow{ID3TT_ID3V1, 1}, TagTypeRow{ID3TT_ID3V2, 2},
          TagTypeRow{ID3TT_LYRICS3, 4}, TagTypeRow{ID3TT_LYRICS3V2, 8}, TagTypeRow{ID3TT_MUSICMATCH, 16},
          TagTypeRow{ID3TT_LYRICS, 4}, TagTypeRow{ID3TT_ID3, 3}, TagTypeRow{ID3TT_ALL, -1},
          TagTypeRow{ID3TT_PREPENDED, 2}, TagTypeRow{ID3TT_APPENDED, -3}}) {
        EXPECT_EQ(static_cast<std::int32_t>(type), number);
    }
}

TEST(Enumerations, NamesAreAskedForBy1And2) {
    EXPECT_EQ(static_cast<std::int32_t>(enumShortOrLongText::eslSHORT), 1);
    EXPECT_EQ(static_cast<std::int32_t>(enumShortOrLongText::eslLONG), 2);
}

} // namespace
} // namespace corvane::enumerations_test
