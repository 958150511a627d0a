// Numbers of the fields of a frame, under the names that id3lib gives them.
#pragma once

#include <cstdint>

namespace corvane {

enum class ID3_FieldID : std::int32_t {
    ID3FN_NOFIELD = 0,
    ID3FN_TEXTENC = 1,
    ID3FN_TEXT = 2,
    ID3FN_URL = 3,
    ID3FN_DATA = 4,
    ID3FN_DESCRIPTION = 5,
    ID3FN_OWNER = 6,
    ID3FN_EMAIL = 7,
    ID3FN_RATING = 8,
    ID3FN_FILENAME = 9,
    ID3FN_LANGUAGE = 10,
    ID3FN_PICTURETYPE = 11,
    ID3FN_IMAGEFORMAT = 12,
    ID3FN_MIMETYPE = 13,
    ID3FN_COUNTER = 14,
    ID3FN_ID = 15,
    ID3FN_VOLUMEADJ = 16,
    ID3FN_NUMBITS = 17,
    ID3FN_VOLCHGRIGHT = 18,
    ID3FN_VOLCHGLEFT = 19,
    ID3FN_PEAKVOLRIGHT = 20,
    ID3FN_PEAKVOLLEFT = 21,
    ID3FN_TIMESTAMPFORMAT = 22,
    ID3FN_CONTENTTYPE = 23,
    ID3FN_LASTFIELDID = 24
};

} // namespace corvane
