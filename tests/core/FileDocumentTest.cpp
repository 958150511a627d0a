#include "corvane/core/FileDocument.h"

#include "corvane/core/FileHandler.h"
#include "corvane/id3v1/ID3V1Tag.h"
#include "corvane/platform/RuntimeFailure.h"
#include "corvane/xml/XmlNode.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>
#include <pugixml.hpp>

#include <filesystem>
#include <regex>

namespace corvane::filedocument_test {
namespace {

using test::ByteBuilder;
using test::ScratchFolder;

ByteArray song() {
    return ByteBuilder()
        .bigEndian(0xFFFB9064, 4)
        .padTo(1000, 0x55)
        .text("LYRICSBEGINLYR00003xyz000022LYRICS200")
        .text("TAG")
        .padTo(1000 + 37 + 126)
        .byte(5)
        .byte(17)
        .done();
}

class FileDocumentTest : public testing::Test {
protected:
    pugi::xml_document documentOf(const std::string& path) {
        FileHandler handler;
        EXPECT_TRUE(handler.Create(path));
        text_ = handler.xml();
        pugi::xml_document document;
        EXPECT_TRUE(document.load_buffer(text_.data(), text_.size(), pugi::parse_full, pugi::encoding_utf8));
        return document;
    }
    static std::vector<std::string> namesOf(const pugi::xpath_node_set& nodes) {
        std::vector<std::string> names;
        for (const auto& found : nodes) names.emplace_back(found.node().attribute("Name").value());
        return names;
    }

    const ScratchFolder folder_;
    std::string text_;
};

std::string value(const pugi::xml_document& document, const std::string& element, const std::string& property) {
    const auto path = "//" + element + "/Properties/Property[@Name = '" + property + "']";
    return document.select_node(path.c_str()).node().attribute("Value").value();
}

TEST_F(FileDocumentTest, TheTextStartsWithTheDeclarationAndTheComment) {
    documentOf(folder_.write("a.mp3", song()));
    EXPECT_TRUE(
        text_.starts_with("<?xml version = '1.0' encoding = 'iso-8859-1'?><!--FileHandler--><ImportData><Drive>"));
}

TEST_F(FileDocumentTest, ThePropertiesOfTheDriveStandInTheirOrder) {
    const auto document = documentOf(folder_.write("a.mp3", song()));
    EXPECT_EQ(namesOf(document.select_nodes("/ImportData/Drive/Properties/Property")),
              (std::vector<std::string>{"DriveType", "VolumeName", "AvailableSpace", "DriveLetter", "FileSystem",
                                        "FreeSpace", "Path", "RootFolder", "SerialNumber", "ShareName", "TotalSize"}));
}

TEST_F(FileDocumentTest, ThePropertiesOfTheFileStandInTheirOrder) {
    const auto document = documentOf(folder_.write("a.mp3", song()));
    EXPECT_EQ(namesOf(document.select_nodes("/ImportData/Files/File/Properties/Property")),
              (std::vector<std::string>{"DateCreated", "DateLastAccessed", "DateLastModified", "Name", "Size",
                                        "TypeName", "DriveLetter", "Path", "FullPath", "Type"}));
}

TEST_F(FileDocumentTest, TheElementsOfTheTagsFollowTheProperties) {
    const auto document = documentOf(folder_.write("a.mp3", song()));
    std::vector<std::string> names;
    for (const auto child : document.child("ImportData").child("Files").child("File")) names.emplace_back(child.name());
    EXPECT_EQ(names, (std::vector<std::string>{"Properties", "MPEGHeader", "ID3V1Tag", "ID3V2Tag", "LyricsTag"}));
}

TEST_F(FileDocumentTest, TheLyricsTagIsLoadedForTheDocument) {
    const auto document = documentOf(folder_.write("a.mp3", song()));
    EXPECT_EQ(value(document, "LyricsTag", "Lyrics"), "xyz");
    EXPECT_EQ(value(document, "ID3V1Tag", "Track"), "5");
    EXPECT_EQ(value(document, "MPEGHeader", "BitRate"), "128");
}

TEST_F(FileDocumentTest, PathAndFullPathCarryNoDrive) {
    const auto document = documentOf(folder_.write("a.mp3", song()));
    EXPECT_EQ("/" + value(document, "File", "Path"), folder_.path() + "/");
    EXPECT_EQ("/" + value(document, "File", "FullPath"), folder_.path("a.mp3"));
    EXPECT_EQ(value(document, "File", "DriveLetter"), "");
    EXPECT_EQ(value(document, "File", "Name"), "a.mp3");
    EXPECT_EQ(value(document, "File", "Size"), std::to_string(song().size()));
    EXPECT_EQ(value(document, "File", "Type"), "MP3");
    EXPECT_EQ(
        std::string(document.select_node("//File/Properties/Property[@Name = 'Type']").node().attribute("ID").value()),
        "1");
}

TEST_F(FileDocumentTest, DatesAreWrittenDayFirst) {
    const auto document = documentOf(folder_.write("a.mp3", song()));
    const std::regex pattern(R"(\d\d/\d\d/\d{4} \d\d:\d\d:\d\d)");
    for (const char* name : {"DateLastAccessed", "DateLastModified"}) {
        EXPECT_TRUE(std::regex_match(value(document, "File", name), pattern)) << value(document, "File", name);
    }
}

TEST(DateOr, ADateThatCannotBeReadIsTheOtherOne) {
    EXPECT_EQ(dateOr([] { return std::string("01/02/2003 04:05:06"); }, "other"), "01/02/2003 04:05:06");
    EXPECT_EQ(dateOr([] { return std::string(); }, "other"), "other");
    EXPECT_EQ(dateOr([]() -> std::string { throw RuntimeFailure(5, "", "no access times"); }, "other"), "other");
}

TEST_F(FileDocumentTest, AFileThatIsGoneFailsTheCallAndIsNotRecorded) {
    FileHandler handler;
    ASSERT_TRUE(handler.Create(folder_.write("a.mp3", song())));
    const std::string before = handler.LastError()->Stream();
    std::filesystem::remove(folder_.path("a.mp3"));
    EXPECT_THROW(handler.xml(), RuntimeFailure);
    EXPECT_EQ(handler.LastError()->Stream(), before);
}

TEST_F(FileDocumentTest, WithoutAnId3v1TagObjectItIsAnObjectThatIsNotSet) {
    FileHandler handler;
    ASSERT_TRUE(handler.Create(folder_.write("a.mp3", song())));
    handler.ID3v1xTag(nullptr);
    try {
        handler.xml();
        FAIL();
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.number(), static_cast<std::int32_t>(FailureNumber::ObjectNotSet));
    }
}

TEST_F(FileDocumentTest, ALyricsTagThatCannotBeLoadedDoesNotStopTheDocument) {
    const auto path = folder_.write("a.mp3", ByteBuilder().padTo(200, 1).text("LYRICSBEGINabcdefLYRICS200").done());
    FileHandler handler;
    ASSERT_TRUE(handler.Create(path));
    EXPECT_NE(handler.xml().find("<LyricsTag>"), std::string::npos);
    EXPECT_TRUE(handler.LastError()->Stream().starts_with("13, "));
}

TEST_F(FileDocumentTest, TheDocumentOfAFileImportsItsRecord) {
    FileHandler handler;
    ASSERT_TRUE(handler.Create(folder_.write("a.mp3", song())));
    const XmlNode record = XmlNode::fromText(handler.xml()).selectSingleNode(".//ID3V1Tag");
    ID3V1Tag tag;
    tag.Tag(record);
    EXPECT_EQ(tag.Track(), 5);
    EXPECT_EQ(tag.Genre(), 17);
    EXPECT_EQ(tag.TagType(), EID3TagConstants::ID3V11);
}

TEST_F(FileDocumentTest, ANameThatIsNotUtf8StaysWellFormed) {
    const auto document = documentOf(folder_.write("b\xFF\x01.mp3", song()));
    EXPECT_EQ(value(document, "File", "Name"), "b\uFFFD\uFFFD.mp3");
}

} // namespace
} // namespace corvane::filedocument_test
