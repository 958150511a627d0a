#include "corvane/core/FileHandler.h"
#include "corvane/id3v1/ID3V1Tag.h"
#include "corvane/id3v2/ID3V2Tag.h"

#include "tests/core/FileHandlerFiles.h"
#include "tests/support/Id3v2Builder.h"
#include "tests/support/ImageBuilder.h"

#include <filesystem>

namespace corvane {
namespace {

using namespace test;
using enum EID3TagConstants;

class FileHandlerSaving : public FileHandlerFiles {};

void fillTag(ID3V1Tag& tag) {
    tag.Title("A title that is longer than thirty characters");
    tag.Artist("Жzé");
    tag.Year("1999");
    tag.Comment("A comment that is longer than thirty characters");
    tag.Track(9);
    tag.Genre(3);
}

TEST_F(FileHandlerSaving, ARecordIsAppendedWhereThereIsNone) {
    FileHandler handler;
    const auto path = write(audio());
    ASSERT_TRUE(handler.Create(path));
    fillTag(*handler.ID3v1xTag());
    handler.ID3v1xTag()->TagType(ID3V11);
    ASSERT_TRUE(handler.writeID3v1xTag());
    EXPECT_EQ(contentOf(path), with(audio(), ByteBuilder()
                                                 .text("TAG")
                                                 .text("A title that is longer than th")
                                                 .text("?z\xE9")
                                                 .padTo(93)
                                                 .text("1999")
                                                 .text("A comment that is longer tha")
                                                 .byte(0)
                                                 .byte(9)
                                                 .byte(3)
                                                 .done()));
}

TEST_F(FileHandlerSaving, ARecordReplacesTheOneThatIsThere) {
    FileHandler handler;
    const auto path = write(with(audio(), record(0, 7)));
    ASSERT_TRUE(handler.Create(path));
    fillTag(*handler.ID3v1xTag());
    handler.ID3v1xTag()->TagType(ID3v1);
    ASSERT_TRUE(handler.writeID3v1xTag());
    const ByteArray content = contentOf(path);
    ASSERT_EQ(content.size(), 1128U);
    EXPECT_EQ(ByteArray(content.begin(), content.begin() + 1000), audio());
    FileHandler again;
    ASSERT_TRUE(again.Create(path));
    EXPECT_EQ(again.ID3v1xTag()->Comment(), "A comment that is longer than");
    EXPECT_EQ(again.ID3v1xTag()->TagType(), ID3v1);
}

TEST_F(FileHandlerSaving, AfterAFileThatIsNothingButARecordAnotherIsAppended) {
    FileHandler handler;
    const auto path = write(record(0, 7));
    ASSERT_TRUE(handler.Create(path));
    ASSERT_TRUE(handler.writeID3v1xTag());
    EXPECT_EQ(contentOf(path).size(), 256U);
}

TEST_F(FileHandlerSaving, OfTwoRecordsTheLastOneIsReadReplacedAndRemoved) {
    const ByteArray first = with(audio(), record(0, 7, 1));
    const auto path = write(with(first, record(0, 9, 2)));
    FileHandler handler;
    ASSERT_TRUE(handler.Create(path));
    EXPECT_EQ(handler.ID3v1xTag()->Track(), 9);
    EXPECT_EQ(handler.ID3v1xTag()->Genre(), 2);
    handler.ID3v1xTag()->Genre(3);
    ASSERT_TRUE(handler.writeID3v1xTag());
    ByteArray replaced = contentOf(path);
    ASSERT_EQ(replaced.size(), first.size() + 128);
    EXPECT_EQ(replaced.back(), 3);
    replaced.resize(first.size());
    EXPECT_EQ(replaced, first);
    ASSERT_TRUE(handler.removeID3V1xTag());
    EXPECT_EQ(contentOf(path), first);
    EXPECT_TRUE(handler.HasTag()) << "the first record is the last one now";
    ASSERT_TRUE(handler.removeID3V1xTag());
    EXPECT_EQ(contentOf(path), audio());
    EXPECT_FALSE(handler.removeID3V1xTag());
}

TEST_F(FileHandlerSaving, WhatAnotherProgramHasAppendedIsKept) {
    const ByteArray opened = with(audio(), record(0, 7));
    const ByteArray appended(50, 'x');
    const auto path = write(opened);
    FileHandler handler;
    ASSERT_TRUE(handler.Create(path));
    write(with(opened, appended));
    ASSERT_TRUE(handler.writeID3v1xTag());
    const ByteArray content = contentOf(path);
    ASSERT_EQ(content.size(), opened.size() + appended.size() + 128) << "the record stands behind the last byte";
    EXPECT_TRUE(std::equal(opened.begin(), opened.end(), content.begin()));
    EXPECT_TRUE(
        std::equal(appended.begin(), appended.end(), content.begin() + static_cast<std::ptrdiff_t>(opened.size())));
}

TEST_F(FileHandlerSaving, ARecordThatAnotherProgramHasAppendedIsReplaced) {
    const auto path = write(audio());
    FileHandler handler;
    ASSERT_TRUE(handler.Create(path));
    write(joined({audio(), ByteArray(50, 'x'), record(0, 7)}));
    handler.ID3v1xTag()->Title("Mine");
    handler.ID3v1xTag()->TagType(ID3v1);
    ASSERT_TRUE(handler.writeID3v1xTag());
    FileHandler again;
    ASSERT_TRUE(again.Create(path));
    EXPECT_EQ(again.ID3v1xTag()->Title(), "Mine");
    EXPECT_EQ(contentOf(path).size(), audio().size() + 50 + 128);
}

TEST_F(FileHandlerSaving, AFileThatIsNothingButARecordHasNoneToRemove) {
    FileHandler handler;
    const auto path = write(record(0, 7));
    ASSERT_TRUE(handler.Create(path));
    EXPECT_FALSE(handler.removeID3V1xTag());
    EXPECT_EQ(handler.LastError()->Stream(), "0, RemoveTag, The file has no ID3v1x tag.");
    EXPECT_EQ(contentOf(path), record(0, 7));
}

TEST_F(FileHandlerSaving, AnUnknownTagTypeIsNotWritten) {
    FileHandler handler;
    const auto path = write(audio());
    ASSERT_TRUE(handler.Create(path));
    EXPECT_FALSE(handler.writeID3v1xTag());
    EXPECT_EQ(handler.LastError()->Stream(), "0, Write Tag, Tag unknown.");
    EXPECT_EQ(contentOf(path), audio());
}

TEST_F(FileHandlerSaving, AMissingFileIsNotWritten) {
    FileHandler handler;
    ASSERT_TRUE(handler.Create(write(audio())));
    std::filesystem::remove(folder_.path("a.mp3"));
    handler.ID3v1xTag()->TagType(ID3v1);
    EXPECT_FALSE(handler.writeID3v1xTag());
    EXPECT_EQ(handler.LastError()->Stream(), "0, Write Tag, File does not exist.");
    EXPECT_TRUE(folder_.names().empty());
}

TEST_F(FileHandlerSaving, ATrackThatNoByteHoldsFailsTheWriteAndLeavesTheFile) {
    const auto path = write(with(audio(), record(0, 7)));
    for (const std::int16_t track : {std::int16_t{-1}, std::int16_t{256}}) {
        FileHandler handler;
        ASSERT_TRUE(handler.Create(path));
        handler.ID3v1xTag()->Track(track);
        EXPECT_FALSE(handler.writeID3v1xTag());
        EXPECT_TRUE(handler.LastError()->Stream().starts_with("6, ")) << handler.LastError()->Stream();
        EXPECT_EQ(contentOf(path), with(audio(), record(0, 7)));
    }
}

TEST_F(FileHandlerSaving, AHostsOwnTagObjectIsWritten) {
    FileHandler handler;
    const auto path = write(audio());
    ASSERT_TRUE(handler.Create(path));
    const auto own = std::make_shared<ID3V1Tag>();
    own->Title("Own");
    own->TagType(ID3v1);
    handler.ID3v1xTag(own);
    EXPECT_EQ(handler.ID3v1xTag(), own);
    ASSERT_TRUE(handler.writeID3v1xTag());
    handler.ID3v1xTag(nullptr);
    EXPECT_FALSE(handler.HasID3V1Tag());
    EXPECT_FALSE(handler.writeID3v1xTag());
    EXPECT_TRUE(handler.LastError()->Stream().starts_with("91, ")) << handler.LastError()->Stream();
    EXPECT_TRUE(handler.removeID3V1xTag());
    EXPECT_EQ(contentOf(path), audio());
}

TEST_F(FileHandlerSaving, RemovingCutsTheRecordOffAndLeavesTheObjects) {
    FileHandler handler;
    const auto path = write(with(audio(), record(0, 7)));
    ASSERT_TRUE(handler.Create(path));
    ASSERT_TRUE(handler.removeID3V1xTag());
    EXPECT_EQ(contentOf(path), audio());
    EXPECT_EQ(folder_.names(), std::vector<std::string>{"a.mp3"});
    EXPECT_TRUE(handler.HasID3V1Tag());
    EXPECT_EQ(handler.ID3v1xTag()->Title(), "A title");
    EXPECT_FALSE(handler.HasTag());
}

TEST_F(FileHandlerSaving, PicturesCanStillBeReadAfterChangesOfItsOwn) {
    const ByteArray picture = pngImage(100, 100);
    const auto frame = joined({pictureFrame(picture), ByteArray(10'000, 7)});
    FileHandler handler;
    ASSERT_TRUE(
        handler.Create(write(joined({Id3v2Builder(3).text("TIT2", "t").frame("APIC", frame).done(), audio()}))));
    ASSERT_EQ(handler.ID3V2Tag()->Title(), "t");
    handler.ID3v1xTag()->TagType(ID3v1);
    for (const auto change :
         {&FileHandler::writeID3v1xTag, &FileHandler::writeID3v1xTag, &FileHandler::removeID3V1xTag}) {
        ASSERT_TRUE((handler.*change)());
        ASSERT_TRUE(handler.ID3V2Tag()->Picture());
        EXPECT_NO_THROW(handler.ID3V2Tag()->xml());
    }
}

TEST_F(FileHandlerSaving, PicturesOfAFileThatSomebodyElseHasChangedStayRefusedAfterChangesOfItsOwn) {
    const auto frame = joined({pictureFrame(pngImage(100, 100)), ByteArray(10'000, 7)});
    const ByteArray tag = Id3v2Builder(3).text("TIT2", "t").frame("APIC", frame).done();
    FileHandler handler;
    ASSERT_TRUE(handler.Create(write(with(tag, audio()))));
    ASSERT_EQ(handler.ID3V2Tag()->Title(), "t");
    write(joined({tag, audio(), audio()}));
    handler.ID3v1xTag()->TagType(ID3v1);
    ASSERT_TRUE(handler.writeID3v1xTag());
    EXPECT_FALSE(handler.ID3V2Tag()->Picture());
}

TEST_F(FileHandlerSaving, RemovingWhatIsNotThereIsRecorded) {
    FileHandler handler;
    const auto path = write(audio());
    ASSERT_TRUE(handler.Create(path));
    EXPECT_FALSE(handler.removeID3V1xTag());
    EXPECT_EQ(handler.LastError()->Stream(), "0, RemoveTag, The file has no ID3v1x tag.");
    EXPECT_EQ(contentOf(path), audio());
}

} // namespace
} // namespace corvane
