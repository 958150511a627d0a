#include "corvane/id3v230/FrameFields.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace corvane {

namespace {

using enum ID3_FieldID;

constexpr std::array kData{ID3FN_DATA};
constexpr std::array kText{ID3FN_TEXTENC, ID3FN_TEXT};
constexpr std::array kUserText{ID3FN_TEXTENC, ID3FN_DESCRIPTION, ID3FN_TEXT};
constexpr std::array kComment{ID3FN_TEXTENC, ID3FN_LANGUAGE, ID3FN_DESCRIPTION, ID3FN_TEXT};
constexpr std::array kTerms{ID3FN_TEXTENC, ID3FN_LANGUAGE, ID3FN_TEXT};
constexpr std::array kUrl{ID3FN_URL};
constexpr std::array kUserUrl{ID3FN_TEXTENC, ID3FN_DESCRIPTION, ID3FN_URL};
constexpr std::array kOwnedData{ID3FN_OWNER, ID3FN_DATA};
constexpr std::array kRegistration{ID3FN_OWNER, ID3FN_ID, ID3FN_DATA};
constexpr std::array kCounter{ID3FN_COUNTER};
constexpr std::array kPopularimeter{ID3FN_EMAIL, ID3FN_RATING, ID3FN_COUNTER};
constexpr std::array kSyncedLyrics{ID3FN_TEXTENC,     ID3FN_LANGUAGE,    ID3FN_TIMESTAMPFORMAT,
                                   ID3FN_CONTENTTYPE, ID3FN_DESCRIPTION, ID3FN_DATA};
// The image format is a field of ID3v2.2; it takes no bytes here.
constexpr std::array kPicture{ID3FN_TEXTENC,     ID3FN_IMAGEFORMAT, ID3FN_MIMETYPE,
                              ID3FN_PICTURETYPE, ID3FN_DESCRIPTION, ID3FN_DATA};
constexpr std::array kObject{ID3FN_TEXTENC, ID3FN_MIMETYPE, ID3FN_FILENAME, ID3FN_DESCRIPTION, ID3FN_DATA};
constexpr std::array kLink{ID3FN_ID, ID3FN_URL, ID3FN_TEXT};

constexpr std::size_t index(ID3_FrameID frame) { return static_cast<std::size_t>(frame); }

using Table = std::array<FrameFields, index(ID3_FrameID::ID3FID_METACOMPRESSION) + 1>;

constexpr void fill(Table& table, ID3_FrameID first, ID3_FrameID last, const FrameFields& fields) {
    std::fill(table.begin() + index(first), table.begin() + index(last) + 1, fields);
}

constexpr Table tableOfAll() {
    using enum ID3_FrameID;
    Table table{};
    table.fill({kData});
    fill(table, ID3FID_ALBUM, ID3FID_YEAR, {kText, ID3FN_TEXT}); // all T frames, TXXX set right below
    fill(table, ID3FID_WWWCOMMERCIALINFO, ID3FID_WWWPUBLISHER, {kUrl, ID3FN_URL});
    const auto set = [&table](ID3_FrameID frame, const FrameFields& fields) { table[index(frame)] = fields; };
    set(ID3FID_INVOLVEDPEOPLE, {kText, ID3FN_TEXT});
    set(ID3FID_USERTEXT, {kUserText, ID3FN_TEXT});
    set(ID3FID_COMMENT, {kComment, ID3FN_TEXT});
    set(ID3FID_UNSYNCEDLYRICS, {kComment, ID3FN_TEXT});
    set(ID3FID_TERMSOFUSE, {kTerms, ID3FN_TEXT});
    set(ID3FID_LINKEDINFO, {kLink, ID3FN_TEXT});
    set(ID3FID_WWWUSER, {kUserUrl, ID3FN_URL});
    set(ID3FID_UNIQUEFILEID, {kOwnedData, ID3FN_DATA});
    set(ID3FID_SYNCEDLYRICS, {kSyncedLyrics, ID3FN_DATA});
    set(ID3FID_PLAYCOUNTER, {kCounter, ID3FN_COUNTER});
    set(ID3FID_PRIVATE, {kOwnedData});
    set(ID3FID_CRYPTOREG, {kRegistration});
    set(ID3FID_GROUPINGREG, {kRegistration});
    set(ID3FID_POPULARIMETER, {kPopularimeter});
    set(ID3FID_PICTURE, {kPicture});
    set(ID3FID_GENERALOBJECT, {kObject});
    return table;
}

constexpr Table kFields = tableOfAll();

} // namespace

FrameFields fieldsOf(ID3_FrameID frame) { return kFields[index(frame) < kFields.size() ? index(frame) : 0]; }

bool hasField(ID3_FrameID frame, ID3_FieldID field) {
    const auto fields = fieldsOf(frame).inOrder;
    return std::find(fields.begin(), fields.end(), field) != fields.end();
}

} // namespace corvane
