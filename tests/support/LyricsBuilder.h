// Lyrics3 tags, right and wrong ones.
#pragma once

#include "corvane/platform/Bytes.h"

#include "tests/support/ByteBuilder.h"

#include <string_view>

namespace corvane::test {

// A v2.00 tag. Texts are bytes as they stand.
class LyricsBuilder {
public:
    // A field with the length that its data has.
    LyricsBuilder& field(std::string_view id, std::string_view data);
    // A field that tells any length.
    LyricsBuilder& field(std::string_view id, std::string_view length, std::string_view data);
    // Bytes that are no field.
    LyricsBuilder& raw(std::string_view bytes);

    // "LYRICSBEGIN" and the fields.
    ByteArray body() const;
    // The whole tag with the size that its body has, or with six characters of any kind in the size's place.
    ByteArray done() const;
    ByteArray done(std::string_view size) const;

private:
    ByteBuilder fields_;
};

// A v1.00 tag.
ByteArray lyricsV100(std::string_view lyrics);

} // namespace corvane::test
