// ID3v2.3 tags saved and removed through a file handler, where something has come in between.
#include "corvane/core/FileHandler.h"
#include "corvane/id3v1/ID3V1Tag.h"
#include "corvane/id3v2/ID3V23TagInternals.h"
#include "corvane/id3v2/ID3V2Tag.h"
#include "corvane/id3v230/ID3V230Internals.h"

#include "tests/core/FileHandlerFiles.h"
#include "tests/support/Id3v2Builder.h"
#include "tests/support/ImageBuilder.h"
#include "tests/support/Process.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

namespace corvane {
namespace {

using namespace test;

constexpr const char* kFile = "a.mp3";

ByteArray largePicture() {
    ByteArray image = pngImage(100, 100);
    image.resize(90'000, 0xE5);
    return image;
}

// With a frame that is too large to be read with the tag.
ByteArray richTag() {
    return Id3v2Builder(3)
        .text("TIT2", "before")
        .frame("PRIV", countedBytes(700))
        .frame("APIC", pictureFrame(largePicture()))
        .text("TPE1", "artist")
        .padding(200)
        .done();
}

ByteArray titleTag(const char* title) { return Id3v2Builder(3).text("TIT2", title).padding(50).done(); }

class Id3v2Saving : public FileHandlerFiles {
protected:
    // Opens the file; its tag is not read yet.
    std::shared_ptr<ID3V2Tag> openedTag(const ByteArray& tag) {
        path_ = write(joined({tag, audio()}));
        EXPECT_TRUE(handler_.Create(path_));
        return handler_.ID3V2Tag();
    }
    // Opens the file and reads its tag.
    std::shared_ptr<ID3V2Tag> readTag(const ByteArray& tag) {
        auto opened = openedTag(tag);
        EXPECT_NE(opened->ID3V23Tag(), nullptr);
        return opened;
    }
    static ID3V230& recordsOf(ID3V2Tag& tag) { return *Internals<ID3V23Tag>::changeable(*tag.ID3V23Tag()); }
    static void deleteAll(ID3V2Tag& tag) {
        for (const auto& record : *recordsOf(tag).Frames()) record->Delete();
    }
    ByteArray content() const { return contentOf(path_); }
    // The tag of the file as another object reads it.
    std::shared_ptr<ID3V2Tag> tagNow() {
        again_ = std::make_unique<FileHandler>();
        EXPECT_TRUE(again_->Create(path_));
        return again_->ID3V2Tag();
    }
    void TearDown() override { EXPECT_EQ(folder_.names(), std::vector<std::string>{kFile}) << "something stays"; }

    FileHandler handler_;
    std::unique_ptr<FileHandler> again_;
    std::string path_;
};

// No descriptor is free while this lives.
class NoDescriptorsLeft {
public:
    NoDescriptorsLeft() {
        ::getrlimit(RLIMIT_NOFILE, &before_);
        rlimit none = before_;
        none.rlim_cur = 0;
        ::setrlimit(RLIMIT_NOFILE, &none);
    }
    ~NoDescriptorsLeft() { ::setrlimit(RLIMIT_NOFILE, &before_); }
    NoDescriptorsLeft(const NoDescriptorsLeft&) = delete;
    NoDescriptorsLeft& operator=(const NoDescriptorsLeft&) = delete;

private:
    rlimit before_{};
};

// Ways in which the first read of a tag fails, while the file is there again when it is saved.
struct FailedRead {
    const char* name;
    void (*read)(ID3V2Tag& tag, const std::string& path);
};

class ATagThatWasNotRead : public Id3v2Saving, public testing::WithParamInterface<FailedRead> {
protected:
    std::shared_ptr<ID3V2Tag> unreadTag() {
        EXPECT_TRUE(ID3V23Tag().canSave()) << "loads id3lib, which takes descriptors too";
        auto tag = openedTag(richTag());
        GetParam().read(*tag, path_);
        return tag;
    }
};

#ifndef __SANITIZE_ADDRESS__ // the checks of UndefinedBehaviorSanitizer need descriptors themselves
INSTANTIATE_TEST_SUITE_P(WaysOfTheProcess, ATagThatWasNotRead,
                         testing::Values(FailedRead{"WithoutADescriptor",
                                                    [](ID3V2Tag& tag, const std::string&) {
                                                        const NoDescriptorsLeft none;
                                                        EXPECT_EQ(tag.Title(), "");
                                                    }}),
                         [](const auto& tested) { return tested.param.name; });
#endif

INSTANTIATE_TEST_SUITE_P(WaysOfTheFile, ATagThatWasNotRead,
                         testing::Values(FailedRead{"WhileTheFileHadAnotherName",
                                                    [](ID3V2Tag& tag, const std::string& path) {
                                                        std::filesystem::rename(path, path + ".away");
                                                        EXPECT_EQ(tag.Title(), "");
                                                        std::filesystem::rename(path + ".away", path);
                                                    }}),
                         [](const auto& tested) { return tested.param.name; });

TEST_P(ATagThatWasNotRead, IsNotWrittenOver) {
    const auto tag = unreadTag();
    tag->Title("New");
    EXPECT_FALSE(tag->saveTag());
    EXPECT_EQ(tag->LastError()->Stream(), "0, saveTag, Unable to save the ID3v23 tag.");
    EXPECT_EQ(content(), joined({richTag(), audio()}));
}

TEST_P(ATagThatWasNotRead, IsNotTakenAwayWhereNothingWasSet) {
    EXPECT_FALSE(unreadTag()->saveTag());
    EXPECT_EQ(content(), joined({richTag(), audio()}));
}

TEST_P(ATagThatWasNotRead, CanBeSavedOnceTheFileIsOpenedAgain) {
    unreadTag();
    const auto tag = tagNow();
    EXPECT_EQ(tag->Title(), "before");
    tag->Title("New");
    EXPECT_TRUE(tag->saveTag());
    EXPECT_EQ(tagNow()->Artist(), "artist");
}

// Another current folder while this lives.
class CurrentFolder {
public:
    explicit CurrentFolder(const std::string& folder) : before_(std::filesystem::current_path()) {
        std::filesystem::current_path(folder);
    }
    ~CurrentFolder() { std::filesystem::current_path(before_); }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;

private:
    std::filesystem::path before_;
};

class ARelativePath : public Id3v2Saving {
protected:
    // Opens a file by its name alone; from then on another folder with a file of that name is the current one.
    void SetUp() override {
        path_ = write(joined({richTag(), audio()}));
        other_.write(kFile, others());
        const CurrentFolder here(folder_.path());
        ASSERT_TRUE(handler_.Create(kFile));
    }
    void TearDown() override {
        Id3v2Saving::TearDown();
        EXPECT_EQ(contentOf(other_.path(kFile)), others());
        EXPECT_EQ(other_.names(), std::vector<std::string>{kFile});
    }
    ByteArray others() const { return joined({titleTag("of another file"), audio(), record(0, 7)}); }

    ScratchFolder other_;
};

TEST_F(ARelativePath, IsThatOfTheFolderInWhichTheFileWasOpened) {
    const CurrentFolder elsewhere(other_.path());
    EXPECT_EQ(handler_.FileName(), kFile) << "as it was given";
    EXPECT_EQ(handler_.ID3V2Tag()->Title(), "before");
    handler_.ID3V2Tag()->Title("after");
    EXPECT_TRUE(handler_.ID3V2Tag()->saveTag());
    EXPECT_EQ(tagNow()->Title(), "after");
}

TEST_F(ARelativePath, RemovesTheTagOfThatFileOnly) {
    const CurrentFolder elsewhere(other_.path());
    EXPECT_TRUE(handler_.ID3V2Tag()->ID3V23Tag()->removeTag());
    EXPECT_EQ(content(), audio());
}

TEST_F(ARelativePath, WritesAndRemovesTheRecordOfThatFileOnly) {
    const CurrentFolder elsewhere(other_.path());
    EXPECT_FALSE(handler_.HasTag());
    handler_.ID3v1xTag()->TagType(EID3TagConstants::ID3v1);
    EXPECT_TRUE(handler_.writeID3v1xTag());
    EXPECT_EQ(content().size(), joined({richTag(), audio()}).size() + 128);
    EXPECT_TRUE(handler_.HasTag());
    EXPECT_TRUE(handler_.removeID3V1xTag());
    EXPECT_EQ(content(), joined({richTag(), audio()}));
}

TEST_F(ARelativePath, CreatesATagInThatFileOnly) {
    path_ = write(audio());
    {
        const CurrentFolder here(folder_.path());
        ASSERT_TRUE(again_ == nullptr);
        again_ = std::make_unique<FileHandler>();
        ASSERT_TRUE(again_->Create(kFile));
    }
    const CurrentFolder elsewhere(other_.path());
    const auto values = std::make_shared<ID3V230>();
    values->Title("new");
    EXPECT_TRUE(again_->createID3V2Tag(values));
    EXPECT_EQ(tagNow()->Title(), "new");
}

// Two tags in a row: the second one comes to light when the first one is gone.
class TwoTags : public Id3v2Saving {
protected:
    std::shared_ptr<ID3V2Tag> bothRead() { return readTag(joined({titleTag("first"), titleTag("second")})); }
    ByteArray second() const { return joined({titleTag("second"), audio()}); }
};

TEST_F(TwoTags, TheSecondIsNotWrittenOverAfterAllFramesOfTheFirstWereDeleted) {
    const auto tag = bothRead();
    deleteAll(*tag);
    EXPECT_TRUE(tag->saveTag());
    EXPECT_EQ(content(), second());
    tag->Title("third");
    EXPECT_FALSE(tag->saveTag());
    EXPECT_EQ(content(), second());
}

TEST_F(TwoTags, TheSecondIsNotTakenAwayByASecondSaveOfNoFrames) {
    const auto tag = bothRead();
    deleteAll(*tag);
    EXPECT_TRUE(tag->saveTag());
    EXPECT_FALSE(tag->saveTag());
    EXPECT_EQ(content(), second());
}

TEST_F(TwoTags, TheSecondIsNotWrittenOverAfterTheFirstWasRemoved) {
    const auto tag = bothRead();
    EXPECT_TRUE(tag->ID3V23Tag()->removeTag());
    EXPECT_EQ(content(), second());
    EXPECT_FALSE(tag->saveTag());
    EXPECT_EQ(content(), second());
}

TEST_F(TwoTags, TheSecondCanBeChangedOnceTheFileIsOpenedAgain) {
    const auto tag = bothRead();
    EXPECT_TRUE(tag->ID3V23Tag()->removeTag());
    const auto again = tagNow();
    EXPECT_EQ(again->Title(), "second");
    again->Title("third");
    EXPECT_TRUE(again->saveTag());
    EXPECT_EQ(tagNow()->Title(), "third");
}

// Writes bytes into a file as another program may: in place, and with the times of before.
void writeUnseen(const std::string& path, std::size_t offset, Bytes bytes) {
    const struct stat before = statusOf(path);
    const int file = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
    ASSERT_EQ(::pwrite(file, bytes.data(), bytes.size(), static_cast<off_t>(offset)),
              static_cast<ssize_t>(bytes.size()));
    const timespec times[2] = {before.st_atim, before.st_mtim};
    do { // the system's clock for files goes in steps
        ASSERT_EQ(::futimens(file, times), 0);
    } while (statusOf(path).st_ctim.tv_nsec == before.st_ctim.tv_nsec);
    ::close(file);
}

// A change by another program between reading and saving that keeps size and modification time.
class AnUnseenChange : public Id3v2Saving {
protected:
    void changeUnseen(std::string_view from, std::string_view to) {
        theirs_ = content();
        const ByteArray old = bytesOf(from);
        const auto found = std::search(theirs_.begin(), theirs_.end(), old.begin(), old.end());
        ASSERT_NE(found, theirs_.end());
        std::copy(to.begin(), to.end(), found);
        writeUnseen(path_, static_cast<std::size_t>(found - theirs_.begin()), bytesOf(to));
        ASSERT_EQ(content(), theirs_);
    }
    ByteArray theirs_;
};

TEST_F(AnUnseenChange, IsNotTakenBackByASave) {
    const auto tag = readTag(richTag());
    EXPECT_EQ(tag->Artist(), "artist");
    changeUnseen("artist", "ARTIST");
    tag->Title("after");
    EXPECT_FALSE(tag->saveTag());
    EXPECT_EQ(content(), theirs_);
}

TEST_F(AnUnseenChange, IsNotTakenForWhatASaveWithoutChangesLeaves) {
    const auto tag = readTag(richTag());
    changeUnseen("before", "BEFORE");
    EXPECT_FALSE(tag->saveTag()) << "the file does not hold what the object holds";
    EXPECT_EQ(content(), theirs_);
}

TEST_F(AnUnseenChange, IsNotTakenAwayWithTheLastFrame) {
    const auto tag = readTag(titleTag("before"));
    changeUnseen("before", "BEFORE");
    tag->Title("");
    EXPECT_FALSE(tag->saveTag());
    EXPECT_EQ(content(), theirs_);
}

TEST_F(AnUnseenChange, OfALargeFrameThatWasReadIsNotTakenBackEither) {
    ByteArray lyrics = bytesOf(std::string(std::string("\0eng\0", 5) + "la" + std::string(100'000, 'l')));
    const auto tag = readTag(Id3v2Builder(3).text("TIT2", "before").frame("USLT", lyrics).done());
    const std::string read = tag->LyricsUnsynced();
    ASSERT_EQ(read.size(), 100'002U);
    changeUnseen("la", "LA");
    tag->LyricsUnsynced("short");
    EXPECT_FALSE(tag->saveTag());
    EXPECT_EQ(content(), theirs_);
}

TEST_F(AnUnseenChange, OfALargeFrameThatIsCarriedOverStays) {
    const auto tag = readTag(richTag());
    writeUnseen(path_, 50'000, bytesOf("theirs")); // where nobody has read yet
    tag->Title("after");
    EXPECT_TRUE(tag->saveTag());
    const ByteArray now = content();
    const std::string_view theirs = "theirs";
    EXPECT_NE(std::search(now.begin(), now.end(), theirs.begin(), theirs.end()), now.end());
    EXPECT_EQ(tagNow()->Title(), "after");
}

TEST_F(AnUnseenChange, OfPermissionsAloneIsNone) {
    const auto tag = readTag(richTag());
    ASSERT_EQ(::chmod(path_.c_str(), 0640), 0);
    ASSERT_NE(tag->Picture(), nullptr) << "a frame that is only read now";
    tag->Title("after");
    EXPECT_TRUE(tag->saveTag());
    EXPECT_EQ(tagNow()->Title(), "after");
    ASSERT_EQ(::chmod(path_.c_str(), 0600), 0);
    EXPECT_TRUE(tag->ID3V23Tag()->removeTag());
    EXPECT_EQ(content(), audio());
    EXPECT_TRUE(tag->saveTag());
    EXPECT_NE(tagNow()->Picture(), nullptr);
}

// What has left the file stays with its records.
class RecordsOutliveTheirTag : public Id3v2Saving {};

TEST_F(RecordsOutliveTheirTag, ATagThatWasRemovedIsSavedAgainWhole) {
    const auto tag = readTag(richTag());
    ASSERT_TRUE(tag->ID3V23Tag()->removeTag());
    EXPECT_EQ(content(), audio());
    ASSERT_TRUE(tag->saveTag());
    const auto again = tagNow();
    EXPECT_EQ(again->Title(), "before");
    EXPECT_EQ(again->Artist(), "artist");
    EXPECT_EQ(again->ID3V23Tag()->GetFrameByID("PRIV")->RawData(), countedBytes(700));
    EXPECT_EQ(again->ID3V23Tag()->GetFrameByID("APIC")->PictureRAW(), largePicture());
    ByteArray now = content();
    EXPECT_EQ(ByteArray(now.end() - static_cast<std::ptrdiff_t>(audio().size()), now.end()), audio());
}

TEST_F(RecordsOutliveTheirTag, ATagThatWasRemovedIsShownAsBefore) {
    const auto tag = readTag(richTag());
    const std::string before = tag->xml();
    ASSERT_TRUE(tag->ID3V23Tag()->removeTag());
    EXPECT_EQ(tag->xml(), before);
    EXPECT_NE(tag->Picture(), nullptr);
}

TEST_F(RecordsOutliveTheirTag, AFrameIsThereAgainWhenItIsUndeletedAfterASave) {
    const auto tag = readTag(richTag());
    const auto picture = recordsOf(*tag).Frames()->Item(3);
    picture->Delete();
    ASSERT_TRUE(tag->saveTag());
    EXPECT_EQ(tagNow()->Picture(), nullptr);
    tag->Title("after");
    ASSERT_TRUE(tag->saveTag()) << "a deleted record is no obstacle";
    picture->Deleted(false);
    ASSERT_TRUE(tag->saveTag());
    EXPECT_EQ(tagNow()->ID3V23Tag()->GetFrameByIndex(3)->PictureRAW(), largePicture());
    EXPECT_EQ(tagNow()->Title(), "after");
}

TEST_F(RecordsOutliveTheirTag, TheLastFrameIsThereAgainWhenItIsUndeletedAfterASave) {
    const auto tag = readTag(Id3v2Builder(3).frame("APIC", pictureFrame(largePicture())).done());
    recordsOf(*tag).Frames()->Item(1)->Delete();
    ASSERT_TRUE(tag->saveTag());
    EXPECT_EQ(content(), audio());
    recordsOf(*tag).Frames()->Item(1)->Deleted(false);
    ASSERT_TRUE(tag->saveTag());
    EXPECT_EQ(tagNow()->ID3V23Tag()->GetFrameByIndex(1)->PictureRAW(), largePicture());
}

TEST_F(RecordsOutliveTheirTag, FramesOfManyMegabytesToo) {
    ByteArray image = pngImage(10, 10);
    image.resize(20'000'000, 0xE5);
    const auto tag = readTag(Id3v2Builder(3)
                                 .frame("APIC", pictureFrame(image))
                                 .frame("GEOB", countedBytes(100'000))
                                 .frame("APIC", pictureFrame(image, "image/png", "d"))
                                 .done());
    ASSERT_TRUE(tag->ID3V23Tag()->removeTag());
    ASSERT_TRUE(tag->saveTag());
    const auto again = tagNow()->ID3V23Tag();
    EXPECT_EQ(again->GetFrameByIndex(1)->PictureRAW(), image);
    EXPECT_EQ(again->GetFrameByIndex(2)->RawData(), countedBytes(100'000));
    EXPECT_EQ(again->GetFrameByIndex(3)->PictureRAW(), image);
}

TEST_F(RecordsOutliveTheirTag, ARemovalThatCannotKeepThemLeavesTheFile) {
    ByteArray image = pngImage(10, 10);
    image.resize(20'000'000, 0xE5);
    const auto tag = readTag(Id3v2Builder(3).frame("APIC", pictureFrame(image)).done());
    const ByteArray before = content();
    const LoweredFileSizeLimit limit(1'000'000);
    EXPECT_FALSE(tag->ID3V23Tag()->removeTag());
    EXPECT_EQ(content(), before);
}

TEST_F(RecordsOutliveTheirTag, ATagIsRemovedThoughAnotherProgramHasChangedTheFile) {
    const auto tag = readTag(richTag());
    write(joined({titleTag("theirs"), audio()}));
    EXPECT_TRUE(tag->ID3V23Tag()->removeTag());
    EXPECT_EQ(content(), audio());
    EXPECT_FALSE(tag->saveTag()) << "the picture of the tag that was read is not known";
    EXPECT_EQ(content(), audio());
}

TEST_F(RecordsOutliveTheirTag, ARecordTakenOffTheEndLeavesTheTagAsItIs) {
    path_ = write(joined({richTag(), audio(), record(0, 7)}));
    ASSERT_TRUE(handler_.Create(path_));
    const auto tag = handler_.ID3V2Tag();
    ASSERT_EQ(tag->Title(), "before");
    tag->Title("after");
    ASSERT_EQ(Internals<ID3V230>::StripTags(recordsOf(*tag), 1), 0);
    EXPECT_EQ(content(), joined({richTag(), audio()}));
    ASSERT_TRUE(tag->saveTag());
    EXPECT_EQ(tagNow()->Title(), "after");
    EXPECT_NE(tagNow()->Picture(), nullptr);
}

// A change by another program is not forgotten over one of this object.
TEST_F(RecordsOutliveTheirTag, ARecordTakenOffTheEndOfAFileThatAnotherProgramHasChangedIsNoReading) {
    path_ = write(joined({richTag(), audio(), record(0, 7)}));
    ASSERT_TRUE(handler_.Create(path_));
    const auto tag = handler_.ID3V2Tag();
    ASSERT_EQ(tag->Title(), "before");
    write(joined({titleTag("theirs"), audio(), record(0, 7)}));
    ASSERT_EQ(Internals<ID3V230>::StripTags(recordsOf(*tag), 1), 0);
    EXPECT_FALSE(tag->saveTag());
    EXPECT_EQ(content(), joined({titleTag("theirs"), audio()}));
}

} // namespace
} // namespace corvane
