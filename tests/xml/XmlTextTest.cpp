#include "corvane/xml/XmlText.h"

#include "tests/support/ByteBuilder.h"

#include <gtest/gtest.h>

namespace corvane::xmltext_test {
namespace {

using test::bytesOf;

TEST(XmlText, CharactersThatXmlForbidsAreReplaced) {
    EXPECT_EQ(xmlCharacters(std::string_view("a\0b\t\n\r\x0B\x7F", 8)), "a\uFFFDb\t\n\r\uFFFD\x7F");
    EXPECT_EQ(xmlCharacters("\xEF\xBF\xBE\xEF\xBF\xBF|\xFF|\xED\xA0\x80"), "\uFFFD\uFFFD|\uFFFD|\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(xmlCharacters("日本\xF0\x9F\x98\x80\u0085"), "日本\xF0\x9F\x98\x80\u0085");
}

TEST(XmlText, ALatin1DocumentWritesOtherCharactersAsReferences) {
    EXPECT_EQ(latin1Document("<a v=\"é€日\u0085\xF0\x9F\x98\x80\"/>"), "<a v=\"\xE9&#8364;&#26085;&#133;&#128512;\"/>");
}

struct Case {
    const char* name;
    const char* bytes;
    const char* text;
};

class Base64 : public testing::TestWithParam<Case> {};

TEST_P(Base64, IsThatOfTheStandard) { EXPECT_EQ(base64(bytesOf(GetParam().bytes)), GetParam().text); }

INSTANTIATE_TEST_SUITE_P(VectorsOfRfc4648, Base64,
                         testing::Values(Case{"Nothing", "", ""}, Case{"OneByte", "f", "Zg=="},
                                         Case{"TwoBytes", "fo", "Zm8="}, Case{"ThreeBytes", "foo", "Zm9v"},
                                         Case{"SixBytes", "foobar", "Zm9vYmFy"}),
                         [](const auto& tested) { return tested.param.name; });

} // namespace
} // namespace corvane::xmltext_test
