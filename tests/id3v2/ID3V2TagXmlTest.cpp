#include "corvane/platform/RuntimeFailure.h"
#include "corvane/xml/XmlNode.h"
#include "corvane/xml/XmlText.h"

#include "tests/id3v2/TagOnDisk.h"

#include <gtest/gtest.h>
#include <pugixml.hpp>

namespace corvane::id3v2tagxml_test {
namespace {

using namespace test;

constexpr const char* kStart = "<?xml version = '1.0' encoding = 'iso-8859-1'?><!--ID3V2Tag--><ID3V2Tag><Properties>";
constexpr const char* kEnd = "</Properties></ID3V2Tag>";

std::string textProperty(const std::string& name, const std::string& value) {
    return "<Property Name=\"" + name + "\" Value=\"" + value + "\"/>";
}
std::string textProperty(const std::string& name, const char* value) { return textProperty(name, std::string(value)); }
std::string textProperty(const std::string& name, Bytes bytes) {
    const std::string value = bytes.empty() ? "<Value/>" : "<Value>" + base64(bytes) + "</Value>";
    return "<Property Name=\"" + name + "\">" + value + "</Property>";
}

// The whole document of a tag of that size whose frames give these properties.
std::string document(unsigned version, std::size_t size, const std::string& properties) {
    return kStart + textProperty("Version", "2." + std::to_string(version) + ".0") +
           textProperty("Size", std::to_string(size)) + properties + kEnd;
}

std::string documentOf(const Id3v2Builder& tag) { return TagOnDisk(tag).tag.xml(); }
std::string expectedOf(unsigned version, const Id3v2Builder& tag, const std::string& properties) {
    return document(version, tag.body().size() + 10, properties);
}

TEST(ID3V2TagXml, FramesOfVersion22) {
    Id3v2Builder tag(2);
    for (const char* id : {"TAL", "TP1", "TCO", "TT2", "TYE", "TRK", "TXX"}) tag.text(id, id);
    tag.frame("COM", commentFrame("", "c")).frame("PIC", pictureFrameOfVersion22(bytesOf("P")));
    EXPECT_EQ(documentOf(tag),
              expectedOf(2, tag,
                         textProperty("Album", "TAL") + textProperty("Artist", "TP1") + textProperty("Genre", "TCO") +
                             textProperty("Title", "TT2") + textProperty("Year", "TYE") + textProperty("TRK", "TRK") +
                             textProperty("TXX", "TXX") + textProperty("COM", commentFrame("", "c")) +
                             textProperty("PIC", pictureFrameOfVersion22(bytesOf("P")))));
}

TEST(ID3V2TagXml, FramesOfVersion23) {
    Id3v2Builder tag(3);
    tag.frame("APIC", pictureFrame(bytesOf("PICTURE")));
    for (const char* id : {"TALB", "TPE1", "TCON", "TIT2", "TRCK"}) tag.text(id, id);
    tag.frame("COMM", commentFrame("d", "c")).text("TYER", "2001").text("TXXX", "x");
    tag.frame("PCNT", ByteArray{0, 0, 1, 0}).frame("UFID", bytesOf("id"));
    EXPECT_EQ(documentOf(tag),
              expectedOf(3, tag,
                         textProperty("Picture", bytesOf("PICTURE")) + textProperty("Album", "TALB") +
                             textProperty("Artist", "TPE1") + textProperty("Genre", "TCON") +
                             textProperty("Title", "TIT2") + textProperty("Track", "TRCK") +
                             textProperty("Comment", "c") + textProperty("Year", "2001") + textProperty("TXXX", "x") +
                             textProperty("PCNT", "256") + textProperty("UFID", bytesOf("id"))));
}

TEST(ID3V2TagXml, FramesOfVersion24HaveNoTrackAndNoYear) {
    Id3v2Builder tag(4);
    for (const char* id : {"TALB", "TPE1", "TCON", "TIT2", "TRCK", "TYER"}) tag.text(id, id);
    tag.frame("COMM", commentFrame("d", "c"));
    EXPECT_EQ(documentOf(tag), expectedOf(4, tag,
                                          textProperty("Album", "TALB") + textProperty("Artist", "TPE1") +
                                              textProperty("Genre", "TCON") + textProperty("Title", "TIT2") +
                                              textProperty("TRCK", "TRCK") + textProperty("TYER", "TYER") +
                                              textProperty("Comment", "c")));
}

struct PictureCase {
    const char* name;
    ByteArray picture;
    std::string text;
};
class PictureOfVersion24 : public testing::TestWithParam<PictureCase> {};
TEST_P(PictureOfVersion24, StandsAsTextOfUtf16Units) {
    const auto tag = Id3v2Builder(4).frame("APIC", pictureFrame(GetParam().picture));
    EXPECT_EQ(documentOf(tag), expectedOf(4, tag, textProperty("Picture", GetParam().text)));
}
INSTANTIATE_TEST_SUITE_P(Bytes, PictureOfVersion24,
                         testing::Values(PictureCase{"LowByteFirst", {0x41, 0, 0xE5, 0x65}, "A\u65E5"},
                                         PictureCase{"AnOddLastByteIsDropped", {0x41, 0, 0x42}, "A"},
                                         PictureCase{"HalfOfAPairIsReplaced", {0x3D, 0xD8, 0x41, 0}, "\uFFFDA"},
                                         PictureCase{
                                             "AMarkIsACharacter", {0xFF, 0xFE, 0x41, 0, 0xFE, 0xFF}, "\uFEFFA\uFFFD"},
                                         PictureCase{"Nothing", {}, ""}),
                         [](const auto& tested) { return tested.param.name; });

TEST(ID3V2TagXml, APictureWithoutBytesIsAnEmptyValue) {
    const auto tag = Id3v2Builder(3).frame("APIC", pictureFrame({}));
    EXPECT_EQ(documentOf(tag), expectedOf(3, tag, textProperty("Picture", ByteArray())));
}

TEST(ID3V2TagXml, ANamedFrameWithoutTextStaysText) {
    const auto tag = Id3v2Builder(3).text("TIT2", "").text("TPE2", "").frame("TALB", bytesOf("Mx"), 0x40);
    EXPECT_EQ(
        documentOf(tag),
        expectedOf(3, tag, textProperty("Title", "") + textProperty("TPE2", ByteArray(1)) + textProperty("Album", "")));
}

TEST(ID3V2TagXml, OnlyTheFirstFrameOfAnIdIsThere) {
    const auto tag = Id3v2Builder(3).text("TIT2", "a").text("TIT2", "b").text("TCOM", "c").text("TCOM", "d");
    EXPECT_EQ(documentOf(tag), expectedOf(3, tag, textProperty("Title", "a") + textProperty("TCOM", "c")));
}

TEST(ID3V2TagXml, IsWellFormedWhateverTheFramesHold) {
    const auto tag = Id3v2Builder(3)
                         .text("<\"&\x01", std::string("\1\2<>&'\"\0\x1F", 9))
                         .text("TIT2", "\uFFFE\n\t", Encoding::Utf16);
    pugi::xml_document parsed;
    EXPECT_TRUE(parsed.load_string(documentOf(tag).c_str()));
    EXPECT_EQ(parsed.select_node("//Property[3]/@Name").attribute().value(), std::string("<\"&\uFFFD"));
}

TEST(ID3V2TagXml, ATagThatCannotBeReadHasVersionAndSizeOnly) {
    EXPECT_EQ(ID3V2Tag().xml(), document(0, 0, ""));
    const auto damaged = Id3v2Builder(3).raw(bytesOf("no frames in here"));
    EXPECT_EQ(documentOf(damaged), expectedOf(3, damaged, ""));
    const auto unknown = Id3v2Builder(5).text("TIT2", "t");
    EXPECT_EQ(documentOf(unknown), expectedOf(5, unknown, ""));
}

TEST(ID3V2TagXml, TheBaseNodeBecomesTheRootElement) {
    TagOnDisk file(Id3v2Builder(3).text("TIT2", "t"));
    XmlNode node = XmlNode::fromText("<other/>");
    file.tag.xml(&node);
    EXPECT_EQ(node.baseName(), "ID3V2Tag");
    EXPECT_EQ(node.selectSingleNode("./Properties/Property[@Name = 'Title']").attribute("Value"), "t");
}

TEST(ID3V2TagXml, TheElementCanBeAppendedToALargerDocument) {
    TagOnDisk file(Id3v2Builder(3).text("TIT2", "t"));
    pugi::xml_document larger;
    Internals<ID3V2Tag>::appendXml(file.tag, larger.append_child("File"));
    EXPECT_EQ(larger.select_node("/File/ID3V2Tag/Properties/Property[3]/@Value").attribute().value(), std::string("t"));
}

TEST(ID3V2TagXml, APictureThatCanNoLongerBeReadIsAFailure) {
    for (const unsigned version : {3U, 4U}) {
        TagOnDisk file(Id3v2Builder(version).text("TIT2", "t").frame("APIC", pictureFrame(ByteArray(100'000, 7))));
        EXPECT_EQ(file.tag.Title(), "t");
        file.replaceFile();
        EXPECT_THROW(file.tag.xml(), RuntimeFailure);
        EXPECT_EQ(file.tag.Title(), "t");
    }
}

} // namespace
} // namespace corvane::id3v2tagxml_test
