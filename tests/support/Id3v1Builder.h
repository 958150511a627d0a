// An ID3v1 or ID3v1.1 record, written down field by field.
#pragma once

#include "corvane/platform/Bytes.h"

#include <cstddef>
#include <string_view>

namespace corvane::test {

// Texts are bytes as they stand; what a text does not fill is 0. A longer text runs on into the next field, as long as
// the record lasts: later calls write over earlier ones.
class Id3v1Builder {
public:
    static constexpr std::size_t kSize = 128;

    Id3v1Builder& title(std::string_view bytes) { return put(3, bytes); }
    Id3v1Builder& artist(std::string_view bytes) { return put(33, bytes); }
    Id3v1Builder& album(std::string_view bytes) { return put(63, bytes); }
    Id3v1Builder& year(std::string_view bytes) { return put(93, bytes); }
    Id3v1Builder& comment(std::string_view bytes) { return put(97, bytes); }
    Id3v1Builder& track(unsigned number); // makes it ID3v1.1 when the number is not 0
    Id3v1Builder& genre(unsigned number);
    Id3v1Builder& put(std::size_t offset, std::string_view bytes);

    const ByteArray& done() const { return record_; }

private:
    ByteArray record_ = emptyRecord(); // "TAG", empty texts, genre 255

    static ByteArray emptyRecord();
};

} // namespace corvane::test
