#include "corvane/xml/XmlNode.h"

#include "corvane/platform/RuntimeFailure.h"

#include "tests/support/ByteBuilder.h"

#include <gtest/gtest.h>

namespace corvane::xmlnode_test {
namespace {

TEST(XmlNode, NothingHasNoNameNoAttributesAndNoChildren) {
    const XmlNode nothing;
    EXPECT_FALSE(nothing);
    EXPECT_EQ(nothing.baseName(), "");
    EXPECT_FALSE(nothing.attribute("Name"));
    EXPECT_FALSE(nothing.selectSingleNode("./a"));
}

TEST(XmlNode, TheBaseNameHasNoPrefix) { EXPECT_EQ(XmlNode::fromText("<t:Tag xmlns:t='urn:t'/>").baseName(), "Tag"); }

TEST(XmlNode, TextIsUtf8WhateverTheDeclarationSays) {
    const XmlNode node = XmlNode::fromText("<?xml version = '1.0' encoding = 'iso-8859-1'?><a v='é'/>");
    EXPECT_EQ(node.attribute("v"), "é");
}

TEST(XmlNode, BytesAreInTheEncodingThatTheDeclarationNames) {
    const XmlNode node =
        XmlNode::fromBytes(test::bytesOf("<?xml version = '1.0' encoding = 'iso-8859-1'?><a v='\xE9&#8364;'/>"));
    EXPECT_EQ(node.attribute("v"), "é€");
}

TEST(XmlNode, WhatIsNoDocumentIsAFailure) {
    for (const char* text : {"", "x", "<a>", "<a></b>", "<!-- only -->"}) {
        EXPECT_THROW(XmlNode::fromText(text), RuntimeFailure) << text;
    }
}

// What the failure of reading a document says; "" when there is none.
std::string refusalOf(std::string_view file) {
    try {
        XmlNode::fromBytes(test::bytesOf(file));
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.number(), static_cast<std::int32_t>(FailureNumber::ObjectDefined));
        return failure.description();
    }
    return {};
}

struct NamedText {
    const char* name;
    const char* encoding;
    const char* bytes;
    const char* text;
};
class DeclaredEncoding : public testing::TestWithParam<NamedText> {};

TEST_P(DeclaredEncoding, IsDecoded) {
    const std::string file =
        std::string("<?xml version='1.0' encoding='") + GetParam().encoding + "'?><a v='" + GetParam().bytes + "'/>";
    EXPECT_EQ(XmlNode::fromBytes(test::bytesOf(file)).attribute("v"), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Encodings, DeclaredEncoding,
                         testing::Values(NamedText{"Windows1252", "windows-1252", "\x80\x96\xE9", "€–é"},
                                         NamedText{"Latin9", "ISO-8859-15", "\xA4\xA6", "€Š"},
                                         NamedText{"Latin1ByAnotherName", "latin1", "\xE9", "é"},
                                         NamedText{"Cyrillic", "KOI8-R", "\xC1\xC2", "аб"},
                                         NamedText{"ShiftJis", "Shift_JIS", "\x93\xFA\x96\x7B", "日本"},
                                         NamedText{"GB18030", "GB18030", "\xC8\xD5\x81\x30\x84\x36", "日¥"},
                                         NamedText{"Utf8InSmallLetters", "utf-8", "é", "é"}),
                         [](const auto& tested) { return tested.param.name; });

TEST(XmlNode, AnEncodingThatNobodyKnowsIsAFailure) {
    EXPECT_EQ(refusalOf("<?xml version='1.0' encoding='x-klingon'?><a v='\xE9'/>"),
              "The document's encoding \"x-klingon\" is not known");
}

TEST(XmlNode, BytesThatAreNotInTheDeclaredEncodingAreAFailure) {
    EXPECT_EQ(refusalOf("<?xml version='1.0' encoding='windows-1252'?><a v='\x81'/>"),
              "The document holds bytes that are no text in its encoding, windows-1252");
    for (const char* file : {"<a v='\xE9'/>", "<?xml version='1.0' encoding='utf-8'?><a v='\xC3'/>",
                             "<?xml version='1.0' encoding='us-ascii'?><a v='\xE9'/>"}) {
        EXPECT_NE(refusalOf(file), "") << file;
    }
}

TEST(XmlNode, AByteOrderMarkCountsMoreThanTheDeclaration) {
    const std::string declared = "<?xml version='1.0' encoding='iso-8859-1'?><a v='é'/>";
    EXPECT_EQ(XmlNode::fromBytes(test::bytesOf("\xEF\xBB\xBF" + declared)).attribute("v"), "é");
    for (const bool bigEndian : {false, true}) {
        std::string file = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
        for (const char character : std::string_view("<?xml version='1.0' encoding='utf-8'?><a v='\xE9'/>")) {
            bigEndian ? (file += '\0') += character : (file += character) += '\0';
        }
        EXPECT_EQ(XmlNode::fromBytes(test::bytesOf(file)).attribute("v"), "é") << bigEndian;
    }
}

struct NoDocument {
    const char* name;
    const char* text;
};
class NotWellFormed : public testing::TestWithParam<NoDocument> {};

TEST_P(NotWellFormed, IsAFailure) {
    EXPECT_THROW(XmlNode::fromText(GetParam().text), RuntimeFailure);
    EXPECT_NE(refusalOf(GetParam().text), "");
}

INSTANTIATE_TEST_SUITE_P(
    Documents, NotWellFormed,
    testing::Values(NoDocument{"TwoRoots", "<a/><b/>"}, NoDocument{"TextBeforeTheRoot", "x<a/>"},
                    NoDocument{"TextBehindTheRoot", "<a/>x"}, NoDocument{"BareAmpersand", "<a v='b & c'/>"},
                    NoDocument{"BareAngle", "<a v='b < c'/>"}, NoDocument{"DuplicateAttribute", "<a v='1' v='2'/>"},
                    NoDocument{"ControlCharacter", "<a v='\x01'/>"}, NoDocument{"ReferenceToAControl", "<a v='&#1;'/>"},
                    NoDocument{"UnknownEntity", "<a v='&b;'/>"}, NoDocument{"PrefixWithoutNamespace", "<t:a/>"},
                    NoDocument{"AttributeWithoutQuotes", "<a v=1/>"},
                    NoDocument{"DeclarationBehindABlank", " <?xml version='1.0'?><a/>"},
                    NoDocument{"SurrogateInUtf8", "<a v='\xED\xA0\x80'/>"},
                    NoDocument{"CommentThatDoesNotEnd", "<a/><!--"}),
    [](const auto& tested) { return tested.param.name; });

TEST(XmlNode, AFailureNamesTheLine) {
    EXPECT_EQ(refusalOf("<a>\n<b>\n</a>"), "The document is not well-formed: line 3: mismatched tag");
}

TEST(XmlNode, EntitiesOfTheDocumentAreExpanded) {
    const XmlNode node = XmlNode::fromText("<!DOCTYPE a [<!ENTITY who 'the <b/> band &#38;amp; I'><!ENTITY b '&who;'>"
                                           "<!ENTITY plain 'p'><!ATTLIST a w CDATA 'given'>]>"
                                           "<a v='&plain;&#233;&lt;'>&b;</a>");
    EXPECT_EQ(node.attribute("v"), "pé<");
    EXPECT_EQ(node.attribute("w"), "given");
    EXPECT_EQ(node.xml(), "<a v=\"pé&lt;\" w=\"given\">the <b/> band &amp; I</a>");
}

TEST(XmlNode, EntitiesOfTheOutsideAreNeverRead) {
    for (const char* text : {"<!DOCTYPE a [<!ENTITY e SYSTEM '/etc/passwd'>]><a>&e;</a>",
                             "<!DOCTYPE a [<!ENTITY e SYSTEM '/etc/passwd'>]><a v='&e;'/>",
                             "<!DOCTYPE a SYSTEM 'http://127.0.0.1:9/a.dtd'><a v='&e;'/>",
                             "<!DOCTYPE a SYSTEM 'http://127.0.0.1:9/a.dtd'><a>&e;</a>",
                             "<!DOCTYPE a [<!ENTITY % p SYSTEM '/etc/passwd'>%p;]><a v='&e;'/>"}) {
        EXPECT_NE(refusalOf(text), "") << text;
    }
}

TEST(XmlNode, ADocumentTypeOfTheOutsideIsNoFailureWhereNothingOfItIsUsed) {
    const XmlNode node = XmlNode::fromText("<!DOCTYPE a SYSTEM 'nowhere.dtd' [<!ENTITY e 'own'>]><a v='&e;&amp;'/>");
    EXPECT_EQ(node.attribute("v"), "own&");
}

TEST(XmlNode, EntitiesThatGrowWithoutEndAreAFailure) {
    std::string entities = "<!ENTITY e0 'ha ha ha ha ha ha ha ha ha ha '>";
    for (int i = 1; i < 20; ++i) {
        const std::string before = "&e" + std::to_string(i - 1) + ";";
        entities += "<!ENTITY e" + std::to_string(i) + " '";
        for (int count = 0; count < 10; ++count) entities += before;
        entities += "'>";
    }
    EXPECT_NE(refusalOf("<!DOCTYPE a [" + entities + "]><a>&e19;</a>"), "");
    EXPECT_NE(refusalOf("<!DOCTYPE a [" + entities + "]><a v='&e19;'/>"), "");
    EXPECT_NE(refusalOf("<!DOCTYPE a [<!ENTITY x '&y;'><!ENTITY y '&x;'>]><a v='&x;'/>"), "");
}

TEST(XmlNode, AChainOfMoreEntitiesThanAnybodyNeedsIsAFailure) {
    std::string entities = "<!ENTITY e0 'x'>";
    for (int i = 1; i < 200'000; ++i) {
        entities += "<!ENTITY e" + std::to_string(i) + " '&e" + std::to_string(i - 1) + ";'>";
    }
    EXPECT_EQ(refusalOf("<!DOCTYPE a [" + entities + "]><a v='&e199999;'/>"),
              "The document declares more than 1000 entities");
}

TEST(XmlNode, ElementsMayBeNestedDeeply) {
    constexpr int kDepth = 200'000;
    std::string text;
    for (int i = 0; i < kDepth; ++i) text += "<a>";
    text += "<b v='1'/>";
    for (int i = 0; i < kDepth; ++i) text += "</a>";
    EXPECT_EQ(XmlNode::fromText(text).selectSingleNode("//b").attribute("v"), "1");
}

TEST(XmlNode, WhatIsInTheElementComesBack) {
    for (const char* text : {"<a><b v=\"1\"/>text<![CDATA[<raw>]]></a>", "<a> </a>", "<a><b/><c> </c></a>",
                             "<t:a xmlns:t=\"urn:t\" t:v=\"1\"><b xmlns=\"urn:b\"/></t:a>", "<a v=\"&#10;&quot;\"/>"}) {
        EXPECT_EQ(XmlNode::fromText(text).xml(), text);
    }
    EXPECT_EQ(XmlNode::fromText("<a>\n  <b/>\n<!--c--><?pi?></a>").xml(), "<a><b/></a>");
    EXPECT_EQ(XmlNode::fromText("<a v='x\ty\r\nz'>\r\nt</a>").xml(), "<a v=\"x y z\">\nt</a>");
}

TEST(XmlNode, AnExpressionThatIsNoXpathIsAFailure) {
    EXPECT_THROW(XmlNode::fromText("<a/>").selectSingleNode("./["), RuntimeFailure);
}

TEST(XmlNode, ANodeOutlivesTheOneItCameFrom) {
    XmlNode child;
    { child = XmlNode::fromText("<a><b v='1'/></a>").selectSingleNode("./b"); }
    EXPECT_EQ(child.attribute("v"), "1");
}

} // namespace
} // namespace corvane::xmlnode_test
