#include "corvane/id3v230/TagSaving.h"

#include "tests/id3v230/SavedFrames.h"
#include "tests/support/Mp3File.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

namespace corvane::tagsaving_test {
namespace {

using test::ByteBuilder;
using test::bytesOf;
using test::Id3v2Builder;
using test::imageOf;
using test::Mp3File;
using test::ScratchFolder;

constexpr bool kSafely = true, kInPlace = false;

// Frames in front of the title and behind it, known and unknown ones, with flags; `padding` zeros at the end.
Id3v2Builder richTag(std::string_view title, std::size_t padding, unsigned flags = 0) {
    return Id3v2Builder()
        .flags(flags)
        .frame("PRIV", bytesOf("owner\0data"), 0x20, 0xE0)
        .text("TIT2", title)
        .frame("APIC", test::pictureFrame(test::countedBytes(100'000)))
        .compressedFrame("TXXX", test::userTextFrame("d", "compressed"))
        .frame("XYZ1", {}, 0x40, 0x40)
        .frame("GEOB", test::countedBytes(9'000), 0x40)
        .padding(padding);
}

bool isTheTag(const Mp3File& file, const Id3v2Builder& expected) {
    return file.audioIsUntouched() && file.tag() == expected.done();
}

// Whether the image that saving has given is what stands in the file now, large frames included.
bool isTheImageOf(const std::string& path, const TagImage& image) {
    const auto read = imageOf(path);
    bool same = read->frames().size() == image.frames().size() && read->size() == image.size() &&
                read->identity() == image.identity() && !image.refusal();
    for (std::size_t i = 0; same && i < read->frames().size(); ++i) {
        const RawFrame &one = read->frames()[i], &other = image.frames()[i];
        same = one.offset == other.offset && read->bytes(one) == image.bytes(other);
    }
    return same;
}

struct Space {
    const char* name;
    std::size_t oldPadding;
    std::string newTitle; // the old one has 5 letters
    std::size_t newPadding;
};

class TheSpaceOfTheOldTag : public testing::TestWithParam<std::tuple<Space, bool>> {};

TEST_P(TheSpaceOfTheOldTag, IsKeptWhenTheFramesFitAndThePaddingIsNotAbsurd) {
    const auto& [space, safely] = GetParam();
    const ScratchFolder folder;
    const Mp3File file(folder, richTag("Title", space.oldPadding).done());
    const SavedTag saved = test::saveTitle(file.path(), space.newTitle, safely);
    EXPECT_TRUE(saved.change) << saved.change.text;
    EXPECT_TRUE(isTheTag(file, richTag(space.newTitle, space.newPadding)));
    EXPECT_EQ(folder.names().size(), 1U);
    ASSERT_TRUE(saved.image);
    EXPECT_TRUE(isTheImageOf(file.path(), *saved.image));
}

INSTANTIATE_TEST_SUITE_P(
    Ways, TheSpaceOfTheOldTag,
    testing::Combine(testing::Values(Space{"SameSize", 100, "Tatel", 100},
                                     Space{"SameSizeWithoutPadding", 0, "Tatel", 0},
                                     Space{"GrowsIntoThePadding", 100, "Longer title", 93},
                                     Space{"FillsThePadding", 7, "Longer title", 0},
                                     Space{"DoesNotFit", 6, "Longer title", kNewPadding},
                                     Space{"HadNone", 0, "Longer title", kNewPadding}, Space{"Shrinks", 100, "T", 104},
                                     Space{"LargestPadding", kLargestPadding - 4, "T", kLargestPadding},
                                     Space{"AbsurdPadding", kLargestPadding - 3, "T", kNewPadding},
                                     Space{"VeryLarge", 300'000, "Longer title", kNewPadding}),
                     testing::Bool()),
    [](const auto& tested) {
        return std::get<0>(tested.param).name + std::string(std::get<1>(tested.param) ? "Safely" : "InPlace");
    });

class BothWays : public testing::TestWithParam<bool> {};

INSTANTIATE_TEST_SUITE_P(TagSaving, BothWays, testing::Bool(),
                         [](const auto& tested) { return tested.param ? "Safely" : "InPlace"; });

TEST_P(BothWays, FramesMayBeAddedRemovedAndReordered) {
    const ScratchFolder folder;
    const Mp3File file(folder, richTag("Title", 1000).done());
    const auto image = imageOf(file.path());
    std::vector<TagFrame> frames = test::carriedFrames(*image);
    std::swap(frames[0], frames[2]); // the picture comes first
    frames.erase(frames.begin() + 3);
    frames.push_back(TagFrame::madeOf(test::frameBytes("TPE1", test::textFrame("Artist"))));
    const SavedTag saved = saveTag(*image, frames, GetParam());
    ASSERT_TRUE(saved.change) << saved.change.text;
    Id3v2Builder expected;
    expected.frame("APIC", test::pictureFrame(test::countedBytes(100'000)))
        .text("TIT2", "Title")
        .frame("PRIV", bytesOf("owner\0data"), 0x20, 0xE0)
        .frame("XYZ1", {}, 0x40, 0x40)
        .frame("GEOB", test::countedBytes(9'000), 0x40)
        .text("TPE1", "Artist");
    expected.padding(image->size() - 10 - expected.size());
    EXPECT_TRUE(isTheTag(file, expected));
    EXPECT_TRUE(isTheImageOf(file.path(), *saved.image));
}

TEST_P(BothWays, ChangesInARowBeginWithTheImageOfTheLastOne) {
    const ScratchFolder folder;
    const Mp3File file(folder, richTag("Title", 50).done());
    std::shared_ptr<TagImage> image = imageOf(file.path());
    for (const std::string title :
         {"One", "Another", "One that is much longer than what was there, by far", "x", "y"}) {
        const SavedTag saved = saveTag(*image, test::framesWithTitle(*image, title), GetParam());
        ASSERT_TRUE(saved.change) << saved.change.text;
        image = saved.image;
        EXPECT_TRUE(file.audioIsUntouched());
        EXPECT_EQ(image->data(image->frames()[1]), test::textFrame(title));
        EXPECT_TRUE(isTheImageOf(file.path(), *image));
    }
}

TEST_P(BothWays, NothingIsWrittenWhereNothingDiffers) {
    const ScratchFolder folder;
    const Mp3File file(folder, richTag("Title", 100).done());
    const auto before = identityOf(test::statusOf(file.path()));
    const auto image = imageOf(file.path());
    const SavedTag carried = saveTag(*image, test::carriedFrames(*image), GetParam());
    EXPECT_TRUE(carried.change);
    const SavedTag saved = test::saveTitle(file.path(), "Title", GetParam());
    EXPECT_TRUE(saved.change);
    EXPECT_EQ(identityOf(test::statusOf(file.path())), before);
    EXPECT_TRUE(isTheImageOf(file.path(), *carried.image));
    EXPECT_TRUE(isTheImageOf(file.path(), *saved.image));
}

TEST_P(BothWays, AFileWithoutATagGetsOne) {
    const ScratchFolder folder;
    const Mp3File file(folder, {});
    const SavedTag saved = test::saveTitle(file.path(), "Title", GetParam());
    ASSERT_TRUE(saved.change) << saved.change.text;
    EXPECT_TRUE(isTheTag(file, Id3v2Builder().text("TIT2", "Title").padding(kNewPadding)));
    EXPECT_TRUE(isTheImageOf(file.path(), *saved.image));
}

TEST_P(BothWays, AnEmptyFileGetsOne) {
    const ScratchFolder folder;
    const Mp3File file(folder, {}, {}, "empty.mp3");
    EXPECT_TRUE(test::saveTitle(file.path(), "Title", GetParam()).change);
    EXPECT_TRUE(isTheTag(file, Id3v2Builder().text("TIT2", "Title").padding(kNewPadding)));
}

TEST_P(BothWays, NoFramesRemoveTheTag) {
    const ScratchFolder folder;
    const Mp3File file(folder, richTag("Title", 100).done());
    const SavedTag saved = saveTag(*imageOf(file.path()), {}, GetParam());
    ASSERT_TRUE(saved.change) << saved.change.text;
    EXPECT_TRUE(file.audioIsUntouched());
    EXPECT_EQ(file.tag(), ByteArray());
    EXPECT_FALSE(saved.image->exists());
    EXPECT_EQ(saved.image->identity(), imageOf(file.path())->identity());
    EXPECT_TRUE(saveTag(*saved.image, {}, GetParam()).change) << "there is none any more, which is what was wanted";
}

TEST(TagSaving, ASecondTagThatComesToLightWhenTheFirstIsRemovedIsNotWrittenOver) {
    const ScratchFolder folder;
    const ByteArray rest = test::joined({Id3v2Builder().text("TIT2", "Second").done(), Mp3File::audio()});
    const Mp3File file(folder, richTag("First", 0).done(), rest, "f.mp3");
    const SavedTag saved = saveTag(*imageOf(file.path()), {}, kSafely);
    EXPECT_TRUE(file.audioIsUntouched());
    EXPECT_TRUE(saved.image->frames().empty()) << "nobody has read it";
    EXPECT_EQ(saveTag(*saved.image, {}, kSafely).change.error, Id3libError::NoFile);
    EXPECT_EQ(saveTag(*saved.image, {TagFrame::madeOf(test::titleBytes("Third"))}, kSafely).change.error,
              Id3libError::NoFile);
    EXPECT_EQ(file.content(), rest);
    EXPECT_TRUE(test::saveTitle(file.path(), "Third").change) << "once it is read";
}

TEST_P(BothWays, TheExperimentalFlagIsKeptAndTheExtendedHeaderIsNot) {
    const ScratchFolder folder;
    const ByteArray extended = ByteBuilder().bigEndian(6, 4).repeat(0, 6).done();
    const Mp3File file(folder, Id3v2Builder().flags(0x60).raw(extended).text("TIT2", "Title").padding(20).done());
    EXPECT_TRUE(test::saveTitle(file.path(), "Titel", GetParam()).change);
    EXPECT_TRUE(isTheTag(file, Id3v2Builder().flags(0x20).text("TIT2", "Titel").padding(30)));
}

TEST_P(BothWays, AnUnsynchronisedTagIsWrittenWithoutThat) {
    const ScratchFolder folder;
    const ByteArray picture = test::pictureFrame(ByteBuilder().repeat(0xFF, 5000).byte(0).byte(0xFF).done());
    const Mp3File file(folder,
                       Id3v2Builder().unsynchronise().frame("APIC", picture).text("TIT2", "Title").padding(9).done());
    const std::size_t size = file.tag().size();
    const SavedTag saved = test::saveTitle(file.path(), "Other", GetParam());
    ASSERT_TRUE(saved.change) << saved.change.text;
    Id3v2Builder expected;
    expected.frame("APIC", picture).text("TIT2", "Other");
    expected.padding(size - 10 - expected.size());
    EXPECT_TRUE(isTheTag(file, expected));
    EXPECT_TRUE(isTheImageOf(file.path(), *saved.image));
}

TEST(TagSaving, InPlaceOnlyTheBytesThatDifferAreWritten) {
    const ScratchFolder folder;
    const Mp3File file(folder, richTag("Title", 100).done());
    const struct stat before = test::statusOf(file.path());
    EXPECT_TRUE(test::saveTitle(file.path(), "Tatle", kInPlace).change);
    EXPECT_EQ(test::statusOf(file.path()).st_ino, before.st_ino);
    EXPECT_TRUE(isTheTag(file, richTag("Tatle", 100)));
    EXPECT_TRUE(test::saveTitle(file.path(), "A title that is too long for what there is", kInPlace).change);
    EXPECT_TRUE(test::saveTitle(file.path(), std::string(200, 'x'), kInPlace).change);
    EXPECT_NE(test::statusOf(file.path()).st_ino, before.st_ino) << "what does not fit takes the safe way";
    EXPECT_TRUE(isTheTag(file, richTag(std::string(200, 'x'), kNewPadding)));
}

struct Refused {
    const char* name;
    ByteArray tag;
    Id3libError error;
};

class ATagThatIsNotUnderstood : public testing::TestWithParam<std::tuple<Refused, bool>> {};

TEST_P(ATagThatIsNotUnderstood, IsNeverOverwrittenNorRemoved) {
    const auto& [refused, safely] = GetParam();
    const ScratchFolder folder;
    const Mp3File file(folder, refused.tag);
    const auto before = identityOf(test::statusOf(file.path()));
    for (const char* title : {"Title", "A much longer title than the one that was there"}) {
        const SavedTag saved = test::saveTitle(file.path(), title, safely);
        EXPECT_EQ(saved.change.error, refused.error);
        EXPECT_FALSE(saved.change.text.empty());
        EXPECT_FALSE(saved.image);
    }
    EXPECT_EQ(saveTag(*imageOf(file.path()), {}, safely).change.error, refused.error);
    EXPECT_EQ(identityOf(test::statusOf(file.path())), before);
    EXPECT_TRUE(file.isUnchanged());
}

Id3v2Builder titled() { return Id3v2Builder().text("TIT2", "Old title"); }

INSTANTIATE_TEST_SUITE_P(
    Tags, ATagThatIsNotUnderstood,
    testing::Combine(
        testing::Values(
            Refused{"Version22", Id3v2Builder(2).text("TT2", "Title").padding(90).done(), Id3libError::BadVersion},
            Refused{"Version24", Id3v2Builder(4).text("TIT2", "Title").padding(90).done(), Id3libError::BadVersion},
            Refused{"LargerThanTheFile", titled().claimedSize(100'000).done(), Id3libError::BadData},
            Refused{"UnknownFlags", titled().flags(8).padding(90).done(), Id3libError::BadData},
            Refused{"FrameOverTheEnd", titled().padding(90).claimedSize(15).done(), Id3libError::BadData},
            Refused{"NoFrame", titled().raw(bytesOf("this is no frame")).padding(90).done(), Id3libError::BadData},
            Refused{"BytesInThePadding", titled().padding(90).raw(bytesOf("x")).padding(9).done(),
                    Id3libError::BadData},
            Refused{"BytesFarInThePadding", titled().padding(60'000).raw(bytesOf("x")).done(), Id3libError::BadData}),
        testing::Bool()),
    [](const auto& tested) {
        return std::get<0>(tested.param).name + std::string(std::get<1>(tested.param) ? "Safely" : "InPlace");
    });

struct WrongFrame {
    const char* name;
    ByteArray bytes;
};

class AFrameThatWouldNotReadBack : public testing::TestWithParam<WrongFrame> {};

TEST_P(AFrameThatWouldNotReadBack, IsNotWritten) {
    const ScratchFolder folder;
    const Mp3File file(folder, richTag("Title", 500).done());
    for (const bool safely : {kSafely, kInPlace}) {
        const auto image = imageOf(file.path());
        auto frames = test::carriedFrames(*image);
        frames.insert(frames.begin() + 1, TagFrame::madeOf(GetParam().bytes));
        EXPECT_EQ(saveTag(*image, frames, safely).change.error, Id3libError::BadData);
        frames.push_back(frames[1]);
        frames.erase(frames.begin() + 1);
        EXPECT_EQ(saveTag(*image, frames, safely).change.error, Id3libError::BadData);
    }
    EXPECT_TRUE(file.isUnchanged());
}

INSTANTIATE_TEST_SUITE_P(
    Frames, AFrameThatWouldNotReadBack,
    testing::Values(WrongFrame{"TellsMoreThanItHas", ByteBuilder().text("TPE1").bigEndian(9, 4).repeat(0, 10).done()},
                    WrongFrame{"TellsLessThanItHas", ByteBuilder().text("TPE1").bigEndian(7, 4).repeat(0, 10).done()},
                    WrongFrame{"NoHeader", bytesOf("TPE1")}, WrongFrame{"Zeros", ByteArray(20)},
                    WrongFrame{"Nothing", {}},
                    WrongFrame{"NoFrameId", ByteBuilder().text("tpe1").bigEndian(1, 4).repeat(0, 3).done()}),
    [](const auto& tested) { return tested.param.name; });

TEST(TagSaving, ATagOf256MegabytesIsRefused) {
    const ScratchFolder folder;
    constexpr std::uint32_t kData = 140'000'000;
    const ByteArray header = test::joined({ByteBuilder().text("ID3").byte(3).repeat(0, 2).synchsafe(kData + 10).done(),
                                           ByteBuilder().text("GEOB").bigEndian(kData, 4).repeat(0, 2).done()});
    const std::string path = folder.write("f.mp3", header);
    ASSERT_EQ(::truncate(path.c_str(), static_cast<off_t>(header.size() + kData)), 0);
    const auto image = imageOf(path);
    auto frames = test::carriedFrames(*image);
    frames.push_back(frames[0]);
    const SavedTag saved = saveTag(*image, frames, kSafely);
    EXPECT_EQ(saved.change.error, Id3libError::BadData);
    EXPECT_EQ(saved.change.text, "the tag would be larger than 256 MB");
    EXPECT_EQ(test::statusOf(path).st_size, static_cast<off_t>(header.size() + kData));
}

// Loads a damaged tag, changes it, and looks that the rest of the file is what it was, or that nothing has changed.
void expectSafe(const ScratchFolder& folder, const ByteArray& content, bool safely) {
    const std::string path = folder.write("f", content);
    const auto loaded = imageOf(path);
    const std::uint64_t oldSize = loaded->size();
    const bool isRefused = loaded->refusal().has_value();
    const auto frames = test::framesWithTitle(*loaded, "Another");
    const SavedTag saved = saveTag(*loaded, frames, safely);
    const ByteArray now = test::contentOf(path);
    ASSERT_EQ(static_cast<bool>(saved.change), !isRefused);
    if (isRefused) {
        ASSERT_EQ(now, content);
        return;
    }
    ASSERT_TRUE(isTheImageOf(path, *saved.image));
    const auto newRest = Bytes(now).subspan(saved.image->size());
    const auto oldRest = Bytes(content).subspan(static_cast<std::size_t>(oldSize));
    ASSERT_TRUE(std::ranges::equal(newRest, oldRest));
    ASSERT_EQ(saved.image->frames().size(), frames.size());
}

ByteArray smallFile() {
    return test::joined({titled()
                             .frame("COMM", test::commentFrame("", "text"))
                             .frame("APIC", test::pictureFrame(test::countedBytes(30)))
                             .text("TYER", "2001")
                             .padding(20)
                             .done(),
                         test::countedBytes(50)});
}

TEST(TagSaving, OfEveryShorterPrefixNothingIsLost) {
    const ScratchFolder folder;
    const ByteArray whole = smallFile();
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        const ByteArray prefix(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        expectSafe(folder, prefix, size % 2 == 0);
        if (HasFatalFailure()) FAIL() << "of " << size << " bytes";
    }
    EXPECT_EQ(folder.names().size(), 1U);
}

TEST(TagSaving, WithAnyByteChangedNothingIsLost) {
    const ScratchFolder folder;
    const ByteArray whole = smallFile();
    for (std::size_t at = 0; at + 50 < whole.size(); ++at) {
        for (const unsigned value : {0x00U, 0x01U, 0x7FU, 0x80U, 0xFFU, whole[at] ^ 0x10U}) {
            ByteArray mutated = whole;
            mutated[at] = static_cast<std::uint8_t>(value);
            expectSafe(folder, mutated, (at + value) % 2 == 0);
            if (HasFatalFailure()) FAIL() << "byte " << at << " as " << value;
        }
    }
    EXPECT_EQ(folder.names().size(), 1U);
}

} // namespace
} // namespace corvane::tagsaving_test
