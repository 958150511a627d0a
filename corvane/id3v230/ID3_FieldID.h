// Numbers of the fields of a frame, under the names that id3lib gives them.
#pragma once

#include <cstdint>

namespace corvane {

enum class ID3_FieldID : std::int32_t {
    ID3FN_NOFIELD = 0,          // no field
    ID3FN_TEXTENC = 1,          // the encoding of the texts
    ID3FN_TEXT = 2,             // the text
    ID3FN_URL = 3,              // the address
    ID3FN_DATA = 4,             // bytes
    ID3FN_DESCRIPTION = 5,      // the description
    ID3FN_OWNER = 6,            // the owner
    ID3FN_EMAIL = 7,            // an e-mail address
    ID3FN_RATING = 8,           // the rating of POPM
    ID3FN_FILENAME = 9,         // the file name of GEOB
    ID3FN_LANGUAGE = 10,        // three letters
    ID3FN_PICTURETYPE = 11,     // what the picture shows
    ID3FN_IMAGEFORMAT = 12,     // the image format of ID3v2.2
    ID3FN_MIMETYPE = 13,        // the MIME type
    ID3FN_COUNTER = 14,         // how often it was played
    ID3FN_ID = 15,              // a byte or letters that name something
    ID3FN_VOLUMEADJ = 16,       // which volumes are raised
    ID3FN_NUMBITS = 17,         // bits that a volume takes
    ID3FN_VOLCHGRIGHT = 18,     // change of the right volume
    ID3FN_VOLCHGLEFT = 19,      // change of the left volume
    ID3FN_PEAKVOLRIGHT = 20,    // peak of the right volume
    ID3FN_PEAKVOLLEFT = 21,     // peak of the left volume
    ID3FN_TIMESTAMPFORMAT = 22, // unit of times
    ID3FN_CONTENTTYPE = 23,     // kind of a synchronised text
    ID3FN_LASTFIELDID = 24      // the highest number; no field
};

} // namespace corvane
