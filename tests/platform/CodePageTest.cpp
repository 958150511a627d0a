#include "corvane/platform/CodePage.h"

#include <gtest/gtest.h>

#include <numeric>

namespace corvane::codepage_test {
namespace {

TEST(CodePage, EveryByteSurvivesDecodingAndEncoding) {
    ByteArray all(256);
    std::iota(all.begin(), all.end(), std::uint8_t{0});
    const CodePageText back = encodeCodePage(decodeCodePage(all));
    EXPECT_EQ(back.bytes, all);
    EXPECT_EQ(back.replacedCount, 0U);
}

TEST(CodePage, BytesEightyToNinetyFAreTheCharactersOfWindows1252) {
    EXPECT_EQ(decodeCodePage(ByteArray{0x80, 0x99, 0x9F}), "€™Ÿ");
    EXPECT_EQ(decodeCodePage(ByteArray{0x81}), "\u0081");
    EXPECT_EQ(decodeCodePage(ByteArray{0xE9}), "é");
}

TEST(CodePage, ACharacterWithoutAPlaceBecomesAQuestionMarkAndIsCounted) {
    const CodePageText encoded = encodeCodePage("aПб€");
    EXPECT_EQ(encoded.bytes, (ByteArray{'a', '?', '?', 0x80}));
    EXPECT_EQ(encoded.replacedCount, 2U);
}

TEST(CodePage, AControlCharacterThatTheCodePageReplacesHasNoPlace) { EXPECT_FALSE(codePageByte(0x80)); }

} // namespace
} // namespace corvane::codepage_test
