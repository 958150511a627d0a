// Text in frames as the published formats encode it (ID3v2.4.0 section 4, ID3v2.3.0 section 3.3).
#pragma once

#include "corvane/platform/ByteReader.h"
#include "corvane/platform/Bytes.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

enum class TextEncoding : std::uint8_t {
    CodePage = 0,       // one byte a character, ended by 00
    Utf16 = 1,          // with a byte-order mark, ended by 00 00
    Utf16BigEndian = 2, // without one
    Utf8 = 3            // ended by 00
};

// Takes the strings of one frame. Writers are not all strict: a byte-order mark counts wherever a string has one, and a
// string without one has the order of the string before it (the first: little-endian in encoding 1, big-endian in 2).
class EncodedTextReader {
public:
    // Takes the encoding byte. Nothing when there is none or it has no meaning.
    static std::optional<EncodedTextReader> begin(ByteReader& payload);

    // Whether the encoding is UTF-16 and what is left begins with a byte-order mark.
    bool isMarkedUtf16(ByteReader payload) const;

    // Takes a string and its end. Without the end nothing is taken and the string is "".
    std::string takeTerminated(ByteReader& payload);
    // All that is left: the strings that say something, in order. What is left counts as the end of the last one.
    std::vector<std::string> takeValues(ByteReader& payload);
    // The same, joined by "; ".
    std::string takeJoinedValues(ByteReader& payload);

private:
    explicit EncodedTextReader(TextEncoding encoding)
        : encoding_(encoding), bigEndian_(encoding == TextEncoding::Utf16BigEndian) {}

    template <class Take>
    void takeEachValue(ByteReader& payload, Take&& take);
    std::size_t unitSize() const;
    std::size_t lengthOfString(Bytes bytes) const;
    std::string decoded(Bytes string);
    std::string decodedUtf16(Bytes string);

    TextEncoding encoding_;
    bool bigEndian_;
};

// The strings joined by "; ".
std::string joinedValues(const std::vector<std::string>& values);

} // namespace corvane
