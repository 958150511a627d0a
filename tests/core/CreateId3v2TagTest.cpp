#include "corvane/core/FileHandler.h"
#include "corvane/id3v2/ID3V2Tag.h"
#include "corvane/id3v230/ID3V230.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/HostMessageBox.h"
#include "tests/support/Id3v2Builder.h"
#include "tests/support/ImageBuilder.h"
#include "tests/support/Mp3File.h"
#include "tests/support/Process.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

namespace corvane::createid3v2tag_test {
namespace {

using namespace test;

ByteArray audio() { return ByteBuilder().repeat(0x55, 3000).done(); }

std::shared_ptr<ID3V230> fullTag() {
    auto tag = std::make_shared<ID3V230>();
    tag->Album("album");
    tag->Artist("artist");
    tag->ArtistURL("http://artist");
    tag->Comments("comments");
    tag->Composer("composer");
    tag->Copyright("copyright");
    tag->EncodedBy("encoded by");
    tag->Genre("(17)Rock");
    tag->LyricsSynced("[00:01.0] one\n[00:02.5] two");
    tag->LyricsUnsynced("one\ntwo");
    tag->Mood("mood");
    tag->OriginalArtist("original artist");
    tag->Picture(Picture::fromBytes(pngImage(4, 3)));
    tag->Preference("preference");
    tag->Situation("situation");
    tag->Tempo("tempo");
    tag->Title("title \u65E5\u672C");
    tag->Track("3/12");
    tag->UserText("user text");
    tag->UserURL("http://user");
    tag->Year(2001);
    return tag;
}

class CreateId3v2Tag : public testing::Test {
protected:
    ScratchFolder folder;
    std::string path = folder.write("song.mp3", joined({audio(), id3v1Record()}));
    FileHandler handler;

    static ByteArray id3v1Record() { return ByteBuilder().text("TAG").text("old title").padTo(128).done(); }
    // Whether what the file held stands behind the new tag.
    bool restIsUntouched() const { return audioIsUntouched(contentOf(path), joined({audio(), id3v1Record()})); }
};

TEST_F(CreateId3v2Tag, GivesAFileWithoutATagEveryNamedValue) {
    ASSERT_TRUE(handler.Create(path));
    EXPECT_TRUE(handler.createID3V2Tag(fullTag()));
    EXPECT_TRUE(restIsUntouched());
    FileHandler again;
    ASSERT_TRUE(again.Create(path));
    ASSERT_TRUE(again.HasID3V2Tag());
    const auto tag = again.ID3V2Tag();
    EXPECT_EQ(tag->Version()->Minor(), 3);
    EXPECT_EQ(tag->Album(), "album");
    EXPECT_EQ(tag->Artist(), "artist");
    EXPECT_EQ(tag->Comment(), "comments");
    EXPECT_EQ(tag->Composer(), "composer");
    EXPECT_EQ(tag->Copyright(), "copyright");
    EXPECT_EQ(tag->EncodedBy(), "encoded by");
    EXPECT_EQ(tag->Genre(), "(17)Rock");
    EXPECT_EQ(tag->LyricsSynced(), "[00:01.0] one\n[00:02.5] two");
    EXPECT_EQ(tag->LyricsUnsynced(), "one\ntwo");
    EXPECT_EQ(tag->OriginalArtist(), "original artist");
    EXPECT_EQ(tag->Title(), "title \u65E5\u672C");
    EXPECT_EQ(tag->Track(), "3/12");
    EXPECT_EQ(tag->UserURL(), "http://user");
    EXPECT_EQ(tag->Year(), "2001");
    ASSERT_NE(tag->Picture(), nullptr);
    EXPECT_EQ(ByteArray(tag->Picture()->bytes().begin(), tag->Picture()->bytes().end()), pngImage(4, 3));
    EXPECT_EQ(tag->ID3V23Tag()->FrameList(),
              "TALB;TPE1;WOAR;COMM;TCOM;TCOP;TENC;TCON;SYLT;USLT;COMM;TOPE;APIC;COMM;COMM;TIT2;COMM;TRCK;TXXX;WXXX;"
              "TYER;")
        << "in the order of the copy";
    EXPECT_EQ(folder.names(), std::vector<std::string>{"song.mp3"});
}

TEST_F(CreateId3v2Tag, AFileThatHasATagIsRefused) {
    const ByteArray content = joined({Id3v2Builder(3).text("TIT2", "there").done(), audio()});
    path = folder.write("song.mp3", content);
    ASSERT_TRUE(handler.Create(path));
    EXPECT_FALSE(handler.createID3V2Tag(fullTag()));
    EXPECT_EQ(contentOf(path), content);
}

TEST_F(CreateId3v2Tag, ATagThatCameSinceTheFileWasOpenedIsNotOverwritten) {
    ASSERT_TRUE(handler.Create(path));
    const ByteArray content = joined({Id3v2Builder(3).text("TIT2", "there").done(), audio()});
    folder.write("song.mp3", content);
    EXPECT_FALSE(handler.createID3V2Tag(fullTag()));
    EXPECT_EQ(contentOf(path), content);
}

TEST_F(CreateId3v2Tag, TheBeginningOfATagThatIsNoneIsNotOverwritten) {
    ByteArray content = joined({Id3v2Builder(3).text("TIT2", "there").done(), audio()});
    content[6] = 0xFF; // no size at all
    path = folder.write("song.mp3", content);
    ASSERT_TRUE(handler.Create(path));
    EXPECT_FALSE(handler.HasID3V2Tag());
    EXPECT_FALSE(handler.createID3V2Tag(fullTag()));
    EXPECT_TRUE(handler.LastError()->Stream().find("createID3V2Tag") != std::string::npos)
        << handler.LastError()->Stream();
    EXPECT_EQ(contentOf(path), content);
}

// The year is copied like all the others, and a year of 0 is one.
TEST_F(CreateId3v2Tag, AnEmptyTagHasTheYear0) {
    ASSERT_TRUE(handler.Create(path));
    EXPECT_TRUE(handler.createID3V2Tag(std::make_shared<ID3V230>()));
    EXPECT_TRUE(restIsUntouched());
    FileHandler again;
    ASSERT_TRUE(again.Create(path));
    EXPECT_EQ(again.ID3V2Tag()->ID3V23Tag()->FrameList(), "TYER;");
    EXPECT_EQ(again.ID3V2Tag()->Year(), "0");
}

TEST_F(CreateId3v2Tag, NoTagObjectIsAFailure) {
    ASSERT_TRUE(handler.Create(path));
    EXPECT_FALSE(handler.createID3V2Tag(nullptr));
    EXPECT_TRUE(handler.LastError()->Stream().starts_with("91, ")) << handler.LastError()->Stream();
}

TEST_F(CreateId3v2Tag, AMissingFileIsAFailureAndIsNotCreated) {
    ASSERT_TRUE(handler.Create(path));
    std::filesystem::remove(path);
    EXPECT_FALSE(handler.createID3V2Tag(fullTag()));
    EXPECT_EQ(handler.LastError()->Stream(), std::to_string(ENOENT) + ", open, No such file or directory");
    EXPECT_TRUE(folder.names().empty());
}

TEST_F(CreateId3v2Tag, AFullDiskIsRecordedAsTheSystemsFailureAndLeavesTheFile) {
    const ByteArray content = contentOf(path);
    ASSERT_TRUE(handler.Create(path));
    {
        const LoweredFileSizeLimit limit(1000);
        EXPECT_FALSE(handler.createID3V2Tag(fullTag()));
    }
    HostMessageBox host;
    handler.LastError()->Show();
    EXPECT_TRUE(handler.LastError()->Stream().starts_with(std::to_string(EFBIG) + ", "))
        << handler.LastError()->Stream();
    EXPECT_EQ(host.shown.back().icon, MessageBoxIcon::Stop) << "the icon of severity 2";
    EXPECT_EQ(contentOf(path), content);
    EXPECT_EQ(folder.names(), std::vector<std::string>{"song.mp3"});
}

TEST_F(CreateId3v2Tag, TheGivenTagStaysAsItIs) {
    const auto tag = fullTag();
    ASSERT_TRUE(handler.Create(path));
    EXPECT_TRUE(handler.createID3V2Tag(tag));
    EXPECT_TRUE(restIsUntouched());
    EXPECT_EQ(tag->Frames()->Count(), 21);
    EXPECT_EQ(tag->FrameCount(), 0);
    EXPECT_EQ(tag->Title(), "title \u65E5\u672C");
}

} // namespace
} // namespace corvane::createid3v2tag_test
