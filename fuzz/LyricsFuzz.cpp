// Any bytes, taken as a Lyrics3 body and as the end of a file: the fields are the body cut into pieces, nothing added
// and nothing lost, and an ID names one field only.
#include "corvane/lyrics/LyricsFields.h"
#include "corvane/lyrics/LyricsFormat.h"
#include "corvane/lyrics/LyricsV200FieldInternals.h"
#include "corvane/platform/CodePage.h"

#include "tests/support/LyricsBuilder.h"

#include <algorithm>
#include <cstdlib>
#include <string>

namespace {

using namespace corvane;

void require(bool holds) {
    if (!holds) std::abort();
}

std::string textOf(Bytes bytes) { return {bytes.begin(), bytes.end()}; }

void splitBody(Bytes body) {
    ByteReader rest(body);
    LyricsFields fields;
    std::size_t added = 0;
    while (rest.left() > 0) {
        const std::size_t before = rest.left();
        const auto field = takeLyricsField(rest);
        if (!field) break;
        const auto told = static_cast<std::size_t>(field->size);
        require(field->id.size() == 3 && field->size >= 0 && field->size <= 99999);
        require(field->data.size() == told || (field->data.size() < told && rest.left() == 0));
        const std::size_t taken = before - rest.left();
        const bool endsInsideTheLength = rest.left() == 0 && taken < 8 && field->data.empty();
        require(taken == 8 + field->data.size() || endsInsideTheLength);

        const bool isNew = fields.find(decodeCodePage(field->id)) == nullptr;
        require(fields.add(Internals<LyricsV200Field>::of(decodeCodePage(field->id), field->size, {})) == isNew);
        if (isNew) ++added;
        require(fields.count() == added);
    }
}

// What the bytes make when they are the data of a field and the field is all that there is.
void splitOwnField(Bytes data) {
    const Bytes kept = data.first(std::min<std::size_t>(data.size(), 99999));
    const ByteArray tag = test::LyricsBuilder().field("LYR", textOf(kept)).done();
    const auto size = lyricsBodySize(Bytes(tag).last(kLyricsTrailerSize));
    require(size && static_cast<std::size_t>(*size) + kLyricsTrailerSize == tag.size());
    ByteReader rest(Bytes(tag).first(static_cast<std::size_t>(*size)).subspan(kLyricsBeginSize));
    const auto field = takeLyricsField(rest);
    require(field && std::ranges::equal(field->data, kept) && rest.left() == 0);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Bytes bytes{data, size};
    const Bytes trailer = bytes.last(std::min(bytes.size(), kLyricsTrailerSize));
    const auto bodySize = lyricsBodySize(trailer);
    require(!bodySize || (*bodySize >= 0 && *bodySize <= 999999));
    require(!bodySize || lyricsVersionOf(trailer) != ELyricsVersionConstants::lvcUnknown);
    splitBody(bytes);
    splitOwnField(bytes);
    return 0;
}
