#include "corvane/id3v230/FrameTextEncoding.h"

#include "tests/support/ByteBuilder.h"

#include <gtest/gtest.h>

namespace corvane::frametextencoding_test {
namespace {

using namespace test;

TEST(FrameTextEncoding, IsOneByteACharacterWhereOtherReadersSeeTheSame) {
    for (const char* text : {"", "Abc", "\x01\t\x7F", "caf\u00E9", "\u00A0\u00FF"}) {
        EXPECT_EQ(encodingFor(text), TextEncoding::CodePage) << text;
    }
    for (const char* text : {"\u0080", "\u009F", "\u20AC", "\u201Cquoted\u201D", "\u65E5\u672C\u8A9E",
                             "\u041F\u0440\u0438\u0432\u0435\u0442", "\U0001F600", "broken \xFF"}) {
        EXPECT_EQ(encodingFor(text), TextEncoding::Utf16) << text;
    }
}

ByteArray valuesOf(std::string_view text, TextEncoding encoding) {
    ByteArray bytes;
    appendValues(bytes, text, encoding);
    return bytes;
}

TEST(FrameTextEncoding, WritesTheBytesOfTheFormat) {
    EXPECT_EQ(valuesOf("caf\u00E9", TextEncoding::CodePage), (ByteArray{'c', 'a', 'f', 0xE9}));
    EXPECT_EQ(valuesOf("a\u20AC", TextEncoding::Utf16), (ByteArray{0xFF, 0xFE, 'a', 0, 0xAC, 0x20}));
    EXPECT_EQ(valuesOf("\U0001F600", TextEncoding::Utf16), (ByteArray{0xFF, 0xFE, 0x3D, 0xD8, 0x00, 0xDE}));
    EXPECT_EQ(valuesOf("\xFF", TextEncoding::Utf16), (ByteArray{0xFF, 0xFE, 0xFD, 0xFF}));
    EXPECT_EQ(valuesOf("", TextEncoding::CodePage), ByteArray());
}

TEST(FrameTextEncoding, SeparatesValuesWithTheEndOfAString) {
    const std::string text("a\0\0b", 4);
    EXPECT_EQ(valuesOf(text, TextEncoding::CodePage), (ByteArray{'a', 0, 0, 'b'}));
    EXPECT_EQ(valuesOf(text, TextEncoding::Utf16),
              (ByteArray{0xFF, 0xFE, 'a', 0, 0, 0, 0xFF, 0xFE, 0, 0, 0xFF, 0xFE, 'b', 0}));
}

} // namespace
} // namespace corvane::frametextencoding_test
