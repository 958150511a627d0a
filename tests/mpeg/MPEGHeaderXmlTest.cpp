#include "corvane/mpeg/MPEGHeaderInternals.h"
#include "corvane/platform/FileReader.h"
#include "corvane/xml/XmlLayout.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/MpegBuilder.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

namespace corvane::mpegheaderxml_test {
namespace {

constexpr const char* kDeclaration = "<?xml version = '1.0' encoding = 'iso-8859-1'?><!--MPEGHeader-->";

constexpr const char* kJointStereoAt128 = "<MPEGHeader><Properties>"
                                          "<Property Name=\"AudioSize\" Value=\"832\"/>"
                                          "<Property Name=\"BitRate\" Value=\"128\"/>"
                                          "<Property Name=\"Copyright\" Value=\"1\"/>"
                                          "<Property Name=\"CRC\" Value=\"0\"/>"
                                          "<Property Name=\"Duration\" Value=\"0\"/>"
                                          "<Property Name=\"Emphasis\" ID=\"1\" Value=\"Unknown\"/>"
                                          "<Property Name=\"FileSize\" Value=\"834\"/>"
                                          "<Property Name=\"FrameSize\" Value=\"417\"/>"
                                          "<Property Name=\"Frequency\" Value=\"44100\"/>"
                                          "<Property Name=\"Layer\" ID=\"1\" Value=\"3\"/>"
                                          "<Property Name=\"Mode\" ID=\"1\" Value=\"Joint Stereo\"/>"
                                          "<Property Name=\"NumFrames\" Value=\"1\"/>"
                                          "<Property Name=\"Original\" Value=\"1\"/>"
                                          "<Property Name=\"PaddingBit\" Value=\"0\"/>"
                                          "<Property Name=\"PrivateBit\" Value=\"0\"/>"
                                          "<Property Name=\"ProtectionBit\" Value=\"1\"/>"
                                          "<Property Name=\"VBR\" Value=\"0\"/>"
                                          "<Property Name=\"Version\" ID=\"3\" Value=\"MPEG 1.0\"/>"
                                          "</Properties></MPEGHeader>";

void load(MPEGHeader& header, Bytes bytes) {
    const test::ScratchFolder folder;
    FileReader file(folder.write("f", bytes));
    ASSERT_TRUE(Internals<MPEGHeader>::LoadHeaderEx(header, file, 1));
}

std::string valueOf(const XmlNode& root, const std::string& name) {
    return root.selectSingleNode("./Properties/Property[@Name = '" + name + "']").attribute("Value").value_or("none");
}

TEST(MPEGHeaderXml, HoldsEveryPropertyInItsOrder) {
    MPEGHeader header;
    load(header, test::mpegStream({.mode = 1, .emphasis = 1, .copyright = true, .original = true}, 2));
    EXPECT_EQ(header.xml(), std::string(kDeclaration) + kJointStereoAt128);
}

TEST(MPEGHeaderXml, EveryBooleanTellsOfItsOwnProperty) {
    MPEGHeader header;
    XmlNode root;
    const auto frame = test::MpegFrame{.padding = true, .privateBit = true, .crc = true};
    load(header, test::xingFrame(frame, {.flags = 1, .frames = 1}));
    header.xml(&root);
    for (const char* name : {"CRC", "PaddingBit", "PrivateBit", "VBR"}) EXPECT_EQ(valueOf(root, name), "1") << name;
    for (const char* name : {"Copyright", "Original", "ProtectionBit"}) EXPECT_EQ(valueOf(root, name), "0") << name;
}

TEST(MPEGHeaderXml, UnknownValuesAreWrittenWithASign) {
    MPEGHeader header;
    XmlNode root;
    load(header, test::xingFrame({}, {.flags = 2}));
    header.xml(&root);
    EXPECT_EQ(valueOf(root, "BitRate"), "-1");
    EXPECT_EQ(valueOf(root, "Duration"), "-1");
}

TEST(MPEGHeaderXml, AnObjectThatWasNeverLoadedHasADocumentToo) {
    XmlNode root;
    const MPEGHeader header;
    header.xml(&root);
    EXPECT_EQ(valueOf(root, "Version"), "MPEG 2.5");
    EXPECT_EQ(valueOf(root, "Layer"), "Reserved");
    EXPECT_EQ(valueOf(root, "Emphasis"), "");
    EXPECT_EQ(valueOf(root, "CRC"), "1");
    EXPECT_EQ(root.selectSingleNode("./Properties/Property[@Name = 'Emphasis']").attribute("ID"), "0");
}

TEST(MPEGHeaderXml, TheBaseNodeIsReplacedByTheRootElement) {
    XmlNode node = XmlNode::fromText("<Other/>");
    MPEGHeader().xml(&node);
    EXPECT_EQ(node.baseName(), "MPEGHeader");
    EXPECT_EQ(valueOf(node, "Frequency"), "32000");
}

TEST(MPEGHeaderXml, AppendsTheSameElementToABiggerDocument) {
    MPEGHeader header;
    load(header, test::mpegStream({.mode = 1, .emphasis = 1, .copyright = true, .original = true}, 2));
    pugi::xml_document document;
    Internals<MPEGHeader>::appendXml(header, document.append_child("File"));
    EXPECT_EQ(documentText(document), std::string("<File>") + kJointStereoAt128 + "</File>");
}

} // namespace
} // namespace corvane::mpegheaderxml_test
