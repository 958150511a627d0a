#include "corvane/id3v230/TagImage.h"

#include "corvane/platform/FileReader.h"

#include "tests/support/Failures.h"
#include "tests/support/Id3v2Builder.h"
#include "tests/support/Mp3File.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>

namespace corvane::tagimage_test {
namespace {

using test::ByteBuilder;
using test::bytesOf;
using test::Id3v2Builder;
using test::Mp3File;
using test::ScratchFolder;

std::shared_ptr<TagImage> imageOf(const std::string& path) {
    FileReader file(path);
    return TagImage::read(file, path);
}

// A 0 in an ID shows as a dot.
std::string idsOf(const TagImage& image) {
    std::string ids;
    for (const RawFrame& frame : image.frames()) ids.append(frame.idText()).push_back(';');
    std::replace(ids.begin(), ids.end(), '\0', '.');
    return ids;
}

TEST(TagImage, TellsEveryFrameAsItStandsThere) {
    const ScratchFolder folder;
    const Mp3File file(folder, Id3v2Builder()
                                   .text("TIT2", "Title")
                                   .frame("XYZ1", bytesOf("who knows"), 0x40, 0xA0)
                                   .frame("PRIV", {})
                                   .text("TIT2", "Again")
                                   .padding(50)
                                   .done());
    const auto image = imageOf(file.path());
    EXPECT_TRUE(image->exists());
    EXPECT_EQ(image->majorVersion(), 3U);
    EXPECT_EQ(image->size(), file.tag().size());
    EXPECT_EQ(idsOf(*image), "TIT2;XYZ1;PRIV;TIT2;");
    const RawFrame& unknown = image->frames()[1];
    EXPECT_EQ(unknown.offset, 10U + 16);
    EXPECT_EQ(unknown.statusFlags, 0xA0);
    EXPECT_EQ(unknown.formatFlags, 0x40);
    EXPECT_EQ(image->data(unknown), bytesOf("who knows"));
    EXPECT_EQ(image->bytes(unknown),
              ByteBuilder().text("XYZ1").bigEndian(9, 4).byte(0xA0).byte(0x40).text("who knows").done());
    EXPECT_EQ(image->frames()[2].dataSize, 0U);
    EXPECT_EQ(image->data(image->frames()[2]), ByteArray());
    EXPECT_EQ(image->padding().size, 50U);
    EXPECT_FALSE(image->refusal());
    EXPECT_EQ(image->path(), file.path());
}

struct NoTag {
    const char* name;
    ByteArray content;
};

class AFileWithoutATag : public testing::TestWithParam<NoTag> {};

TEST_P(AFileWithoutATag, HasAnEmptyImageThatMayBeWritten) {
    const ScratchFolder folder;
    const auto image = imageOf(folder.write("f", GetParam().content));
    EXPECT_FALSE(image->exists());
    EXPECT_EQ(image->majorVersion(), 0U);
    EXPECT_EQ(image->size(), 0U);
    EXPECT_TRUE(image->frames().empty());
    EXPECT_FALSE(image->refusal());
}

INSTANTIATE_TEST_SUITE_P(Contents, AFileWithoutATag,
                         testing::Values(NoTag{"Nothing", {}}, NoTag{"Audio", Mp3File::audio()},
                                         NoTag{"LessThanAHeader", bytesOf("ID3\3\0\0\0\0\0")},
                                         NoTag{"OtherLetters", bytesOf("id3 is what it is")}),
                         [](const auto& tested) { return tested.param.name; });

struct Refused {
    const char* name;
    ByteArray tag;
    std::int32_t number;
    const char* reason;
    const char* ids; // of the frames that are told nevertheless
};

class ATagThatMustNotBeWrittenAnew : public testing::TestWithParam<Refused> {};

TEST_P(ATagThatMustNotBeWrittenAnew, TellsWhyAndKeepsTheFramesInFrontOfTheDamage) {
    const ScratchFolder folder;
    const Mp3File file(folder, GetParam().tag);
    const auto image = imageOf(file.path());
    EXPECT_TRUE(image->exists());
    const auto refusal = image->refusal();
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->number, GetParam().number);
    EXPECT_EQ(refusal->reason, GetParam().reason);
    EXPECT_EQ(idsOf(*image), GetParam().ids);
}

Id3v2Builder titled() { return Id3v2Builder().text("TIT2", "Title"); }

ByteArray withSizeByte(ByteArray tag, std::uint8_t byte) {
    tag[9] = byte;
    return tag;
}

ByteArray frameOf(std::string_view id, std::uint32_t size, std::string_view data) {
    return ByteBuilder().text(id).bigEndian(size, 4).repeat(0, 2).text(data).done();
}

INSTANTIATE_TEST_SUITE_P(
    Tags, ATagThatMustNotBeWrittenAnew,
    testing::Values(
        Refused{"Version22", Id3v2Builder(2).text("TT2", "Title").done(), 10,
                "the ID3v2 tag is of version 2.2, only 2.3 can be changed", ""},
        Refused{"Version24", Id3v2Builder(4).text("TIT2", "Title").done(), 10,
                "the ID3v2 tag is of version 2.4, only 2.3 can be changed", ""},
        Refused{"UnknownVersion", Id3v2Builder(255).done(), 10,
                "the ID3v2 tag is of version 2.255, only 2.3 can be changed", ""},
        Refused{"SizeByteWithItsHighestBit", withSizeByte(titled().done(), 0x90), 3,
                "the size of the ID3v2 tag is not valid", ""},
        Refused{"LargerThanTheFile", titled().claimedSize(10'000).done(), 3, "the ID3v2 tag is larger than the file",
                "TIT2;"},
        Refused{"UnknownFlag10", titled().flags(0x10).done(), 3, "the ID3v2 tag has unknown flags", "TIT2;"},
        Refused{"UnknownFlag01", titled().flags(0x01).done(), 3, "the ID3v2 tag has unknown flags", "TIT2;"},
        Refused{"FrameOverTheEnd", titled().raw(frameOf("TPE1", 7, "artist")).done(), 3,
                "the frame TPE1 runs past the end of the tag", "TIT2;"},
        Refused{"FrameFarOverTheEnd", titled().raw(frameOf(std::string_view("TP1\0", 4), 0xFFFFFFFF, "artist")).done(),
                3, "the frame TP1 runs past the end of the tag", "TIT2;"},
        Refused{"LowerCaseId", titled().raw(frameOf("Tpe1", 6, "artist")).done(), 3,
                "something that is no frame stands at offset 26", "TIT2;"},
        Refused{"IdOfTwoLetters", titled().raw(frameOf("TP  ", 6, "artist")).done(), 3,
                "something that is no frame stands at offset 26", "TIT2;"},
        Refused{"FewBytesThatAreNoFrame", titled().raw(bytesOf("TPE1")).done(), 3,
                "something that is no frame stands at offset 26", "TIT2;"},
        Refused{"BytesInThePadding", titled().padding(70'000).raw(bytesOf("x")).padding(20).done(), 3,
                "the padding behind the frames is not empty", "TIT2;"},
        Refused{"BytesInAShortPadding", titled().padding(1).raw(bytesOf("x")).done(), 3,
                "the padding behind the frames is not empty", "TIT2;"},
        Refused{"AudioInThePadding", titled().padding(20).claimedSize(16 + 24).done(), 3,
                "the padding behind the frames is not empty", "TIT2;"},
        Refused{"ExtendedHeaderOfAnotherSize",
                Id3v2Builder().flags(0x40).raw(ByteBuilder().bigEndian(7, 4).repeat(0, 7).done()).done(), 3,
                "the extended header of the ID3v2 tag is not valid", ""},
        Refused{"UnsynchronisedInNameOnly",
                Id3v2Builder().flags(0x80).text("TIT2", "Title", test::Encoding::Utf16).done(), 3,
                "the ID3v2 tag is not unsynchronised as its header says", "TIT2;"},
        Refused{"UnsynchronisedWithBytesInThePadding",
                Id3v2Builder().unsynchronise().text("TIT2", "a").padding(20).raw(bytesOf("x")).done(), 3,
                "the padding behind the frames is not empty", "TIT2;"}),
    [](const auto& tested) { return tested.param.name; });

struct Accepted {
    const char* name;
    ByteArray tag;
    const char* ids;
};

class ATagThatIsOddButUnderstood : public testing::TestWithParam<Accepted> {};

TEST_P(ATagThatIsOddButUnderstood, MayBeWrittenAnew) {
    const ScratchFolder folder;
    const Mp3File file(folder, GetParam().tag);
    const auto image = imageOf(file.path());
    const auto refusal = image->refusal();
    EXPECT_FALSE(refusal) << refusal->reason;
    EXPECT_EQ(idsOf(*image), GetParam().ids);
}

INSTANTIATE_TEST_SUITE_P(
    Tags, ATagThatIsOddButUnderstood,
    testing::Values(
        Accepted{"Empty", Id3v2Builder().done(), ""}, Accepted{"OnlyPadding", Id3v2Builder().padding(3000).done(), ""},
        Accepted{"NoPadding", titled().done(), "TIT2;"},
        Accepted{"OneByteOfPadding", titled().padding(1).done(), "TIT2;"},
        Accepted{"PaddingShorterThanAHeader", titled().padding(9).done(), "TIT2;"},
        Accepted{"IdsOfVersion22", titled().raw(frameOf(std::string_view("TP1\0", 4), 1, "a")).done(), "TIT2;TP1.;"},
        Accepted{"IdsOfVersion22WithABlank", titled().raw(frameOf("TP1 ", 1, "a")).done(), "TIT2;TP1 ;"},
        Accepted{"Experimental", titled().flags(0x20).done(), "TIT2;"},
        Accepted{"AnotherRevision", Id3v2Builder(3, 1).text("TIT2", "Title").done(), "TIT2;"},
        Accepted{
            "ExtendedHeader",
            Id3v2Builder().flags(0x40).raw(ByteBuilder().bigEndian(6, 4).repeat(0, 6).done()).text("TIT2", "a").done(),
            "TIT2;"},
        Accepted{"ExtendedHeaderWithChecksum",
                 Id3v2Builder()
                     .flags(0x40)
                     .raw(ByteBuilder().bigEndian(10, 4).repeat(0x80, 10).done())
                     .text("TIT2", "a")
                     .done(),
                 "TIT2;"}),
    [](const auto& tested) { return tested.param.name; });

TEST(TagImage, AnUnsynchronisedTagIsUndone) {
    const ScratchFolder folder;
    const ByteArray picture = test::pictureFrame(ByteBuilder().repeat(0xFF, 5000).byte(0xD8).byte(0xFF).byte(0).done());
    const ByteArray title = test::textFrame("Tïtel", test::Encoding::Utf16);
    const Mp3File file(folder,
                       Id3v2Builder().unsynchronise().frame("APIC", picture).frame("TIT2", title).padding(30).done());
    const auto image = imageOf(file.path());
    ASSERT_EQ(idsOf(*image), "APIC;TIT2;");
    EXPECT_EQ(image->frames()[0].offset, 0U) << "in the undone body";
    EXPECT_EQ(image->data(image->frames()[0]), picture);
    EXPECT_EQ(image->data(image->frames()[1]), title);
    EXPECT_FALSE(image->hasFileOffsets());
    EXPECT_FALSE(image->refusal());
    ASSERT_EQ(::unlink(file.path().c_str()), 0);
    EXPECT_EQ(image->data(image->frames()[0]), picture) << "it was read whole";
}

TEST(TagImage, LargeFramesAreReadWhenAskedFor) {
    const ScratchFolder folder;
    const ByteArray picture = test::pictureFrame(test::countedBytes(100'000));
    const Mp3File file(folder, titled().frame("APIC", picture).text("TPE1", "Artist").done());
    const auto image = imageOf(file.path());
    const RawFrame& frame = image->frames()[1];
    EXPECT_FALSE(image->isInMemory(frame));
    const Bytes head = image->head(frame);
    EXPECT_EQ(ByteArray(head.begin(), head.end()), ByteArray(picture.begin(), picture.begin() + 256));
    EXPECT_EQ(image->data(frame), picture);
    const ByteArray whole = image->bytes(frame);
    EXPECT_EQ(ByteArray(whole.begin() + 10, whole.end()), picture);
    EXPECT_TRUE(image->isInMemory(image->frames()[0]));
    EXPECT_TRUE(image->isInMemory(image->frames()[2])) << "text is gathered wherever it stands";
}

TEST(TagImage, TextUpTo64KilobytesIsGathered) {
    const ScratchFolder folder;
    const std::string lyrics(65'000, 'l');
    const Mp3File file(folder, Id3v2Builder()
                                   .frame("USLT", test::commentFrame("", lyrics))
                                   .frame("USLT", test::commentFrame("", lyrics + lyrics))
                                   .done());
    const auto image = imageOf(file.path());
    EXPECT_TRUE(image->isInMemory(image->frames()[0]));
    EXPECT_FALSE(image->isInMemory(image->frames()[1]));
    EXPECT_EQ(image->data(image->frames()[1]), test::commentFrame("", lyrics + lyrics));
}

struct Meddling {
    const char* name;
    void (*meddle)(const std::string& path);
    std::int32_t failure;
};

class AFileThatIsNotTheOneThatWasRead : public testing::TestWithParam<Meddling> {};

TEST_P(AFileThatIsNotTheOneThatWasRead, GivesNoOtherBytes) {
    const ScratchFolder folder;
    const Mp3File file(folder,
                       titled().frame("APIC", test::pictureFrame(test::countedBytes(100'000))).padding(9).done());
    const auto image = imageOf(file.path());
    GetParam().meddle(file.path());
    EXPECT_EQ(test::failureNumberOf([&] { image->data(image->frames()[1]); }), GetParam().failure);
    EXPECT_EQ(test::failureNumberOf([&] { image->bytes(image->frames()[1]); }), GetParam().failure);
    EXPECT_EQ(test::failureNumberOf([&] { image->refusal(); }), GetParam().failure);
    EXPECT_EQ(image->data(image->frames()[0]), test::textFrame("Title")) << "it is in memory";
}

INSTANTIATE_TEST_SUITE_P(
    Ways, AFileThatIsNotTheOneThatWasRead,
    testing::Values(
        Meddling{"Appended", [](const std::string& path) { std::ofstream(path, std::ios::app) << "4"; }, ESTALE},
        Meddling{"Cut", [](const std::string& path) { EXPECT_EQ(::truncate(path.c_str(), 2000), 0); }, ESTALE},
        Meddling{"Replaced",
                 [](const std::string& path) {
                     std::filesystem::copy_file(path, path + "2");
                     std::filesystem::rename(path + "2", path);
                 },
                 ESTALE},
        Meddling{"Gone", [](const std::string& path) { EXPECT_EQ(::unlink(path.c_str()), 0); }, ENOENT}),
    [](const auto& tested) { return tested.param.name; });

TEST(TagImage, FollowsTheLibrarysOwnChangeBehindTheTag) {
    const ScratchFolder folder;
    const ByteArray picture = test::pictureFrame(test::countedBytes(100'000));
    const Mp3File file(folder, titled().frame("APIC", picture).done());
    const auto image = imageOf(file.path());
    const FileIdentity before = image->identity();
    std::ofstream(file.path(), std::ios::app) << "4";
    image->follow({before, FileReader(file.path()).identity()});
    EXPECT_EQ(image->data(image->frames()[1]), picture);
}

TEST(TagImage, AFrameOfAnotherTagIsNoneOfThisOne) {
    const ScratchFolder folder;
    const Mp3File file(folder, titled().done());
    const auto image = imageOf(file.path());
    RawFrame other = image->frames()[0];
    other.offset += 1;
    EXPECT_THROW(image->data(other), std::logic_error);
}

// Whether an image was made of damaged bytes: its frames lie within the tag, and all of them can be had.
void expectSound(const std::string& path, const ByteArray& content) {
    const auto image = imageOf(path);
    std::uint64_t end = 0;
    for (const RawFrame& frame : image->frames()) {
        EXPECT_GE(frame.offset, end);
        end = frame.offset + frame.size();
        EXPECT_LE(end, content.size());
        EXPECT_EQ(image->bytes(frame).size(), frame.size());
    }
    static_cast<void>(image->refusal());
}

ByteArray richTag() {
    return titled()
        .frame("COMM", test::commentFrame("", "text"))
        .frame("APIC", test::pictureFrame(test::countedBytes(300)))
        .text("TYER", "2001")
        .padding(20)
        .done();
}

TEST(TagImage, EveryShorterPrefixIsReadAndRefusedOnceTheHeaderIsWhole) {
    const ScratchFolder folder;
    const ByteArray tag = richTag();
    for (std::size_t size = 0; size < tag.size(); ++size) {
        const ByteArray prefix(tag.begin(), tag.begin() + static_cast<std::ptrdiff_t>(size));
        const std::string path = folder.write("f", prefix);
        expectSound(path, prefix);
        EXPECT_EQ(imageOf(path)->refusal().has_value(), size >= 10) << size;
    }
}

TEST(TagImage, EveryChangedByteIsReadWithoutHarm) {
    const ScratchFolder folder;
    const ByteArray tag = richTag();
    for (std::size_t at = 0; at < tag.size(); ++at) {
        for (const unsigned value : {0x00U, 0x01U, 0x7FU, 0x80U, 0xFFU, tag[at] ^ 0x20U}) {
            ByteArray mutated = tag;
            mutated[at] = static_cast<std::uint8_t>(value);
            expectSound(folder.write("f", mutated), mutated);
        }
    }
}

} // namespace
} // namespace corvane::tagimage_test
