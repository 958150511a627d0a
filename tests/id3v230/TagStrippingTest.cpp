#include "corvane/id3v230/TagStripping.h"

#include "corvane/id3v230/TagSaving.h"
#include "corvane/platform/ByteCopy.h"
#include "corvane/platform/Descriptor.h"
#include "corvane/platform/FileReader.h"

#include "tests/id3v230/SavedFrames.h"
#include "tests/support/Id3v1Builder.h"
#include "tests/support/LyricsBuilder.h"
#include "tests/support/Mp3File.h"
#include "tests/support/MpegBuilder.h"
#include "tests/support/MusicMatchBuilder.h"
#include "tests/support/Process.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

namespace corvane::tagstripping_test {
namespace {

using test::bytesOf;
using test::Id3v2Builder;
using test::joined;
using test::Mp3File;
using test::ScratchFolder;
using enum ID3_TagType;

ByteArray leading() { return Id3v2Builder().text("TIT2", "Title").padding(50).done(); }
ByteArray record() { return test::Id3v1Builder().title("Title").done(); }
ByteArray lyricsV1() { return test::lyricsV100("la la"); }
ByteArray lyricsV2() { return test::LyricsBuilder().field("LYR", "la").done(); }
ByteArray musicMatch() { return test::musicMatch({.hasHeader = true}); }

struct Kind {
    const char* name;
    ID3_TagType kind;
    ByteArray left; // of a file with everything
};

class EveryKind : public testing::TestWithParam<Kind> {
protected:
    // A file with a tag of every kind.
    ByteArray everything = joined({leading(), Mp3File::audio(), musicMatch(), lyricsV1(), lyricsV2(), record()});
    ScratchFolder folder;
};

INSTANTIATE_TEST_SUITE_P(
    TagStripping, EveryKind,
    testing::Values(
        Kind{"Id3v1", ID3TT_ID3V1, joined({leading(), Mp3File::audio(), musicMatch(), lyricsV1(), lyricsV2()})},
        Kind{"Id3v2", ID3TT_ID3V2, joined({Mp3File::audio(), musicMatch(), lyricsV1(), lyricsV2(), record()})},
        Kind{"LyricsV1", ID3TT_LYRICS3, joined({leading(), Mp3File::audio(), musicMatch(), lyricsV2(), record()})},
        Kind{"LyricsV2", ID3TT_LYRICS3V2, joined({leading(), Mp3File::audio(), musicMatch(), lyricsV1(), record()})},
        Kind{"MusicMatch", ID3TT_MUSICMATCH, joined({leading(), Mp3File::audio(), lyricsV1(), lyricsV2(), record()})}),
    [](const auto& tested) { return tested.param.name; });

TEST_P(EveryKind, IsRemovedAloneAndOnce) {
    const std::string path = folder.write("f", everything);
    const TagChange change = stripTag(path, GetParam().kind);
    EXPECT_TRUE(change) << change.text;
    EXPECT_EQ(test::contentOf(path), GetParam().left);
    const auto before = identityOf(test::statusOf(path));
    EXPECT_TRUE(stripTag(path, GetParam().kind)) << "there is none any more";
    EXPECT_EQ(identityOf(test::statusOf(path)), before);
    EXPECT_EQ(folder.names().size(), 1U);
}

TEST_P(EveryKind, IsNotRemovedFromAReadOnlyFile) {
    if (!test::isRoot()) GTEST_SKIP() << "only root can become somebody else";
    const std::string path = folder.write("f", everything);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0777), 0);
    ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
    EXPECT_EQ(test::asNobody([&] { return stripTag(path, GetParam().kind).number(); }), 12);
    EXPECT_EQ(test::contentOf(path), everything);
    EXPECT_EQ(folder.names().size(), 1U);
}

TEST_P(EveryKind, IsNotRemovedInAReadOnlyFolder) {
    if (!test::isRoot()) GTEST_SKIP() << "only root can become somebody else";
    const std::string path = folder.write("f", everything);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
    ASSERT_EQ(::chmod(path.c_str(), 0666), 0);
    EXPECT_EQ(test::asNobody([&] { return stripTag(path, GetParam().kind).number(); }), 12);
    EXPECT_EQ(test::contentOf(path), everything);
}

TEST_P(EveryKind, CannotBeRemovedFromWhatIsNoFile) {
    ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
    for (const std::string& path : {folder.path("none"), folder.path(), folder.path("pipe"), std::string()}) {
        const TagChange change = stripTag(path, GetParam().kind);
        EXPECT_EQ(change.number(), 11) << path;
        EXPECT_FALSE(change.text.empty());
    }
    EXPECT_EQ(folder.names().size(), 1U);
}

TEST_P(EveryKind, AFullDiskLeavesTheFileAsItWas) {
    const std::string place = folder.path("small");
    ASSERT_EQ(::mkdir(place.c_str(), 0700), 0);
    const ByteArray content =
        joined({leading(), ByteArray(200'000, 0x55), musicMatch(), lyricsV1(), lyricsV2(), record()});
    const int result = test::withSmallFileSystem(place.c_str(), 300UL * 1024, [&] {
        const std::string path = folder.write("small/f", content);
        if (stripTag(path, GetParam().kind).number() != 5) return 1;
        if (test::contentOf(path) != content) return 2;
        return test::namesIn(place).size() == 1 ? 0 : 3;
    });
    if (result == test::kNoMount) GTEST_SKIP() << "no file system can be mounted here";
    EXPECT_EQ(result, 0);
}

TEST_P(EveryKind, LinksAndPermissionsStay) {
    const std::string path = folder.write("f", everything);
    ASSERT_EQ(::link(path.c_str(), folder.path("second").c_str()), 0);
    ASSERT_EQ(::symlink(path.c_str(), folder.path("link").c_str()), 0);
    ASSERT_EQ(::chmod(path.c_str(), 0615), 0);
    EXPECT_TRUE(stripTag(folder.path("link"), GetParam().kind));
    EXPECT_EQ(test::contentOf(folder.path("second")), GetParam().left);
    EXPECT_EQ(test::statusOf(path).st_mode & 07777, 0615U);
    EXPECT_TRUE(S_ISLNK(test::statusOf(folder.path("link")).st_mode));
    EXPECT_EQ(folder.names().size(), 3U);
}

TEST(TagStripping, RemovesTheKindsOfSeveralBitsOneAfterTheOther) {
    const ScratchFolder folder;
    const ByteArray content = joined({leading(), Mp3File::audio(), musicMatch(), lyricsV2(), record()});
    const std::string path = folder.write("f", content);
    EXPECT_TRUE(stripTags(path, 0));
    EXPECT_EQ(test::contentOf(path), content);
    EXPECT_TRUE(stripTags(path, 3));
    EXPECT_EQ(test::contentOf(path), joined({Mp3File::audio(), musicMatch(), lyricsV2()}));
    EXPECT_TRUE(stripTags(path, 0xFF));
    EXPECT_EQ(test::contentOf(path), Mp3File::audio());
}

TEST(TagStripping, EndsAtTheFirstKindThatCannotBeRemoved) {
    const ScratchFolder folder;
    const ByteArray damaged = Id3v2Builder().text("TIT2", "Title").claimedSize(1'000'000).done();
    const std::string path = folder.write("f", joined({damaged, Mp3File::audio(), lyricsV2(), record()}));
    const TagChange change = stripTags(path, 0xFF);
    EXPECT_EQ(change.error, Id3libError::BadData);
    EXPECT_EQ(change.text, "the ID3v2 tag is larger than the file");
    EXPECT_EQ(test::contentOf(path), joined({damaged, Mp3File::audio(), lyricsV2()}));
}

struct Leading {
    const char* name;
    ByteArray tag;
    std::int32_t number; // 0: it is removed
    ByteArray left;      // of the tag's bytes
};

class ALeadingTag : public testing::TestWithParam<Leading> {};

TEST_P(ALeadingTag, IsRemovedAsFarAsItReaches) {
    const ScratchFolder folder;
    const Mp3File file(folder, GetParam().tag);
    EXPECT_EQ(stripTag(file.path(), ID3TT_ID3V2).number(), GetParam().number);
    EXPECT_EQ(file.content(), joined({GetParam().left, Mp3File::usualRest()}));
    EXPECT_EQ(folder.names().size(), 1U);
}

Leading refused(const char* name, const ByteArray& tag, std::int32_t number) { return {name, tag, number, tag}; }

ByteArray withSizeByte(ByteArray tag, std::uint8_t byte) {
    tag[6] = byte;
    return tag;
}

INSTANTIATE_TEST_SUITE_P(
    Tags, ALeadingTag,
    testing::Values(Leading{"None", {}, 0, {}},
                    Leading{"Version22", Id3v2Builder(2).text("TT2", "a").padding(9).done(), 0, {}},
                    Leading{"Version23", leading(), 0, {}},
                    Leading{"Version24", Id3v2Builder(4).text("TIT2", "a").done(), 0, {}},
                    Leading{"Version24WithFooter", Id3v2Builder(4).text("TIT2", "a").footer().done(), 0, {}},
                    Leading{"AFooterThatIsNotThere", Id3v2Builder(4).text("TIT2", "a").flags(0x10).done(), 0, {}},
                    Leading{"AFooterFlagOfVersion23", Id3v2Builder().text("TIT2", "a").flags(0x10).done(), 0, {}},
                    Leading{"Empty", Id3v2Builder().done(), 0, {}},
                    Leading{"Damaged", Id3v2Builder().raw(bytesOf("this is no frame")).done(), 0, {}},
                    Leading{"ZerosBehindItStay", joined({leading(), ByteArray(700)}), 0, ByteArray(700)},
                    Leading{"ASecondTagStays", joined({leading(), leading()}), 0, leading()},
                    refused("LargerThanTheFile", Id3v2Builder().text("TIT2", "a").claimedSize(500'000).done(), 3),
                    refused("SizeByteWithItsHighestBit", withSizeByte(leading(), 0x80), 3),
                    refused("UnknownVersion", Id3v2Builder(5).text("TIT2", "a").done(), 10),
                    refused("NoVersion", Id3v2Builder(255).text("TIT2", "a").done(), 10)),
    [](const auto& tested) { return tested.param.name; });

TEST(TagStripping, ATagThatIsTheWholeFileLeavesAnEmptyOne) {
    const ScratchFolder folder;
    const std::string path = folder.write("f", leading());
    EXPECT_TRUE(stripTag(path, ID3TT_ID3V2));
    EXPECT_EQ(test::contentOf(path), ByteArray());
}

TEST(TagStripping, ADamagedTrailingTagIsLeftAlone) {
    const ScratchFolder folder;
    const ByteArray content = joined({Mp3File::audio(), bytesOf("no beginning LYRICSEND"), record()});
    const std::string path = folder.write("f", content);
    const TagChange change = stripTag(path, ID3TT_LYRICS3);
    EXPECT_EQ(change.error, Id3libError::BadData);
    EXPECT_EQ(change.text, "the beginning of the tag cannot be found");
    EXPECT_EQ(test::contentOf(path), content);
}

// Words of the lyrics in the ID3v2 tag of a short file, and a trailing tag without its own beginning.
TEST(TagStripping, ATrailingTagDoesNotBeginInTheLeadingOne) {
    const ByteArray talk = Id3v2Builder().frame("USLT", test::commentFrame("", "LYRICSBEGIN, it said")).done();
    const ByteArray likeARecord = Id3v2Builder().raw(bytesOf("TAG")).padding(125).done();
    const ScratchFolder folder;
    for (const auto& [kind, content] : {
             std::pair{ID3TT_LYRICS3, joined({talk, test::mpegFrame({}), bytesOf("LYRICSEND"), record()})},
             std::pair{ID3TT_ID3V1, likeARecord},
         }) {
        const std::string path = folder.write("f", content);
        EXPECT_EQ(stripTag(path, kind).error, Id3libError::BadData);
        EXPECT_EQ(test::contentOf(path), content);
    }
}

// 4.5 GB, of which the file system holds only what is written here: a tag, and bytes here and there.
class AHugeFile : public testing::Test {
protected:
    static constexpr std::uint64_t kRest = 4'500'000'000;

    void SetUp() override {
        const Descriptor file(::open(path.c_str(), O_RDWR | O_CREAT, 0600));
        writeAt(file.number(), 0, leading());
        for (const std::uint64_t offset : offsets) writeAt(file.number(), leading().size() + offset, markAt(offset));
        ASSERT_EQ(::ftruncate(file.number(), static_cast<off_t>(leading().size() + kRest)), 0);
    }
    static ByteArray markAt(std::uint64_t offset) { return bytesOf("audio at " + std::to_string(offset)); }
    void expectRest(std::uint64_t front) {
        FileReader file(path);
        ASSERT_EQ(file.size(), front + kRest);
        std::uint64_t behind = 0;
        for (const std::uint64_t offset : offsets) {
            const ByteArray mark = markAt(offset);
            EXPECT_EQ(file.read(front + offset, mark.size()), mark);
            const ByteArray between =
                file.read(front + behind, static_cast<std::size_t>(std::min<std::uint64_t>(offset - behind, 5'000)));
            EXPECT_EQ(between, ByteArray(between.size())) << "in front of " << offset;
            behind = offset + mark.size();
        }
        EXPECT_LT(test::statusOf(path).st_blocks, 10'000) << "its holes are holes";
        EXPECT_EQ(folder.names().size(), 1U);
    }

    const std::vector<std::uint64_t> offsets{0, 100'000, 2'147'483'640, 4'294'967'290, 4'400'000'000};
    ScratchFolder folder;
    std::string path = folder.path("huge.mp3");
};

TEST_F(AHugeFile, KeepsTheRightBytesWhenItsTagIsRemoved) {
    const TagChange change = stripTag(path, ID3TT_ID3V2);
    EXPECT_TRUE(change) << change.text;
    expectRest(0);
}

TEST_F(AHugeFile, KeepsTheRightBytesWhenItsTagGrows) {
    const SavedTag saved = test::saveTitle(path, std::string(500, 'x'));
    EXPECT_TRUE(saved.change) << saved.change.text;
    expectRest(saved.image->size());
}

} // namespace
} // namespace corvane::tagstripping_test
