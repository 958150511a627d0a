#include "corvane/id3v230/ID3_FieldID.h"

#include "python/Bindings.h"
#include "python/Enumeration.h"

namespace corvane::python {

void bindID3_FieldID(py::module_& corvane) {
    using enum ID3_FieldID;
    bindEnumeration<ID3_FieldID>(corvane, "ID3_FieldID",
                                 {{"ID3FN_NOFIELD", ID3FN_NOFIELD},
                                  {"ID3FN_TEXTENC", ID3FN_TEXTENC},
                                  {"ID3FN_TEXT", ID3FN_TEXT},
                                  {"ID3FN_URL", ID3FN_URL},
                                  {"ID3FN_DATA", ID3FN_DATA},
                                  {"ID3FN_DESCRIPTION", ID3FN_DESCRIPTION},
                                  {"ID3FN_OWNER", ID3FN_OWNER},
                                  {"ID3FN_EMAIL", ID3FN_EMAIL},
                                  {"ID3FN_RATING", ID3FN_RATING},
                                  {"ID3FN_FILENAME", ID3FN_FILENAME},
                                  {"ID3FN_LANGUAGE", ID3FN_LANGUAGE},
                                  {"ID3FN_PICTURETYPE", ID3FN_PICTURETYPE},
                                  {"ID3FN_IMAGEFORMAT", ID3FN_IMAGEFORMAT},
                                  {"ID3FN_MIMETYPE", ID3FN_MIMETYPE},
                                  {"ID3FN_COUNTER", ID3FN_COUNTER},
                                  {"ID3FN_ID", ID3FN_ID},
                                  {"ID3FN_VOLUMEADJ", ID3FN_VOLUMEADJ},
                                  {"ID3FN_NUMBITS", ID3FN_NUMBITS},
                                  {"ID3FN_VOLCHGRIGHT", ID3FN_VOLCHGRIGHT},
                                  {"ID3FN_VOLCHGLEFT", ID3FN_VOLCHGLEFT},
                                  {"ID3FN_PEAKVOLRIGHT", ID3FN_PEAKVOLRIGHT},
                                  {"ID3FN_PEAKVOLLEFT", ID3FN_PEAKVOLLEFT},
                                  {"ID3FN_TIMESTAMPFORMAT", ID3FN_TIMESTAMPFORMAT},
                                  {"ID3FN_CONTENTTYPE", ID3FN_CONTENTTYPE},
                                  {"ID3FN_LASTFIELDID", ID3FN_LASTFIELDID}},
                                 "Numbers of the fields of a frame, under the names that id3lib gives them.");
}

} // namespace corvane::python
