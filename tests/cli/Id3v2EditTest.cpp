#include "apps/cli/Id3v2Edit.h"

#include "corvane/core/FileHandler.h"
#include "corvane/id3v2/ID3V2Tag.h"

#include "tests/support/Id3v2Builder.h"
#include "tests/support/ImageBuilder.h"
#include "tests/support/Mp3File.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace corvane::cli::id3v2edit_test {
namespace {

using test::Id3v2Builder;
using test::Mp3File;

constexpr const char* kLines = "[00:01.0] one\n[00:02.0] two";

ByteArray backCover() {
    ByteArray payload = test::pictureFrame(test::pngImage(9, 9));
    payload[std::string_view("0image/png0").size()] = 4;
    return payload;
}

TagValues syncedLyrics(std::string text) {
    TagValues values;
    values.syncedLyrics = std::move(text);
    return values;
}

TagValues shownPicture(std::shared_ptr<Picture> picture) {
    TagValues values;
    values.shownPicture = std::move(picture);
    return values;
}

class Id3v2EditTest : public testing::Test {
protected:
    Mp3File file(const Id3v2Builder& tag) { return {folder_, tag.done(), "song.mp3"}; }

    // Applies and writes; the change that was told.
    static std::vector<FieldChange> write(const Mp3File& file, const TagValues& values) {
        Id3v2Edit edit(file.path());
        TagOutcome outcome = edit.apply(values);
        edit.write();
        EXPECT_TRUE(file.audioIsUntouched());
        return outcome.changes;
    }
    static std::shared_ptr<ID3V2Tag> tagOf(const Mp3File& file) {
        FileHandler handler;
        EXPECT_TRUE(handler.Create(file.path()));
        return handler.ID3V2Tag();
    }

    test::ScratchFolder folder_;
};

TEST_F(Id3v2EditTest, SyncedLyricsAreWrittenWithTheirTimes) {
    const Mp3File song = file(Id3v2Builder().text("TIT2", "T"));
    const auto changes = write(song, syncedLyrics(kLines));
    ASSERT_EQ(changes.size(), 1U);
    EXPECT_EQ(changes[0].name, "synced-lyrics");
    EXPECT_EQ(changes[0].before, "");
    EXPECT_EQ(changes[0].after, kLines);
    EXPECT_EQ(tagOf(song)->LyricsSynced(), kLines);
    EXPECT_EQ(tagOf(song)->Title(), "T");
}

TEST_F(Id3v2EditTest, EmptySyncedLyricsTakeTheFrameOut) {
    const Mp3File song =
        file(Id3v2Builder().text("TIT2", "T").frame("SYLT", test::syncedLyricsFrame("", {"one", "two"})));
    ASSERT_NE(tagOf(song)->LyricsSynced(), "");
    ASSERT_EQ(write(song, syncedLyrics("")).size(), 1U);
    EXPECT_EQ(tagOf(song)->LyricsSynced(), "");
    EXPECT_EQ(tagOf(song)->Title(), "T");
}

TEST_F(Id3v2EditTest, SameSyncedLyricsAreNoChange) {
    const Mp3File song = file(Id3v2Builder().frame("SYLT", test::syncedLyricsFrame("", {"one", "two"})));
    Id3v2Edit edit(song.path());
    EXPECT_TRUE(edit.apply(syncedLyrics(tagOf(song)->LyricsSynced())).changes.empty());
}

TEST_F(Id3v2EditTest, ShownPictureIsTheFrontCoverWhateverItsDescription) {
    const ByteArray front = test::jpegImage(8, 8), wanted = test::pngImage(5, 7), back = test::pngImage(9, 9);
    const Mp3File song =
        file(Id3v2Builder().frame("APIC", backCover()).frame("APIC", test::pictureFrame(front, "image/jpeg", "Front")));
    const auto changes = write(song, shownPicture(Picture::fromBytes(wanted)));
    ASSERT_EQ(changes.size(), 1U);
    EXPECT_EQ(changes[0].name, "picture");
    EXPECT_TRUE(changes[0].after.starts_with("image/png, 5 x 7, ")) << changes[0].after;
    const ByteArray now = song.content();
    EXPECT_FALSE(std::ranges::search(now, wanted).empty());
    EXPECT_TRUE(std::ranges::search(now, front).empty()) << "the cover is there twice";
    EXPECT_FALSE(std::ranges::search(now, back).empty()) << "the other picture is gone";
}

TEST_F(Id3v2EditTest, ShownPictureIsTakenOutWhereNoneIsWanted) {
    const Mp3File song = file(Id3v2Builder().text("TIT2", "T").frame("APIC", backCover()));
    ASSERT_EQ(write(song, shownPicture(nullptr)).size(), 1U);
    EXPECT_EQ(tagOf(song)->Picture(), nullptr);
}

TEST_F(Id3v2EditTest, SamePictureIsNoChange) {
    const Mp3File song = file(Id3v2Builder().frame("APIC", backCover()));
    Id3v2Edit edit(song.path());
    EXPECT_TRUE(edit.apply(shownPicture(Picture::fromBytes(test::pngImage(9, 9)))).changes.empty());
    EXPECT_TRUE(Id3v2Edit(file(Id3v2Builder().text("TIT2", "T")).path()).apply(shownPicture(nullptr)).changes.empty());
}

} // namespace
} // namespace corvane::cli::id3v2edit_test
