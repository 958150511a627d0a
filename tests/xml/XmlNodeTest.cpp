#include "corvane/xml/XmlNode.h"

#include "corvane/platform/RuntimeFailure.h"

#include "tests/support/ByteBuilder.h"

#include <gtest/gtest.h>

namespace corvane {
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

TEST(XmlNode, AnExpressionThatIsNoXpathIsAFailure) {
    EXPECT_THROW(XmlNode::fromText("<a/>").selectSingleNode("./["), RuntimeFailure);
}

TEST(XmlNode, ANodeOutlivesTheOneItCameFrom) {
    XmlNode child;
    { child = XmlNode::fromText("<a><b v='1'/></a>").selectSingleNode("./b"); }
    EXPECT_EQ(child.attribute("v"), "1");
}

} // namespace
} // namespace corvane
