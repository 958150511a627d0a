#include "corvane/core/FileHandler.h"

#include "corvane/id3v1/ID3V1Tag.h"
#include "corvane/id3v2/ID3V2Tag.h"
#include "corvane/id3v230/ID3V230.h"
#include "corvane/lyrics/LyricsTag.h"
#include "corvane/mpeg/MPEGHeader.h"
#include "corvane/platform/Drive.h"
#include "corvane/platform/File.h"
#include "corvane/platform/RuntimeFailure.h"

#include "tests/core/FileHandlerFiles.h"
#include "tests/support/Failures.h"
#include "tests/support/MpegBuilder.h"

#include <sys/stat.h>

#include <cerrno>
#include <filesystem>

namespace corvane {
namespace {

using namespace test;
using enum EID3TagConstants;

class FileHandlerTest : public FileHandlerFiles {};

TEST_F(FileHandlerTest, AnEmptyHandlerKnowsNothing) {
    FileHandler handler;
    EXPECT_EQ(handler.FileName(), "");
    EXPECT_EQ(handler.FileType(), 0);
    EXPECT_EQ(handler.FileTypeName(), "Unknown");
    EXPECT_FALSE(handler.HasID3V2Tag());
    EXPECT_FALSE(handler.HasID3V1Tag());
    EXPECT_FALSE(handler.HasTag());
    EXPECT_FALSE(handler.HasLyricsTag());
    EXPECT_EQ(handler.Size(), 0);
    ASSERT_TRUE(handler.ID3v1xTag());
    EXPECT_EQ(handler.ID3v1xTag()->Genre(), 255);
    EXPECT_TRUE(handler.ID3V2Tag());
    EXPECT_TRUE(handler.MPEGHeader());
    EXPECT_TRUE(handler.LyricsTag());
    EXPECT_EQ(handler.LastError()->Stream(), "0, , ");
}

TEST_F(FileHandlerTest, AnMp3FileIsAnalysed) {
    FileHandler handler;
    const auto path = write(with(audio(), record(0, 7)));
    ASSERT_TRUE(handler.Create(path));
    EXPECT_EQ(handler.FileName(), path);
    EXPECT_EQ(handler.FileType(), 1);
    EXPECT_EQ(handler.FileTypeName(), "MP3");
    EXPECT_EQ(handler.Size(), 1128);
    EXPECT_TRUE(handler.HasTag());
    EXPECT_TRUE(handler.HasID3V1Tag());
    EXPECT_FALSE(handler.HasID3V2Tag());
    EXPECT_EQ(handler.MPEGHeader()->BitRate(), 128);
}

// The header object is made once; what a Xing header has set stays for the files that come after it.
TEST_F(FileHandlerTest, TheNumbersOfAXingHeaderStayOverASecondCreate) {
    FileHandler handler;
    ASSERT_TRUE(
        handler.Create(folder_.write("vbr.mp3", joined({xingFrame({}, {.flags = 1, .frames = 1234}), audio()}))));
    const auto header = handler.MPEGHeader();
    EXPECT_TRUE(header->VBR());
    EXPECT_EQ(header->NumFrames(), 1234);
    ASSERT_TRUE(handler.Create(write(audio())));
    EXPECT_EQ(handler.MPEGHeader(), header);
    EXPECT_EQ(header->AudioSize(), 998) << "of the second file";
    EXPECT_TRUE(header->VBR());
    EXPECT_EQ(header->NumFrames(), 1234);
    EXPECT_EQ(header->BitRate(), 0) << "998 bytes in 1234 frames: 0.248 kbit/s, rounded down";
}

TEST_F(FileHandlerTest, AZipArchiveIsRefused) {
    FileHandler handler;
    EXPECT_FALSE(handler.Create(write(bytesOf("PK\x03\x04 archive"))));
    EXPECT_EQ(handler.FileType(), 2);
    EXPECT_EQ(handler.FileTypeName(), "ZIP");
    EXPECT_EQ(handler.LastError()->Stream(), "-2147221504, Create, This is a ZIP-File");
}

TEST_F(FileHandlerTest, ARarArchiveIsNotRecognised) {
    for (const unsigned byte5 : {0x07U, 0x00U}) {
        FileHandler handler;
        EXPECT_TRUE(handler.Create(write(ByteBuilder().text("Rar!\x1A").byte(byte5).byte(0).padTo(100).done())));
        EXPECT_EQ(handler.FileType(), 1);
    }
}

TEST_F(FileHandlerTest, AMissingFileFailsWithTheTextOfTheSystem) {
    FileHandler handler;
    EXPECT_FALSE(handler.Create(folder_.path("none.mp3")));
    EXPECT_EQ(handler.LastError()->Stream(), std::to_string(ENOENT) + ", open, No such file or directory");
}

TEST_F(FileHandlerTest, FoldersPipesAndDevicesFailAtOnce) {
    const std::string pipe = folder_.path("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& path : {folder_.path(), pipe, std::string("/dev/zero"), std::string()}) {
        FileHandler handler;
        EXPECT_FALSE(handler.Create(path)) << path;
        EXPECT_NE(handler.LastError()->Stream(), "0, , ") << path;
        EXPECT_FALSE(handler.HasTag()) << path;
        handler.ID3v1xTag()->TagType(ID3V11);
        EXPECT_FALSE(handler.writeID3v1xTag()) << path;
        EXPECT_FALSE(handler.removeID3V1xTag()) << path;
    }
}

TEST_F(FileHandlerTest, WhatIsNoFileHasNoEntryAndThatIsRecorded) {
    for (const auto& [path, failure] :
         {std::pair(folder_.path(), systemFailure(EISDIR, "file")),
          std::pair(std::string("/dev/null"), RuntimeFailure(EINVAL, "file", "Not a regular file"))}) {
        FileHandler handler;
        EXPECT_FALSE(handler.Create(path));
        handler.readTag();
        EXPECT_EQ(handler.LastError()->Stream(), "0, Read Tag, File does not exist.");
        EXPECT_FALSE(handler.File());
        EXPECT_EQ(handler.LastError()->Stream(), std::to_string(failure.number()) + ", file, " + failure.description());
        EXPECT_EQ(test::failureNumberOf([&] { handler.xml(); }), failure.number()) << path;
        EXPECT_TRUE(handler.Drive()) << "what is no file lies on a drive too";
    }
}

TEST_F(FileHandlerTest, ANameIsNotCutAtANulByte) {
    const ByteArray content = with(audio(), record(0, 7));
    const std::string path = write(content);
    FileHandler handler;
    EXPECT_FALSE(handler.Create(path + std::string("\0x", 2)));
    EXPECT_EQ(handler.LastError()->Stream(), "22, open, Invalid argument");
    EXPECT_FALSE(handler.HasTag());
    EXPECT_FALSE(handler.HasLyricsTag());
    handler.ID3v1xTag()->TagType(ID3V11);
    EXPECT_FALSE(handler.writeID3v1xTag());
    EXPECT_FALSE(handler.removeID3V1xTag());
    EXPECT_FALSE(handler.createID3V2Tag(std::make_shared<ID3V230>()));
    EXPECT_FALSE(handler.File());
    EXPECT_EQ(contentOf(path), content);
}

TEST_F(FileHandlerTest, TheFileTypeStaysWhenASecondFileCannotBeOpened) {
    const std::string song = write(audio());
    const std::string archive = folder_.write("a.zip", bytesOf("PK\x03\x04 archive"));
    FileHandler handler;
    ASSERT_TRUE(handler.Create(song));
    EXPECT_FALSE(handler.Create(folder_.path("none.mp3")));
    EXPECT_EQ(handler.FileType(), 1);
    EXPECT_FALSE(handler.Create(archive));
    EXPECT_EQ(handler.FileType(), 2);
    EXPECT_FALSE(handler.Create(folder_.path("none.mp3")));
    EXPECT_EQ(handler.FileType(), 2);
    EXPECT_EQ(handler.FileTypeName(), "ZIP");
    EXPECT_TRUE(handler.Create(song));
    EXPECT_EQ(handler.FileType(), 1);
}

TEST_F(FileHandlerTest, FilesShorterThanARecordHaveNone) {
    for (const std::size_t size : {0, 1, 9, 10, 127}) {
        FileHandler handler;
        EXPECT_TRUE(handler.Create(write(ByteArray(size, 'T')))) << size;
        EXPECT_FALSE(handler.HasID3V1Tag());
        EXPECT_EQ(handler.LastError()->Stream(), "0, Read Tag, The file contains no tag.");
    }
}

TEST_F(FileHandlerTest, WithoutAnAudioFrameCreateGoesOnAndTellsOfIt) {
    FileHandler handler;
    EXPECT_TRUE(handler.Create(write(with(ByteArray(500, 0), record(0, 7)))));
    EXPECT_EQ(handler.LastError()->Stream(), "0, LoadHeaderEx, 0, , ");
    EXPECT_EQ(handler.ID3v1xTag()->Track(), 7);
}

struct RecordCase {
    const char* name;
    unsigned byte125, byte126;
    EID3TagConstants type;
    int track;
    const char* comment;
};

class RecordKind : public testing::TestWithParam<RecordCase> {};

TEST_P(RecordKind, FollowsFromTheLastTwoBytesOfTheComment) {
    const ScratchFolder folder;
    FileHandler handler;
    const RecordCase& tested = GetParam();
    ASSERT_TRUE(handler.Create(folder.write("a.mp3", with(audio(), record(tested.byte125, tested.byte126)))));
    EXPECT_EQ(handler.ID3v1xTag()->TagType(), tested.type);
    EXPECT_EQ(handler.ID3v1xTag()->Track(), tested.track);
    EXPECT_EQ(handler.ID3v1xTag()->Comment(), tested.comment);
    EXPECT_EQ(handler.ID3v1xTag()->Genre(), 17);
}

INSTANTIATE_TEST_SUITE_P(Bytes125And126, RecordKind,
                         testing::Values(RecordCase{"ZeroAndSeven", 0, 7, ID3V11, 7, "A comment of twenty-eight ch"},
                                         RecordCase{"ZeroAndZero", 0, 0, ID3v1, 0, "A comment of twenty-eight ch"},
                                         RecordCase{"TwoLetters", 'a', 'r', ID3v1, 0,
                                                    "A comment of twenty-eight char"}),
                         [](const auto& tested) { return tested.param.name; });

TEST_F(FileHandlerTest, AFieldEndsAtItsFirstZeroByteAndIsTrimmed) {
    FileHandler handler;
    ASSERT_TRUE(handler.Create(write(with(audio(), record(0, 7)))));
    EXPECT_EQ(handler.ID3v1xTag()->Artist(), "Abc");
    EXPECT_EQ(handler.ID3v1xTag()->Album(), "");
    EXPECT_EQ(handler.ID3v1xTag()->Year(), "2001");
}

TEST_F(FileHandlerTest, ReadTagOfAnExistingFileReadsAndRecordsNothing) {
    FileHandler handler;
    ASSERT_TRUE(handler.Create(write(audio())));
    const std::string before = handler.LastError()->Stream();
    write(with(audio(), record(0, 7)));
    EXPECT_EQ(handler.readTag(), ID3Unknown);
    EXPECT_EQ(handler.LastError()->Stream(), before);
    EXPECT_EQ(handler.ID3v1xTag()->TagType(), ID3Unknown);
}

TEST_F(FileHandlerTest, ReadTagOfAMissingFileIsRecorded) {
    FileHandler handler;
    EXPECT_EQ(handler.readTag(), ID3Unknown);
    EXPECT_EQ(handler.LastError()->Stream(), "0, Read Tag, File does not exist.");
}

TEST_F(FileHandlerTest, AFileThatIsNothingButARecordHasNoTag) {
    FileHandler handler;
    ASSERT_TRUE(handler.Create(write(record(0, 7))));
    EXPECT_FALSE(handler.HasTag());
    EXPECT_TRUE(handler.HasID3V1Tag());
}

TEST_F(FileHandlerTest, HasTagLooksAtTheFileAsItIsNow) {
    FileHandler handler;
    ASSERT_TRUE(handler.Create(write(audio())));
    const std::string before = handler.LastError()->Stream();
    EXPECT_FALSE(handler.HasTag());
    write(with(audio(), record(0, 7)));
    EXPECT_TRUE(handler.HasTag());
    std::filesystem::remove(folder_.path("a.mp3"));
    EXPECT_FALSE(handler.HasTag());
    EXPECT_EQ(handler.LastError()->Stream(), before);
}

ByteArray id3v2Tag(Bytes body) {
    return ByteBuilder()
        .text("ID3")
        .byte(3)
        .byte(0)
        .byte(0)
        .synchsafe(static_cast<std::uint32_t>(body.size()))
        .bytes(body)
        .done();
}

ByteArray titleFrame() {
    return ByteBuilder().text("TIT2").bigEndian(5, 4).byte(0).byte(0).byte(0).text("abcd").done();
}

TEST_F(FileHandlerTest, AnId3v2HeaderIsHandedOnAndTheAudioSearchedBehindIt) {
    FileHandler handler;
    ASSERT_TRUE(handler.Create(write(with(id3v2Tag(titleFrame()), audio()))));
    EXPECT_TRUE(handler.HasID3V2Tag());
    EXPECT_EQ(handler.ID3V2Tag()->Title(), "abcd");
    EXPECT_EQ(handler.MPEGHeader()->AudioSize(), 998);
}

struct HeaderCase {
    const char* name;
    std::array<unsigned, 7> bytes; // major, revision, flags, size
    bool valid;
};

class Id3v2Header : public testing::TestWithParam<HeaderCase> {};

TEST_P(Id3v2Header, IsCheckedByteByByte) {
    const ScratchFolder folder;
    ByteBuilder file;
    file.text("ID3");
    for (const unsigned value : GetParam().bytes) file.byte(value);
    FileHandler handler;
    ASSERT_TRUE(handler.Create(folder.write("a.mp3", file.padTo(200).done())));
    EXPECT_EQ(handler.HasID3V2Tag(), GetParam().valid);
    EXPECT_EQ(handler.ID3V2Tag()->Version()->Minor(), GetParam().valid ? static_cast<int>(GetParam().bytes[0]) : 0);
}

INSTANTIATE_TEST_SUITE_P(Bytes, Id3v2Header,
                         testing::Values(HeaderCase{"Usual", {3, 0, 0, 0, 0, 0, 100}, true},
                                         HeaderCase{"LargestVersion", {0xFE, 0xFE, 0, 0, 0, 0, 1}, true},
                                         HeaderCase{"AllFlags", {3, 0, 0xFF, 0, 0, 0, 1}, true},
                                         HeaderCase{"LargestSize", {3, 0, 0, 0x7F, 0x7F, 0x7F, 0x7F}, true},
                                         HeaderCase{"ForbiddenVersion", {0xFF, 0, 0, 0, 0, 0, 1}, false},
                                         HeaderCase{"ForbiddenRevision", {3, 0xFF, 0, 0, 0, 0, 1}, false},
                                         HeaderCase{"FirstSizeByte", {3, 0, 0, 0x80, 0, 0, 1}, false},
                                         HeaderCase{"SecondSizeByte", {3, 0, 0, 0, 0x80, 0, 1}, false},
                                         HeaderCase{"ThirdSizeByte", {3, 0, 0, 0, 0, 0x80, 1}, false},
                                         HeaderCase{"FourthSizeByte", {3, 0, 0, 0, 0, 0, 0x80}, false}),
                         [](const auto& tested) { return tested.param.name; });

TEST_F(FileHandlerTest, ASecondCreateStartsFromThePreviousState) {
    FileHandler handler;
    ASSERT_TRUE(handler.Create(write(with(id3v2Tag(titleFrame()), audio()))));
    const auto tag = handler.ID3V2Tag();
    const auto v1 = handler.ID3v1xTag();
    ASSERT_TRUE(handler.Create(folder_.write("b.mp3", audio())));
    EXPECT_TRUE(handler.HasID3V2Tag());
    EXPECT_EQ(handler.ID3V2Tag(), tag);
    EXPECT_NE(handler.ID3v1xTag(), v1);
}

TEST_F(FileHandlerTest, AnInvalidHeaderBringsANewId3v2TagButKeepsTheFlag) {
    FileHandler handler;
    ASSERT_TRUE(handler.Create(write(with(id3v2Tag(titleFrame()), audio()))));
    const auto tag = handler.ID3V2Tag();
    ASSERT_TRUE(handler.Create(folder_.write("b.mp3", ByteBuilder().text("ID3").repeat(0xFF, 7).padTo(200).done())));
    EXPECT_NE(handler.ID3V2Tag(), tag);
    EXPECT_TRUE(handler.HasID3V2Tag());
}

ByteArray lyricsTag() { return bytesOf("LYRICSBEGINETT00005TitleLYR00003xyz000035LYRICS200"); }

TEST_F(FileHandlerTest, TheLyricsTagIsLoadedWhenItIsFirstAskedFor) {
    FileHandler handler;
    ASSERT_TRUE(handler.Create(write(joined({audio(), lyricsTag(), record(0, 7)}))));
    EXPECT_EQ(handler.LyricsTag()->Version(), ELyricsVersionConstants::lvcUnknown);
    EXPECT_TRUE(handler.HasLyricsTag());
    EXPECT_EQ(handler.LyricsTag()->Title(), "Title");
    EXPECT_EQ(handler.LyricsTag()->Lyrics(), "xyz");
}

TEST_F(FileHandlerTest, TheLyricsTagIsReadOnceForAFileName) {
    FileHandler handler;
    ASSERT_TRUE(handler.Create(write(audio())));
    EXPECT_FALSE(handler.HasLyricsTag());
    write(with(audio(), lyricsTag()));
    EXPECT_FALSE(handler.HasLyricsTag());
    ASSERT_TRUE(handler.Create(folder_.write("b.mp3", with(audio(), lyricsTag()))));
    EXPECT_TRUE(handler.HasLyricsTag());
}

TEST_F(FileHandlerTest, AFailureOfTheLyricsTagIsRecorded) {
    FileHandler handler;
    ASSERT_TRUE(handler.Create(write(with(audio(), bytesOf("LYRICSBEGINabcdefLYRICS200")))));
    handler.HasLyricsTag();
    EXPECT_TRUE(handler.LastError()->Stream().starts_with("13, ")) << handler.LastError()->Stream();
}

TEST_F(FileHandlerTest, AViewOfTheRecordShowsALaterFailureAndOutlivesTheHandler) {
    std::shared_ptr<TagError> view;
    {
        FileHandler handler;
        view = handler.LastError();
        EXPECT_EQ(view->Stream(), "0, , ");
        handler.readTag();
    }
    EXPECT_EQ(view->Stream(), "0, Read Tag, File does not exist.");
}

TEST_F(FileHandlerTest, ThePathHasNeitherDriveNorFirstSeparator) {
    FileHandler handler;
    ASSERT_TRUE(handler.Create(write(audio())));
    EXPECT_EQ("/" + handler.Path(), folder_.path() + "/");
    handler.Create("/a.mp3");
    EXPECT_EQ(handler.Path(), "");
    handler.Create("/Music/Rock/a.mp3");
    EXPECT_EQ(handler.Path(), "Music/Rock/");
}

TEST_F(FileHandlerTest, ThePathOfARelativeNameIsThatOfItsAbsoluteForm) {
    write(audio());
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder_.path());
    FileHandler handler;
    EXPECT_TRUE(handler.Create("./a.mp3"));
    EXPECT_EQ("/" + handler.Path(), folder_.path() + "/");
    std::filesystem::current_path(before);
}

TEST_F(FileHandlerTest, DriveAndFileAreThoseOfTheFileSystem) {
    FileHandler handler;
    ASSERT_TRUE(handler.Create(write(audio())));
    ASSERT_TRUE(handler.Drive());
    EXPECT_GT(handler.Drive()->TotalSize(), 0U);
    ASSERT_TRUE(handler.File());
    EXPECT_EQ(handler.File()->Name(), "a.mp3");
    EXPECT_EQ(handler.File()->Size(), 1000U);
}

TEST_F(FileHandlerTest, AFileThatIsGoneHasNoEntryAndThatIsRecorded) {
    FileHandler handler;
    ASSERT_TRUE(handler.Create(write(audio())));
    std::filesystem::remove(folder_.path("a.mp3"));
    EXPECT_FALSE(handler.File());
    EXPECT_TRUE(handler.LastError()->Stream().starts_with("2, ")) << handler.LastError()->Stream();
}

TEST_F(FileHandlerTest, AFileBeyondTwoGibibytesIsAnOverflowOfItsHeaderOnly) {
    const auto path = write(audio());
    std::filesystem::resize_file(path, 2'147'483'648);
    FileHandler handler;
    EXPECT_TRUE(handler.Create(path));
    EXPECT_EQ(handler.FileType(), 1);
    EXPECT_EQ(handler.MPEGHeader()->BitRate(), 0);
}

} // namespace
} // namespace corvane
