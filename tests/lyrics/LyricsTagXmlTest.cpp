#include "corvane/lyrics/LyricsTag.h"
#include "corvane/lyrics/LyricsTagInternals.h"
#include "corvane/xml/XmlNode.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/LyricsBuilder.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace corvane::lyricstagxml_test {
namespace {

using test::LyricsBuilder;

using enum ELyricsVersionConstants;

void load(LyricsTag& tag, const ByteArray& file) {
    const test::ScratchFolder folder;
    Internals<LyricsTag>::Load(tag, folder.write("a.mp3", file), false);
}

LyricsBuilder everyField() {
    return LyricsBuilder()
        .field("LYR", "la\r\nla")
        .field("XYZ", "<&")
        .field("AUT", "Author")
        .field("ETT", "Title")
        .field("EAR", "Artist")
        .field("EAL", "Album");
}

const std::string kHead = "<?xml version = '1.0' encoding = 'iso-8859-1'?><!--LyricsTag--><LyricsTag><Properties>";
const std::string kTail = "</Properties></LyricsTag>";

// The document

TEST(LyricsTagXml, ANewTagHasItsVersionOnly) {
    EXPECT_EQ(LyricsTag().xml(), kHead + "<Property Name=\"Version\" Value=\"0\"/>" + kTail);
}

TEST(LyricsTagXml, HoldsTheVersionAndTheFieldsInTheirOrder) {
    LyricsTag tag;
    load(tag, everyField().done());
    EXPECT_EQ(tag.xml(), kHead +
                             "<Property Name=\"Version\" Value=\"2\"/>"
                             "<Property Name=\"Lyrics\" Value=\"la&#13;&#10;la\"/>"
                             "<Property Name=\"XYZ\" Value=\"&lt;&amp;\"/>"
                             "<Property Name=\"Author\" Value=\"Author\"/>"
                             "<Property Name=\"Title\" Value=\"Title\"/>"
                             "<Property Name=\"Artist\" Value=\"Artist\"/>"
                             "<Property Name=\"Album\" Value=\"Album\"/>" +
                             kTail);
}

TEST(LyricsTagXml, VersionOneCarriesItsVersionOnly) {
    LyricsTag tag;
    load(tag, test::ByteBuilder().repeat('x', 5100).text("123456LYRICSEND").done());
    EXPECT_EQ(tag.xml(), kHead + "<Property Name=\"Version\" Value=\"1\"/>" + kTail);
}

TEST(LyricsTagXml, IsWellFormedForEveryFieldOfAHostileFile) {
    std::string every;
    for (unsigned byte = 0; byte <= 255; ++byte) every += static_cast<char>(byte);
    LyricsTag tag;
    load(tag, LyricsBuilder().field(std::string("\0<\"", 3), every).field("LYR", every).done());
    const XmlNode root = XmlNode::fromText(tag.xml());
    EXPECT_TRUE(root.selectSingleNode("./Properties/Property[@Name = 'Lyrics']"));
    EXPECT_TRUE(root.selectSingleNode("./Properties/Property[@Name = '\uFFFD<\"']"));
}

TEST(LyricsTagXml, TheBaseNodeBecomesTheElementOfTheNewDocument) {
    XmlNode node = XmlNode::fromText("<Other/>");
    const std::string text = LyricsTag().xml(&node);
    EXPECT_EQ(node.baseName(), "LyricsTag");
    EXPECT_TRUE(text.ends_with(node.xml()));
}

TEST(LyricsTagXml, TheElementCanBeAppendedToABiggerDocument) {
    pugi::xml_document document;
    Internals<LyricsTag>::appendXml(LyricsTag(), document.append_child("Outer"));
    EXPECT_TRUE(document.child("Outer").child("LyricsTag").child("Properties").child("Property"));
}

// Import

XmlNode documentOf(const std::string& properties) {
    return XmlNode::fromText("<LyricsTag><Properties>" + properties + "</Properties></LyricsTag>");
}

std::vector<std::string> idsOf(const LyricsTag& tag) {
    std::vector<std::string> ids;
    for (std::int32_t index = 1; index <= tag.FieldCount(); ++index) ids.push_back(tag.getFieldByIndex(index)->ID());
    return ids;
}

TEST(LyricsTagImport, ReadsTheVersionAndTheFiveFieldsInItsOwnOrder) {
    LyricsTag tag;
    EXPECT_TRUE(tag.CreateFromTag(documentOf("<Property Name='Lyrics' Value='la'/><Property Name='Title' Value='t'/>"
                                             "<Property Name='Author' Value='u'/><Property Name='Artist' Value='r'/>"
                                             "<Property Name='Album' Value='l'/><Property Name='Version' Value='2'/>"
                                             "<Property Name='INF' Value='not imported'/>")));
    EXPECT_EQ(tag.Version(), lvcV200);
    EXPECT_EQ(idsOf(tag), (std::vector<std::string>{"EAL", "EAR", "AUT", "ETT", "LYR"}));
    EXPECT_EQ(tag.Album(), "l");
    EXPECT_EQ(tag.Artist(), "r");
    EXPECT_EQ(tag.Author(), "u");
    EXPECT_EQ(tag.Title(), "t");
    EXPECT_EQ(tag.Lyrics(), "la");
    EXPECT_EQ(tag.getFieldByID("LYR")->Size(), 0);
}

TEST(LyricsTagImport, AMissingPropertyAddsNoFieldAndDoesNotHarmTheOthers) {
    LyricsTag tag;
    EXPECT_TRUE(tag.CreateFromTag(documentOf("<Property Name='Artist' Value='r'/><Property Name='Author'/>"
                                             "<Property Name='Title' ID='1'/><Property Name='Lyrics' Value=''/>")));
    EXPECT_EQ(idsOf(tag), (std::vector<std::string>{"EAR", "LYR"}));
    EXPECT_EQ(tag.LastError()->Stream(), "0, , ");
}

TEST(LyricsTagImport, TheFirstOfTwoPropertiesCounts) {
    LyricsTag tag;
    EXPECT_TRUE(tag.CreateFromTag(documentOf("<Property Name='Title' Value='1'/><Property Name='Title' Value='2'/>")));
    EXPECT_EQ(tag.Title(), "1");
    EXPECT_EQ(tag.FieldCount(), 1);
}

struct VersionCase {
    const char* name;
    const char* property;
    std::int32_t version;
};
class LyricsTagImportVersion : public testing::TestWithParam<VersionCase> {};
TEST_P(LyricsTagImportVersion, IsTheNumberOrUnknownAndNeverFatal) {
    LyricsTag tag;
    EXPECT_TRUE(tag.CreateFromTag(documentOf(std::string(GetParam().property) + "<Property Name='Title' Value='t'/>")));
    EXPECT_EQ(static_cast<std::int32_t>(tag.Version()), GetParam().version);
    EXPECT_EQ(tag.Title(), "t");
}
INSTANTIATE_TEST_SUITE_P(Properties, LyricsTagImportVersion,
                         testing::Values(VersionCase{"One", "<Property Name='Version' Value='1'/>", 1},
                                         VersionCase{"Two", "<Property Name='Version' Value=' 2 '/>", 2},
                                         VersionCase{"NoVersionOfTheFormat", "<Property Name='Version' Value='7'/>", 7},
                                         VersionCase{"Missing", "", 0},
                                         VersionCase{"WithoutValue", "<Property Name='Version'/>", 0},
                                         VersionCase{"Empty", "<Property Name='Version' Value=''/>", 0},
                                         VersionCase{"NoNumber", "<Property Name='Version' Value='two'/>", 0},
                                         VersionCase{"TooLarge", "<Property Name='Version' Value='2147483648'/>", 0}),
                         [](const auto& tested) { return tested.param.name; });

TEST(LyricsTagImport, EveryLineFeedOfTheLyricsBecomesCrLf) {
    LyricsTag tag;
    EXPECT_TRUE(tag.CreateFromTag(documentOf("<Property Name='Lyrics' Value='&#10;a&#10;&#10;b&#13;c'/>"
                                             "<Property Name='Title' Value='a&#10;b'/>")));
    EXPECT_EQ(tag.Lyrics(), "\r\na\r\n\r\nb\rc");
    EXPECT_EQ(tag.Title(), "a\nb");
}

// Looks like a mistake, and is kept on purpose: hosts rely on it.
TEST(LyricsTagImport, ACrLfOfTheLyricsBecomesCrCrLf) {
    LyricsTag tag;
    EXPECT_TRUE(tag.CreateFromTag(documentOf("<Property Name='Lyrics' Value='a&#13;&#10;b'/>")));
    EXPECT_EQ(tag.Lyrics(), "a\r\r\nb");
}

TEST(LyricsTagImport, ReplacesTheFieldsThatWereThere) {
    LyricsTag tag;
    load(tag, everyField().done());
    EXPECT_TRUE(tag.CreateFromTag(documentOf("<Property Name='Artist' Value='r'/>")));
    EXPECT_EQ(idsOf(tag), std::vector<std::string>{"EAR"});
    EXPECT_EQ(tag.Version(), lvcUnknown);
    EXPECT_EQ(tag.Size(), 0);
}

TEST(LyricsTagImport, AnImportedVersionOneHasNoneOfTheLyricsThatWereThere) {
    LyricsTag tag;
    load(tag, test::ByteBuilder().repeat('x', 5100).text("123456LYRICSEND").done());
    XmlNode node;
    tag.xml(&node);
    EXPECT_TRUE(tag.CreateFromTag(node));
    EXPECT_EQ(tag.Version(), lvcV100);
    EXPECT_EQ(tag.Size(), 0);
    EXPECT_EQ(tag.Lyrics(), "");
}

TEST(LyricsTagImport, AnElementOfAnotherNameIsRefusedAndTheFieldsStay) {
    LyricsTag tag;
    load(tag, everyField().done());
    const auto error = tag.LastError();
    for (const XmlNode& node : {XmlNode::fromText("<ID3V1Tag/>"), XmlNode::fromText("<lyricstag/>"), XmlNode()}) {
        EXPECT_FALSE(tag.CreateFromTag(node));
        EXPECT_EQ(error->Stream(), "0, CreateFromTag, No valid LyricsTag-Node passed.");
        EXPECT_EQ(tag.Version(), lvcUnknown);
        EXPECT_EQ(tag.FieldCount(), 6);
        EXPECT_EQ(tag.Title(), "Title");
    }
}

TEST(LyricsTagImport, ARefusedElementIsAWarning) {
    LyricsTag tag;
    EXPECT_FALSE(tag.CreateFromTag(XmlNode()));
    EXPECT_EQ(Internals<LyricsTag>::error(tag).Severity, cError::kWarning);
}

TEST(LyricsTagImport, ADocumentWithoutPropertiesIsAnEmptyTag) {
    LyricsTag tag;
    EXPECT_TRUE(tag.CreateFromTag(XmlNode::fromText("<LyricsTag/>")));
    EXPECT_EQ(tag.FieldCount(), 0);
    EXPECT_EQ(tag.Version(), lvcUnknown);
}

TEST(LyricsTagImport, WhatXmlWritesReadsBack) {
    LyricsTag written;
    load(written, LyricsBuilder().field("ETT", " \xE4 \"<&>' \x80 ").field("LYR", "one line").done());
    LyricsTag read;
    EXPECT_TRUE(read.CreateFromTag(XmlNode::fromText(written.xml())));
    EXPECT_EQ(read.Version(), lvcV200);
    EXPECT_EQ(read.Title(), " ä \"<&>' € ");
    EXPECT_EQ(read.Lyrics(), "one line");
}

} // namespace
} // namespace corvane::lyricstagxml_test
