// The facade over an ID3v2.3 tag where id3lib is installed.
#include "corvane/id3v2/ID3V23TagInternals.h"
#include "corvane/id3v2/ID3V2Tag.h"
#include "corvane/id3v230/ID3V230.h"
#include "corvane/platform/FileReader.h"
#include "corvane/platform/RuntimeFailure.h"
#include "corvane/xml/XmlNode.h"
#include "corvane/xml/XmlText.h"

#include "tests/id3v2/TagOnDisk.h"
#include "tests/support/Failures.h"
#include "tests/support/ImageBuilder.h"
#include "tests/support/WellFormed.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace corvane::backedid3v2tag_test {
namespace {

using namespace test;

TEST(BackedID3V2Tag, CanBeSaved) {
    TagOnDisk file(Id3v2Builder(3).text("TIT2", "x"));
    EXPECT_TRUE(file.tag.canSave());
    EXPECT_EQ(lastErrorOf(file.tag), "0, , ");
}

TEST(BackedID3V2Tag, OtherVersionsCannotBeSaved) {
    for (const unsigned version : {2U, 4U}) {
        TagOnDisk file(Id3v2Builder(version).text(version == 2 ? "TT2" : "TIT2", "x"));
        const ByteArray before = contentOf(file.path());
        EXPECT_FALSE(file.tag.canSave());
        EXPECT_FALSE(file.tag.saveTag());
        EXPECT_EQ(lastErrorOf(file.tag), "0, saveTag, Saving is not supported.");
        EXPECT_EQ(contentOf(file.path()), before);
    }
}

TEST(BackedID3V2Tag, AWriteBeforeTheFirstReadIsAFailure) {
    TagOnDisk file(Id3v2Builder(3).text("TIT2", "x"));
    EXPECT_EQ(failureNumberOf([&] { file.tag.Title("y"); }), static_cast<std::int32_t>(FailureNumber::ObjectNotSet));
    EXPECT_FALSE(file.tag.saveTag());
    EXPECT_TRUE(lastErrorOf(file.tag).starts_with("91, ")) << lastErrorOf(file.tag);
}

TEST(BackedID3V2Tag, WritesReachTheFileThroughSaveTag) {
    TagOnDisk file(Id3v2Builder(3).text("TIT2", "before").padding(100));
    const ByteArray before = contentOf(file.path());
    EXPECT_EQ(file.tag.Title(), "before");
    file.tag.Title("after");
    file.tag.Artist("\u041F\u0440\u0438\u0432\u0435\u0442");
    file.tag.Year("2001");
    file.tag.Comment("a comment");
    file.tag.UserURL("http://a/b?c=d");
    EXPECT_EQ(contentOf(file.path()), before);
    EXPECT_TRUE(file.tag.saveTag());
    EXPECT_TRUE(file.audioIsUntouched());
    EXPECT_EQ(lastErrorOf(file.tag), "0, , ") << "the reader's record is taken over after a failure only";
    TagOnDisk again(contentOf(file.path()));
    EXPECT_EQ(again.tag.Title(), "after");
    EXPECT_EQ(again.tag.Artist(), "\u041F\u0440\u0438\u0432\u0435\u0442");
    EXPECT_EQ(again.tag.Year(), "2001");
    EXPECT_EQ(again.tag.Comment(), "a comment");
    EXPECT_EQ(again.tag.UserURL(), "http://a/b?c=d");
}

// Players put frames of their own in front of the user's, told apart by their descriptions.
TEST(BackedID3V2Tag, AValueIsThatOfTheFrameWithoutADescriptionAlsoBehindOthers) {
    TagOnDisk file(Id3v2Builder(3)
                       .frame("COMM", commentFrame("iTunNORM", " 00000D8C"))
                       .frame("USLT", commentFrame("translation", "la"))
                       .frame("SYLT", syncedLyricsFrame("translation", {"la"}))
                       .frame("WXXX", userUrlFrame("shop", "http://shop"))
                       .padding(2000));
    EXPECT_EQ(file.tag.Comment() + file.tag.LyricsUnsynced() + file.tag.LyricsSynced() + file.tag.UserURL(), "");
    file.tag.Comment("a comment");
    file.tag.LyricsUnsynced("lyrics");
    file.tag.LyricsSynced("[00:01.0] one");
    file.tag.UserURL("http://own");
    for (const bool isSaved : {false, true}) {
        EXPECT_EQ(file.tag.Comment(), "a comment") << isSaved;
        EXPECT_EQ(file.tag.LyricsUnsynced(), "lyrics");
        EXPECT_EQ(file.tag.LyricsSynced(), "[00:01.0] one");
        EXPECT_EQ(file.tag.UserURL(), "http://own");
        EXPECT_TRUE(file.tag.saveTag());
    }
    TagOnDisk again(contentOf(file.path()));
    EXPECT_EQ(again.tag.Comment(), "a comment");
    EXPECT_EQ(again.tag.UserURL(), "http://own");
}

TEST(BackedID3V2Tag, AFailedSaveIsSeenInTheFacadesRecord) {
    TagOnDisk file(Id3v2Builder(3).text("TIT2", "before"));
    EXPECT_EQ(file.tag.Title(), "before");
    file.tag.Title("after");
    file.replaceFile();
    const ByteArray before = contentOf(file.path());
    EXPECT_FALSE(file.tag.saveTag());
    EXPECT_EQ(lastErrorOf(file.tag), "0, saveTag, Unable to save the ID3v23 tag.");
    EXPECT_EQ(contentOf(file.path()), before);
}

TEST(BackedID3V2Tag, SavingOptionsHaveNoEffect) {
    TagOnDisk file(Id3v2Builder(3).text("TIT2", "x"));
    const ByteArray before = contentOf(file.path());
    file.tag.SavingOptions(-1, 1);
    EXPECT_TRUE(file.tag.canSave());
    EXPECT_EQ(file.tag.Title(), "x");
    EXPECT_TRUE(file.tag.saveTag());
    EXPECT_TRUE(file.audioIsUntouched());
    EXPECT_EQ(contentOf(file.path()), before);
}

TEST(BackedID3V2Tag, AMissingFileGivesEmptyValuesAndNoFailure) {
    TagOnDisk file(Id3v2Builder(3).text("TIT2", "x"));
    std::filesystem::remove(file.path());
    EXPECT_EQ(file.tag.Title(), "");
    EXPECT_EQ(lastErrorOf(file.tag), "0, , ");
}

TEST(BackedID3V2Tag, ATagParsedForShowingIsNotChanged) {
    TagOnDisk file(Id3v2Builder(3).text("TIT2", "x"));
    ASSERT_TRUE(Internals<ID3V2Tag>::parse(file.tag));
    file.tag.Title("y");
    EXPECT_EQ(file.tag.Title(), "x");
    EXPECT_FALSE(file.tag.saveTag());
    EXPECT_EQ(lastErrorOf(file.tag), "0, saveTag, Saving is not supported.");
}

TEST(BackedID3V2Tag, DocumentsShowEveryRecordInOrder) {
    TagOnDisk file(Id3v2Builder(3)
                       .text("TPE1", "artist")
                       .frame("APIC", pictureFrame(bytesOf("no image")))
                       .text("TIT2", "first")
                       .text("TIT2", "second")
                       .frame("COMM", commentFrame("d", "comment"))
                       .frame("WXXX", userUrlFrame("", "http://a"))
                       .frame("PRIV", bytesOf("ab")));
    file.tag.Title();
    file.tag.Composer("composer");
    const std::string document = file.tag.xml();
    std::size_t last = 0;
    for (const char* text : {"artist", "bm8gaW1hZ2U=", "first", "second", "comment", "http://a", "YWI=", "composer"}) {
        const std::size_t found = document.find(text, last);
        ASSERT_NE(found, std::string::npos) << text << " in " << document;
        last = found;
    }
}

// The value of a property of a document; "none" without one.
std::string valueIn(const std::string& document, const char* name) {
    const XmlNode property =
        XmlNode::fromText(document).selectSingleNode(std::string("//Property[@Name = '").append(name).append("']"));
    if (!property) return "none";
    const XmlNode value = property.selectSingleNode("./Value");
    return value ? "bytes " + value.text() : property.attribute("Value").value_or("");
}

TEST(BackedID3V2Tag, ADeletedValueIsEmptyInTheDocument) {
    TagOnDisk file(Id3v2Builder(3)
                       .text("TCOM", "old")
                       .frame("WXXX", userUrlFrame("", "http://old"))
                       .frame("UFID", bytesOf(std::string_view("\0o l d ", 7)))
                       .text("TCOP", "")
                       .frame("PRIV", bytesOf("ab"))
                       .frame("TENC", bytesOf("\1abc"), 0x40));
    EXPECT_EQ(file.tag.Composer(), "old");
    file.tag.Composer("");
    file.tag.UserURL("");
    file.tag.Copyright("");
    Internals<ID3V23Tag>::changeable(*file.tag.ID3V23Tag())->UniqueKey("");
    const std::string document = file.tag.xml();
    for (const char* id : {"TCOM", "WXXX", "UFID"}) EXPECT_EQ(valueIn(document, id), "") << id << document;
    EXPECT_EQ(valueIn(document, "TCOP"), "bytes AA==") << "a text that was empty in the file";
    EXPECT_EQ(valueIn(document, "PRIV"), "bytes YWI=");
    EXPECT_EQ(valueIn(document, "TENC"), "bytes " + base64(bytesOf("abc"))) << "encrypted";
    file.tag.Composer("new");
    EXPECT_EQ(valueIn(file.tag.xml(), "TCOM"), "new");
}

TEST(BackedID3V2Tag, WritingBackWhatWasReadChangesNothing) {
    TagOnDisk file(Id3v2Builder(3)
                       .text("TYER", "1999-05-01")
                       .text("TCON", " (17)Rock ")
                       .frame("APIC", pictureFrame(bytesOf("RIFF....WEBP"), "image/webp"))
                       .frame("SYLT", bytesOf(std::string_view("\0eng\2\1\0one\0\0\0", 13)))
                       .padding(100));
    const ByteArray before = contentOf(file.path());
    EXPECT_EQ(file.tag.Year(), "1999");
    file.tag.Year(file.tag.Year());
    file.tag.Genre(file.tag.Genre());
    file.tag.Picture(file.tag.Picture());
    file.tag.LyricsSynced(file.tag.LyricsSynced());
    EXPECT_TRUE(file.tag.saveTag());
    EXPECT_EQ(contentOf(file.path()), before);
}

// The failure that rendering the tag ends with, 0 without one.
std::int32_t renderingFailure(ID3V2Tag& tag) {
    return failureNumberOf([&] { tag.xml(); });
}

TEST(BackedID3V2Tag, ADocumentWithoutAPayloadThatCanNoLongerBeReadIsAFailure) {
    const ByteArray large = countedBytes(100'000);
    for (const auto& [id, payload] : {std::pair("APIC", pictureFrame(large)), std::pair("GEOB", large),
                                      std::pair("TIT2", textFrame(std::string(100'000, 'x'))),
                                      std::pair("COMM", commentFrame("", std::string(100'000, 'x')))}) {
        TagOnDisk file(Id3v2Builder(3).text("TALB", "album").frame(id, payload));
        EXPECT_EQ(file.tag.Album(), "album");
        file.replaceFile();
        EXPECT_EQ(renderingFailure(file.tag), ESTALE) << id;
        std::filesystem::remove(file.path());
        EXPECT_EQ(renderingFailure(file.tag), ENOENT) << id;
    }
}

// An object that hosts hold shows the latest failure, also when the facade has taken over its reader's record since.
TEST(BackedID3V2Tag, AnErrorObtainedBeforeAFailureShowsThatFailure) {
    TagOnDisk file(Id3v2Builder(3).text("TIT2", "x"));
    const auto reader = file.tag.ID3V23Tag();
    const auto held = file.tag.LastError();
    Internals<ID3V23Tag>::refuseSaving(*reader, true);
    EXPECT_FALSE(file.tag.canSave());
    EXPECT_EQ(held->Stream(), "0, Save functionality, Saving is not supported.");
    Internals<ID3V23Tag>::refuseSaving(*reader, false);
    const auto heldSince = file.tag.LastError();
    file.replaceFile();
    file.tag.Title("y");
    EXPECT_FALSE(file.tag.saveTag());
    EXPECT_EQ(held->Stream(), "0, saveTag, Unable to save the ID3v23 tag.");
    EXPECT_EQ(heldSince->Stream(), held->Stream());
    EXPECT_EQ(lastErrorOf(file.tag), held->Stream());
}

TEST(BackedID3V2Tag, TheRecordTakenOverIsTheReadersOwn) {
    TagOnDisk file(Id3v2Builder(3).text("TIT2", "x"));
    const auto reader = file.tag.ID3V23Tag();
    Internals<ID3V23Tag>::refuseSaving(*reader, true);
    EXPECT_FALSE(file.tag.canSave());
    const auto held = file.tag.LastError();
    std::filesystem::remove(file.path());
    EXPECT_FALSE(reader->removeTag());
    EXPECT_EQ(held->Stream(), lastErrorOf(*reader));
    EXPECT_EQ(lastErrorOf(file.tag), lastErrorOf(*reader));
}

TEST(BackedID3V2Tag, AnUnknownFrameHasItsLettersInTheDocument) {
    TagOnDisk file(Id3v2Builder(3).frame("XYZW", bytesOf("abc")));
    EXPECT_NE(file.tag.xml().find("XYZW"), std::string::npos);
}

} // namespace
} // namespace corvane::backedid3v2tag_test
