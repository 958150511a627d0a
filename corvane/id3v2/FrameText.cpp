#include "corvane/id3v2/FrameText.h"

#include "corvane/id3v2/ByteHelpers.h"
#include "corvane/platform/ByteReader.h"

#include <algorithm>
#include <array>

namespace corvane {

namespace {

// Where the search for the 0 byte that ends the leading fields begins, and how many bytes behind it a second such
// search begins (none: 0).
struct LeadingFields {
    FrameId id;
    std::size_t searchFrom;
    std::size_t thenSkip;
};
constexpr std::array<LeadingFields, 5> kLeadingFields{{
    {"APIC", 1, 1}, // encoding, MIME type; picture type, description
    {"COMM", 4, 0}, // encoding, language, description
    {"SYLT", 6, 0}, // encoding, language, time-stamp format, content type, description
    {"USLT", 4, 0}, // encoding, language, description
    {"WXXX", 1, 0}, // encoding, description
}};

enum Encoding : std::uint8_t { kCodePage = 0, kUtf16 = 1 };

// What stands behind the first 0 byte at or after `from`; nothing when there is none.
std::optional<Bytes> behindZero(Bytes bytes, std::size_t from) {
    ByteReader reader = readerAt(bytes, from);
    const Bytes rest = reader.takeRest();
    const auto zero = std::find(rest.begin(), rest.end(), 0);
    if (zero == rest.end()) return std::nullopt;
    return rest.subspan(static_cast<std::size_t>(zero - rest.begin()) + 1);
}

std::string codePageTextWithout(Bytes bytes, std::uint8_t highestDropped) {
    ByteArray kept;
    kept.reserve(bytes.size());
    std::copy_if(bytes.begin(), bytes.end(), std::back_inserter(kept),
                 [=](auto byte) { return byte > highestDropped; });
    return AnsiBytesToString(kept);
}

std::string textOfTextFrame(Bytes payload) {
    switch (payload.front()) {
    case kCodePage:
        return AnsiBytesToString(payload.subspan(1));
    case kUtf16:
        return Utf16BytesToString(payload.subspan(1));
    default:
        return codePageTextWithout(payload, 0);
    }
}

std::string textBehindHeader(FrameId id, Bytes payload) {
    switch (payload.front()) {
    case kCodePage:
        return AnsiBytesToString(removeHeader(id, payload));
    case kUtf16:
        return Utf16BytesToString(removeHeader(id, payload));
    default:
        return codePageTextWithout(payload, 2);
    }
}

} // namespace

Bytes removeHeader(FrameId id, Bytes payload) {
    const auto fields =
        std::find_if(kLeadingFields.begin(), kLeadingFields.end(), [id](const auto& row) { return row.id == id; });
    if (fields == kLeadingFields.end()) return payload;
    auto rest = behindZero(payload, fields->searchFrom);
    if (rest && fields->thenSkip > 0) rest = behindZero(*rest, fields->thenSkip);
    return rest.value_or(payload);
}

std::string textData(FrameId id, bool encrypted, Bytes payload) {
    if (encrypted || payload.empty()) return {};
    if (id.first() == 'T') return textOfTextFrame(payload);
    if (id == FrameId("PCNT")) return std::to_string(BytesToLong(payload, 0, 4));
    if (id == FrameId("COMM") || id == FrameId("USLT") || id == FrameId("SYLT")) return textBehindHeader(id, payload);
    if (id == FrameId("APIC")) return codePageTextWithout(payload, 2);
    return {};
}

std::string textDataOfVersion22(FrameId id, Bytes payload) {
    const bool isText = id.first() == 'T' && !payload.empty() && payload.front() <= kUtf16;
    return isText ? textOfTextFrame(payload) : std::string();
}

} // namespace corvane
