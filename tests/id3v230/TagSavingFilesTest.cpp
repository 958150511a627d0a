// Saving a tag under every condition that a file may be in.
#include "corvane/id3v230/TagSaving.h"

#include "tests/id3v230/SavedFrames.h"
#include "tests/support/Mp3File.h"
#include "tests/support/Process.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace corvane::tagsavingfiles_test {
namespace {

using test::Id3v2Builder;
using test::imageOf;
using test::Mp3File;
using test::ScratchFolder;

constexpr bool kSafely = true, kInPlace = false;
constexpr std::size_t kPadding = 100;
const std::string kLongTitle(1000, 'x'); // does not fit the padding

// A tag with a large picture in it, followed by the usual rest.
ByteArray tagWith(std::string_view title, std::size_t padding) {
    return Id3v2Builder()
        .text("TIT2", title)
        .frame("APIC", test::pictureFrame(test::countedBytes(150'000)))
        .padding(padding)
        .done();
}
ByteArray oldTag() { return tagWith("Title", kPadding); }

// The ways of saving; each leaves the file with the title "New".
struct Way {
    const char* name;
    std::string title;
    bool safely;
    std::size_t padding; // afterwards
};

const Way kGrowing{"Growing", kLongTitle, kSafely, kNewPadding};
const Way kFitting{"Fitting", "Other", kSafely, kPadding};
const Way kWritingInPlace{"InPlace", "Another one", kInPlace, kPadding - 6};

class EveryWay : public testing::TestWithParam<Way> {
protected:
    SavedTag save(const std::string& path) const { return test::saveTitle(path, GetParam().title, GetParam().safely); }
    bool isSaved(const Mp3File& file) const {
        return file.audioIsUntouched() && file.tag() == tagWith(GetParam().title, GetParam().padding);
    }

    ScratchFolder folder;
};

INSTANTIATE_TEST_SUITE_P(TagSaving, EveryWay, testing::Values(kGrowing, kFitting, kWritingInPlace),
                         [](const auto& tested) { return tested.param.name; });

std::string messageOf(int errorNumber) { return std::generic_category().message(errorNumber); }

TEST_P(EveryWay, ASymbolicLinkStaysOneAndItsFileIsChanged) {
    const Mp3File file(folder, oldTag());
    const ScratchFolder other;
    ASSERT_EQ(::symlink(file.path().c_str(), other.path("link.mp3").c_str()), 0);
    EXPECT_TRUE(save(other.path("link.mp3")).change);
    EXPECT_TRUE(S_ISLNK(test::statusOf(other.path("link.mp3")).st_mode));
    EXPECT_TRUE(isSaved(file));
    EXPECT_EQ(folder.names().size(), 1U);
    EXPECT_EQ(other.names().size(), 1U);
}

TEST_P(EveryWay, BothNamesOfAFileShowTheNewTag) {
    const Mp3File file(folder, oldTag());
    ASSERT_EQ(::link(file.path().c_str(), folder.path("second.mp3").c_str()), 0);
    const SavedTag saved = save(file.path());
    EXPECT_TRUE(saved.change) << saved.change.text;
    EXPECT_TRUE(isSaved(file));
    EXPECT_EQ(test::contentOf(folder.path("second.mp3")), file.content());
    EXPECT_EQ(test::statusOf(file.path()).st_nlink, 2U);
    EXPECT_EQ(folder.names().size(), 2U);
    EXPECT_EQ(saved.image->data(saved.image->frames()[1]), test::pictureFrame(test::countedBytes(150'000)));
}

TEST_P(EveryWay, OddPermissionBitsAreKept) {
    const Mp3File file(folder, oldTag());
    ASSERT_EQ(::chmod(file.path().c_str(), 0615), 0);
    EXPECT_TRUE(save(file.path()).change);
    EXPECT_EQ(test::statusOf(file.path()).st_mode & 07777, 0615U);
    EXPECT_TRUE(isSaved(file));
}

TEST_P(EveryWay, ExtendedAttributesAreKept) {
    const Mp3File file(folder, oldTag());
    if (::setxattr(file.path().c_str(), "user.rating", "five", 4, 0) != 0)
        GTEST_SKIP() << "this file system has no extended attributes";
    EXPECT_TRUE(save(file.path()).change);
    std::array<char, 10> value{};
    ASSERT_EQ(::getxattr(file.path().c_str(), "user.rating", value.data(), value.size()), 4);
    EXPECT_STREQ(value.data(), "five");
    EXPECT_TRUE(isSaved(file));
}

TEST_P(EveryWay, TheLongestNameThatThereIsWorks) {
    const Mp3File file(folder, oldTag(), std::string(251, 'n') + ".mp3");
    EXPECT_TRUE(save(file.path()).change);
    EXPECT_TRUE(isSaved(file));
    EXPECT_EQ(folder.names().size(), 1U);
}

TEST_P(EveryWay, AReadOnlyFileIsLeftAlone) {
    if (!test::isRoot()) GTEST_SKIP() << "only root can become somebody else";
    const Mp3File file(folder, oldTag());
    ASSERT_EQ(::chmod(folder.path().c_str(), 0777), 0);
    ASSERT_EQ(::chmod(file.path().c_str(), 0444), 0);
    const int result = test::asNobody([&] {
        const SavedTag saved = save(file.path());
        return saved.change.text == messageOf(EACCES) ? saved.change.number() : -1;
    });
    EXPECT_EQ(result, 12);
    EXPECT_TRUE(file.isUnchanged());
    EXPECT_EQ(folder.names().size(), 1U);
}

TEST_P(EveryWay, OnlyWritingInPlaceWorksInAReadOnlyFolder) {
    if (!test::isRoot()) GTEST_SKIP() << "only root can become somebody else";
    const Mp3File file(folder, oldTag());
    ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
    ASSERT_EQ(::chmod(file.path().c_str(), 0666), 0);
    const int result = test::asNobody([&] { return save(file.path()).change.number(); });
    EXPECT_EQ(result, GetParam().safely ? 12 : 0);
    EXPECT_TRUE(GetParam().safely ? file.isUnchanged() : isSaved(file));
    EXPECT_EQ(folder.names().size(), 1U);
}

TEST_P(EveryWay, AVanishedFileIsNotMadeAnew) {
    const Mp3File file(folder, oldTag());
    const auto image = imageOf(file.path());
    const auto frames = test::framesWithTitle(*image, GetParam().title);
    ASSERT_EQ(::unlink(file.path().c_str()), 0);
    const SavedTag saved = saveTag(*image, frames, GetParam().safely);
    EXPECT_EQ(saved.change.error, Id3libError::NoFile);
    EXPECT_EQ(saved.change.text, messageOf(ENOENT));
    EXPECT_TRUE(folder.names().empty());
}

TEST_P(EveryWay, AFileThatSomebodyElseHasChangedSinceIsLeftAlone) {
    const Mp3File file(folder, oldTag());
    const auto image = imageOf(file.path());
    const auto frames = test::framesWithTitle(*image, GetParam().title);
    std::ofstream(file.path(), std::ios::app) << "more";
    const ByteArray theirs = file.content();
    const SavedTag saved = saveTag(*image, frames, GetParam().safely);
    EXPECT_EQ(saved.change.error, Id3libError::NoFile);
    EXPECT_FALSE(saved.change.text.empty());
    EXPECT_EQ(file.content(), theirs);
    EXPECT_EQ(saveTag(*image, {}, GetParam().safely).change.error, Id3libError::NoFile);
    EXPECT_EQ(saveTag(*image, test::carriedFrames(*image), GetParam().safely).change.error, Id3libError::NoFile);
    EXPECT_EQ(file.content(), theirs);
    EXPECT_EQ(folder.names().size(), 1U);
}

TEST_P(EveryWay, AFileThatWasReplacedSinceIsLeftAlone) {
    const Mp3File file(folder, oldTag());
    const auto image = imageOf(file.path());
    const auto frames = test::framesWithTitle(*image, GetParam().title);
    std::filesystem::copy_file(file.path(), folder.path("copy"));
    std::filesystem::rename(folder.path("copy"), file.path());
    EXPECT_EQ(saveTag(*image, frames, GetParam().safely).change.error, Id3libError::NoFile);
    EXPECT_TRUE(file.isUnchanged());
}

TEST_P(EveryWay, ChangedPermissionsAreNoChangeOfTheFile) {
    const Mp3File file(folder, oldTag());
    const auto image = imageOf(file.path());
    ASSERT_EQ(::chmod(file.path().c_str(), 0640), 0);
    const auto frames = test::framesWithTitle(*image, GetParam().title);
    EXPECT_TRUE(saveTag(*image, frames, GetParam().safely).change);
    EXPECT_TRUE(isSaved(file));
}

TEST_P(EveryWay, WhatIsNoRegularFileIsRefused) {
    ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
    ASSERT_EQ(::mkdir(folder.path("folder").c_str(), 0700), 0);
    const std::vector<TagFrame> frames{TagFrame::madeOf(test::titleBytes("Title"))};
    for (const char* name : {"pipe", "folder", "none"}) {
        const auto image = TagImage::none(folder.path(name), {});
        EXPECT_EQ(saveTag(*image, frames, GetParam().safely).change.error, Id3libError::NoFile) << name;
        EXPECT_EQ(saveTag(*image, {}, GetParam().safely).change.error, Id3libError::NoFile) << name;
    }
    EXPECT_EQ(folder.names().size(), 2U);
}

TEST_P(EveryWay, AFullDiskLeavesTheFileAsItWas) {
    const std::string place = folder.path("small");
    ASSERT_EQ(::mkdir(place.c_str(), 0700), 0);
    const int result = test::withSmallFileSystem(place.c_str(), 256UL * 1024, [&] {
        for (const bool hasSecondName : {false, true}) {
            const Mp3File file(folder, oldTag(), "small/f.mp3");
            if (hasSecondName && ::link(file.path().c_str(), (file.path() + "2").c_str()) != 0) return 1;
            const SavedTag saved = save(file.path());
            const bool needsRoom = GetParam().safely;
            if (saved.change.number() != (needsRoom ? 5 : 0)) return 2;
            if (needsRoom && saved.change.text != messageOf(ENOSPC)) return 3;
            if (!(needsRoom ? file.isUnchanged() : isSaved(file))) return 4;
            if (test::namesIn(place).size() != (hasSecondName ? 2U : 1U)) return 5;
        }
        return 0;
    });
    if (result == test::kNoMount) GTEST_SKIP() << "no file system can be mounted here";
    EXPECT_EQ(result, 0);
}

TEST_P(EveryWay, TheFileSizeLimitOfTheProcessIsAFailureThatChangesNothing) {
    const Mp3File file(folder, oldTag());
    SavedTag saved;
    {
        const test::LoweredFileSizeLimit limit(GetParam().safely ? 100'000 : 20);
        saved = save(file.path());
    }
    EXPECT_EQ(saved.change.error, Id3libError::SmallBuffer);
    EXPECT_EQ(saved.change.text, messageOf(EFBIG));
    EXPECT_TRUE(file.isUnchanged());
    EXPECT_EQ(folder.names().size(), 1U);
}

} // namespace
} // namespace corvane::tagsavingfiles_test
