#include "corvane/xml/XmlLayout.h"

#include "tests/support/ByteBuilder.h"

#include <gtest/gtest.h>

namespace corvane::xmllayout_test {
namespace {

std::string twoProperties(XmlNode* node = nullptr) {
    return renderDocument("MPEGHeader", node, [](pugi::xml_node parent) {
        const auto properties = appendElementWithProperties(parent, "MPEGHeader");
        appendProperty(properties, "BitRate", "128");
        appendProperty(properties, "Version", "MPEG 1.0", "3");
    });
}

TEST(XmlLayout, TheTextStartsWithTheDeclarationFollowedDirectlyByTheComment) {
    EXPECT_EQ(twoProperties(), "<?xml version = '1.0' encoding = 'iso-8859-1'?><!--MPEGHeader-->"
                               "<MPEGHeader><Properties><Property Name=\"BitRate\" Value=\"128\"/>"
                               "<Property Name=\"Version\" ID=\"3\" Value=\"MPEG 1.0\"/></Properties></MPEGHeader>");
}

TEST(XmlLayout, ABaseNodeIsReplacedByTheNewRootWhichOwnsItsDocument) {
    XmlNode node = XmlNode::fromText("<Other/>");
    twoProperties(&node);
    EXPECT_EQ(node.baseName(), "MPEGHeader");
    EXPECT_EQ(node.selectSingleNode("./Properties/Property[@Name = 'Version']").attribute("ID"), "3");
}

TEST(XmlLayout, AnEmptyIdGivesNoIdAttribute) {
    EXPECT_EQ(CreatePropertyNode("Title", "x").xml(), R"(<Property Name="Title" Value="x"/>)");
    EXPECT_FALSE(CreatePropertyNode("Title", "x").attribute("ID"));
}

TEST(XmlLayout, AttributesStandInTheOrderNameIdValue) {
    EXPECT_EQ(CreatePropertyNode("Genre", "Rock", false, "17").xml(),
              R"(<Property Name="Genre" ID="17" Value="Rock"/>)");
}

TEST(XmlLayout, TheElementFormHoldsTheValueInACdataSection) {
    EXPECT_EQ(CreatePropertyNode("Text", "a<b]]>", true).xml(),
              R"(<Property Name="Text"><Value><![CDATA[a<b]]]]><![CDATA[>]]></Value></Property>)");
}

TEST(XmlLayout, BooleansAreOneAndZero) {
    EXPECT_STREQ(xmlBoolean(true), "1");
    EXPECT_STREQ(xmlBoolean(false), "0");
}

TEST(XmlLayout, BytesAreBase64InAValueElement) {
    EXPECT_EQ(CreateBinaryPropertyNode("Picture", test::bytesOf("\xFFPNG")).xml(),
              R"(<Property Name="Picture"><Value>/1BORw==</Value></Property>)");
}

TEST(XmlLayout, ABinaryPropertyWithoutBytesHasAnEmptyValue) {
    const XmlNode node = CreateBinaryPropertyNode("Picture", {});
    EXPECT_EQ(node.selectSingleNode("./Value").baseName(), "Value");
    EXPECT_EQ(node.text(), "");
}

TEST(XmlLayout, LineEndsAndTabsOfAValueComeBackFromAParser) {
    const std::string value = "a\r\nb\nc\td \"<&>'";
    const XmlNode read = XmlNode::fromText(CreatePropertyNode("Lyrics", value).xml());
    EXPECT_EQ(read.attribute("Value"), value);
}

TEST(XmlLayout, ForbiddenCharactersOfANameOrValueAreReplaced) {
    EXPECT_EQ(CreatePropertyNode(std::string_view("A\0\x01", 3), "b\x1F").xml(),
              "<Property Name=\"A\uFFFD\uFFFD\" Value=\"b\uFFFD\"/>");
}

struct Case {
    const char* name;
    const char* path;
    const char* folder;
};

class FolderOfPathTest : public testing::TestWithParam<Case> {};

TEST_P(FolderOfPathTest, EndsWithItsSeparator) { EXPECT_EQ(FolderOfPath(GetParam().path), GetParam().folder); }

INSTANTIATE_TEST_SUITE_P(Paths, FolderOfPathTest,
                         testing::Values(Case{"FileInFolder", "/music/rock/a.mp3", "/music/rock/"},
                                         Case{"FileInRoot", "/a.mp3", "/"}, Case{"BareName", "a.mp3", ""},
                                         Case{"Nothing", "", ""}),
                         [](const auto& tested) { return tested.param.name; });

} // namespace
} // namespace corvane::xmllayout_test
