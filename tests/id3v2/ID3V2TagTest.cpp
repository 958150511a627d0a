#include "corvane/id3v2/ID3V2Tag.h"

#include "corvane/id3v2/ID3V23TagInternals.h"
#include "corvane/platform/MessageBox.h"
#include "corvane/platform/RuntimeFailure.h"

#include "tests/id3v2/TagOnDisk.h"
#include "tests/support/ImageBuilder.h"

#include <gtest/gtest.h>

namespace corvane::id3v2tag_test {
namespace {

using namespace test;

constexpr const char* kUnableToLoad = "-2147221504, ID3V2Tag::loadTag, Unable to load this tag.";
constexpr const char* kNotSupported = "0, saveTag, Saving is not supported.";

using TextRead = std::string (ID3V2Tag::*)();
using TextWrite = void (ID3V2Tag::*)(std::string_view);
struct Property {
    const char* name;
    TextRead read;
    TextWrite write;
};
#define PROPERTY(NAME)                                                                                                 \
    Property { #NAME, &ID3V2Tag::NAME, &ID3V2Tag::NAME }
constexpr std::array<Property, 14> kProperties{
    {PROPERTY(Artist), PROPERTY(Album), PROPERTY(Title), PROPERTY(Genre), PROPERTY(Track), PROPERTY(Year),
     PROPERTY(LyricsUnsynced), PROPERTY(LyricsSynced), PROPERTY(UserURL), PROPERTY(Comment), PROPERTY(Composer),
     PROPERTY(OriginalArtist), PROPERTY(Copyright), PROPERTY(EncodedBy)}};
#undef PROPERTY

std::int32_t sizeOf(const ID3V2Tag& tag) { return std::get<std::int32_t>(tag.Size()); }

ByteArray headerOf(unsigned major, std::initializer_list<unsigned> size) {
    ByteBuilder header;
    header.text("ID3").byte(major).byte(0).byte(0);
    for (const unsigned byte : size) header.byte(byte);
    return header.done();
}

TEST(ID3V2Tag, VersionAndSizeComeFromTheHeader) {
    TagOnDisk file(headerOf(3, {0, 0, 2, 1}));
    EXPECT_EQ(sizeOf(file.tag), 267);
    EXPECT_EQ(file.tag.Version()->Major(), 2);
    EXPECT_EQ(file.tag.Version()->Minor(), 3);
    EXPECT_EQ(file.tag.Version()->Revision(), 0);
}

TEST(ID3V2Tag, ASizeByteAbove7FAddsItsWholeValue) {
    EXPECT_EQ(sizeOf(TagOnDisk(headerOf(3, {0x80, 0, 0, 0})).tag), 128 * (1 << 21) + 10);
    EXPECT_EQ(sizeOf(TagOnDisk(headerOf(3, {0, 0x80, 0, 0})).tag), 128 * (1 << 14) + 10);
    EXPECT_EQ(sizeOf(TagOnDisk(headerOf(3, {0, 0, 0x80, 0})).tag), 128 * (1 << 7) + 10);
    EXPECT_EQ(sizeOf(TagOnDisk(headerOf(3, {0, 0, 0, 0x80})).tag), 128 + 10);
    EXPECT_EQ(sizeOf(TagOnDisk(headerOf(3, {0xFF, 0xFF, 0xFF, 0xFF})).tag), 538'984'585);
    EXPECT_EQ(sizeOf(TagOnDisk(headerOf(3, {0, 0, 0, 0})).tag), 10);
}

TEST(ID3V2Tag, TheVersionObjectIsNeverReplaced) {
    ID3V2Tag tag;
    const auto version = tag.Version();
    EXPECT_EQ(version->Minor(), 0);
    Internals<ID3V2Tag>::setHeader(tag, "", *decodeHeader(headerOf(4, {0, 0, 0, 0})));
    EXPECT_EQ(version, tag.Version());
    EXPECT_EQ(version->Minor(), 4);
}

TEST(ID3V2Tag, VersionAndSizeNeedNoFile) {
    ID3V2Tag tag;
    Internals<ID3V2Tag>::setHeader(tag, "/nowhere/at/all", *decodeHeader(headerOf(3, {0, 0, 2, 1})));
    EXPECT_EQ(sizeOf(tag), 267);
    EXPECT_EQ(lastErrorOf(tag), "0, , ");
}

Id3v2Builder fullTag(unsigned version) {
    Id3v2Builder tag(version);
    if (version == 2) {
        for (const char* id : {"TP1", "TAL", "TT2", "TCO", "TRK", "TYE"}) tag.text(id, id);
        return tag;
    }
    for (const char* id : {"TPE1", "TALB", "TIT2", "TCON", "TRCK", "TYER", "TCOM", "TOPE", "TCOP", "TENC"})
        tag.text(id, id);
    for (const char* id : {"USLT", "COMM"}) tag.frame(id, commentFrame("", id));
    return tag.frame("SYLT", syncedLyricsFrame("", {"SYLT"})).frame("WXXX", userUrlFrame("", "http://a"));
}

using Texts = std::vector<std::string>;
Texts textsOf(ID3V2Tag& tag) {
    Texts texts;
    for (const Property& property : kProperties) texts.push_back((tag.*property.read)());
    return texts;
}
const std::string kSynced("SYLT\0\0\0\0\0", 9);

TEST(ID3V2Tag, PropertiesOfVersion22) {
    TagOnDisk file(fullTag(2));
    EXPECT_EQ(textsOf(file.tag), (Texts{"TP1", "TAL", "TT2", "TCO", "TRK", "TYE", "", "", "", "", "", "", "", ""}));
}

TEST(ID3V2Tag, PropertiesOfVersion23) {
    TagOnDisk file(fullTag(3));
    EXPECT_EQ(textsOf(file.tag), (Texts{"TPE1", "TALB", "TIT2", "TCON", "TRCK", "TYER", "USLT", kSynced, "", "COMM",
                                        "TCOM", "TOPE", "TCOP", "TENC"}));
}

TEST(ID3V2Tag, PropertiesOfVersion24HaveNoYear) {
    TagOnDisk file(fullTag(4));
    EXPECT_EQ(textsOf(file.tag), (Texts{"TPE1", "TALB", "TIT2", "TCON", "TRCK", "", "USLT", kSynced, "", "COMM", "TCOM",
                                        "TOPE", "TCOP", "TENC"}));
}

TEST(ID3V2Tag, ATagWithoutFramesHasNoTexts) {
    for (const unsigned version : {2U, 3U, 4U}) {
        TagOnDisk file(Id3v2Builder(version).padding(20));
        EXPECT_EQ(textsOf(file.tag), Texts(kProperties.size())) << version;
        EXPECT_EQ(lastErrorOf(file.tag), "0, , ") << version;
    }
}

TEST(ID3V2Tag, OnlyTheReaderOfTheTagsVersionIsThere) {
    for (const unsigned version : {2U, 3U, 4U}) {
        TagOnDisk file(fullTag(version));
        EXPECT_EQ(file.tag.ID3V22Tag() != nullptr, version == 2);
        EXPECT_EQ(file.tag.ID3V23Tag() != nullptr, version == 3);
        EXPECT_EQ(file.tag.ID3V24Tag() != nullptr, version == 4);
        EXPECT_EQ(file.tag.ID3V23Tag(), file.tag.ID3V23Tag());
    }
}

class UnknownVersion : public testing::TestWithParam<unsigned> {};
TEST_P(UnknownVersion, GivesEmptyValuesAndRecordsNothing) {
    TagOnDisk file(Id3v2Builder(GetParam()).text("TIT2", "t"));
    EXPECT_EQ(textsOf(file.tag), Texts(kProperties.size()));
    EXPECT_EQ(file.tag.ID3V22Tag(), nullptr);
    EXPECT_EQ(file.tag.ID3V23Tag(), nullptr);
    EXPECT_EQ(file.tag.ID3V24Tag(), nullptr);
    EXPECT_FALSE(file.tag.canSave());
    std::int16_t id = 99;
    std::string description = "kept";
    EXPECT_FALSE(file.tag.splittedGenre(id, description));
    EXPECT_EQ(description, "kept");
    EXPECT_EQ(lastErrorOf(file.tag), "0, , ");
}
INSTANTIATE_TEST_SUITE_P(Versions, UnknownVersion, testing::Values(0U, 1U, 5U, 255U));

TEST(ID3V2Tag, ATagThatCannotBeReadSaysSo) {
    for (const unsigned version : {2U, 3U, 4U}) {
        TagOnDisk file(Id3v2Builder(version).raw(bytesOf("no frames in here")));
        EXPECT_EQ(textsOf(file.tag), Texts(kProperties.size()));
        EXPECT_EQ(lastErrorOf(file.tag), kUnableToLoad);
        EXPECT_EQ(file.tag.ID3V22Tag(), nullptr);
        EXPECT_EQ(file.tag.ID3V23Tag(), nullptr);
        EXPECT_EQ(file.tag.ID3V24Tag(), nullptr);
        EXPECT_FALSE(file.tag.canSave());
    }
}

TEST(ID3V2Tag, AFailedLoadIsRecordedWithoutSeverity) {
    TagOnDisk file(Id3v2Builder(3).raw(bytesOf("no frames in here")));
    file.tag.Title();
    auto shown = MessageBoxIcon::Stop;
    setMessageBoxHook([&shown](const MessageBoxRequest& request) { shown = request.icon; });
    file.tag.LastError()->Show();
    setMessageBoxHook({});
    EXPECT_EQ(shown, MessageBoxIcon::Information);
}

TEST(ID3V2Tag, AFileThatIsGoneIsATagThatCannotBeRead) {
    TagOnDisk file(fullTag(3));
    std::filesystem::remove(file.path());
    EXPECT_EQ(file.tag.Title(), "");
    EXPECT_EQ(lastErrorOf(file.tag), kUnableToLoad);
}

TEST(ID3V2Tag, AFailedLoadIsTriedAgain) {
    TagOnDisk file(fullTag(3));
    const ByteArray content = contentOf(file.path());
    std::filesystem::remove(file.path());
    EXPECT_EQ(file.tag.Title(), "");
    file.folder().write("f.mp3", content);
    EXPECT_EQ(file.tag.Title(), "TIT2");
}

TEST(ID3V2Tag, FramesAreReadWhenTheyAreFirstAskedForAndOnce) {
    TagOnDisk file(Id3v2Builder(3).text("TIT2", "first"));
    file.folder().write("f.mp3", Id3v2Builder(3).text("TIT2", "later").done());
    EXPECT_EQ(file.tag.Title(), "later");
    std::filesystem::remove(file.path());
    EXPECT_EQ(file.tag.Title(), "later");
    EXPECT_EQ(file.tag.Artist(), "");
    EXPECT_EQ(lastErrorOf(file.tag), "0, , ");
}

TEST(ID3V2Tag, WithoutAHeaderThereIsNoTag) {
    ID3V2Tag tag;
    EXPECT_EQ(sizeOf(tag), 0);
    EXPECT_EQ(tag.Title(), "");
    EXPECT_EQ(lastErrorOf(tag), kUnableToLoad);
}

TEST(ID3V2Tag, ASecondHeaderForgetsTheReaderOfTheFirst) {
    TagOnDisk file(fullTag(2));
    const auto reader = file.tag.ID3V22Tag();
    const std::string second = file.folder().write("g", fullTag(3).done());
    Internals<ID3V2Tag>::setHeader(file.tag, second, *decodeHeader(fullTag(3).done()));
    EXPECT_EQ(file.tag.Title(), "TIT2");
    EXPECT_EQ(file.tag.ID3V22Tag(), nullptr);
    EXPECT_EQ(reader->Title(), "TT2");
}

TEST(ID3V2Tag, AWriteBeforeTheFirstReadOfAVersion23TagIsAFailure) {
    for (const Property& property : kProperties) {
        TagOnDisk file(fullTag(3));
        try {
            (file.tag.*property.write)("x");
            ADD_FAILURE() << property.name;
        } catch (const RuntimeFailure& failure) {
            EXPECT_EQ(failure.number(), 91) << property.name;
        }
    }
}

TEST(ID3V2Tag, AWriteAfterTheFirstReadOfAParsedTagDoesNothing) {
    TagOnDisk file(fullTag(3));
    const Texts before = textsOf(file.tag);
    for (const Property& property : kProperties) (file.tag.*property.write)("other");
    EXPECT_EQ(textsOf(file.tag), before);
    EXPECT_EQ(lastErrorOf(file.tag), "0, , ");
}

TEST(ID3V2Tag, AWriteAfterAFailedReadReachesTheReaderThatIsHeld) {
    TagOnDisk file(Id3v2Builder(3).raw(bytesOf("no frames in here")));
    file.tag.Title();
    EXPECT_NO_THROW(file.tag.Title("x"));
}

TEST(ID3V2Tag, AWriteToAnyOtherVersionDoesNothing) {
    for (const unsigned version : {0U, 2U, 4U, 5U}) {
        TagOnDisk file(fullTag(version));
        for (const Property& property : kProperties) EXPECT_NO_THROW((file.tag.*property.write)("x"));
        EXPECT_EQ(lastErrorOf(file.tag), "0, , ");
    }
}

TEST(ID3V2Tag, ThePictureOfVersions23And24) {
    for (const unsigned version : {3U, 4U}) {
        TagOnDisk file(Id3v2Builder(version).frame("APIC", pictureFrame(gifImage(2, 1))));
        const auto picture = file.tag.Picture();
        ASSERT_NE(picture, nullptr);
        EXPECT_EQ(picture->mimeType(), "image/gif");
        TagOnDisk none(Id3v2Builder(version).text("TIT2", "t"));
        EXPECT_EQ(none.tag.Picture(), nullptr);
    }
}

TEST(ID3V2Tag, Version22HasNoPicture) {
    TagOnDisk file(Id3v2Builder(2).frame("PIC", pictureFrameOfVersion22(pngImage(1, 1))));
    EXPECT_EQ(file.tag.Picture(), nullptr);
    EXPECT_EQ(lastErrorOf(file.tag), "0, , ");
}

TEST(ID3V2Tag, APictureIsWrittenAsTheOtherProperties) {
    const auto picture = Picture::fromBytes(pngImage(1, 1));
    TagOnDisk file(fullTag(3));
    EXPECT_THROW(file.tag.Picture(picture), RuntimeFailure);
    EXPECT_EQ(file.tag.Picture(), nullptr);
    file.tag.Picture(picture);
    EXPECT_EQ(file.tag.Picture(), nullptr);
    TagOnDisk later(fullTag(4));
    EXPECT_NO_THROW(later.tag.Picture(picture));
}

TEST(ID3V2Tag, APictureIsReadWhenItIsAskedForAndFromTheSameFileOnly) {
    const ByteArray image = test::joined({pngImage(1, 1), ByteArray(100'000, 7)});
    for (const unsigned version : {3U, 4U}) {
        TagOnDisk file(Id3v2Builder(version).frame("APIC", pictureFrame(image)).text("TIT2", "t"));
        EXPECT_EQ(file.tag.Title(), "t");
        file.replaceFile();
        EXPECT_EQ(file.tag.Picture(), nullptr);
        EXPECT_EQ(file.tag.Title(), "t");
    }
}

TEST(ID3V2Tag, SavingOptionsHaveNoEffect) {
    TagOnDisk file(fullTag(3));
    file.tag.SavingOptions(INT32_MAX, INT32_MIN);
    file.tag.SavingOptions(1);
    EXPECT_EQ(file.tag.Title(), "TIT2");
    EXPECT_EQ(lastErrorOf(file.tag), "0, , ");
}

TEST(ID3V2Tag, SavingOfVersions22And24IsNotSupported) {
    for (const unsigned version : {2U, 4U}) {
        TagOnDisk file(fullTag(version));
        EXPECT_FALSE(file.tag.saveTag());
        EXPECT_EQ(lastErrorOf(file.tag), kNotSupported);
        EXPECT_FALSE(file.tag.canSave());
        EXPECT_EQ(lastErrorOf(file.tag), "0, canSave, Saving is not supported.");
    }
}

TEST(ID3V2Tag, CanSaveShowsTheReasonOfTheReader) {
    TagOnDisk file(fullTag(3));
    const auto earlier = file.tag.LastError();
    EXPECT_FALSE(file.tag.canSave());
    EXPECT_EQ(lastErrorOf(file.tag), lastErrorOf(*file.tag.ID3V23Tag()));
    EXPECT_NE(lastErrorOf(file.tag).find("libid3-3.8.so.3"), std::string::npos);
    EXPECT_EQ(earlier->Stream(), lastErrorOf(file.tag)) << "a view shows the latest failure, whoever has recorded it";
    Internals<ID3V23Tag>::refuseSaving(*file.tag.ID3V23Tag(), true);
    EXPECT_FALSE(file.tag.canSave());
    EXPECT_EQ(lastErrorOf(file.tag), "0, Save functionality, Saving is not supported.");
}

TEST(ID3V2Tag, SavingAParsedVersion23TagShowsTheReasonOfTheReader) {
    TagOnDisk file(fullTag(3));
    file.tag.Title();
    const ByteArray before = contentOf(file.path());
    EXPECT_FALSE(file.tag.saveTag());
    EXPECT_EQ(lastErrorOf(file.tag), kNotSupported);
    EXPECT_EQ(lastErrorOf(*file.tag.ID3V23Tag()), kNotSupported);
    EXPECT_EQ(contentOf(file.path()), before);
}

TEST(ID3V2Tag, SavingAVersion23TagBeforeTheFirstReadIsRecorded) {
    TagOnDisk file(fullTag(3));
    EXPECT_FALSE(file.tag.saveTag());
    EXPECT_TRUE(lastErrorOf(file.tag).starts_with("91, ")) << lastErrorOf(file.tag);
}

TEST(ID3V2Tag, GenreIsSplitForVersion23Only) {
    std::int16_t id = 99;
    std::string description = "kept";
    TagOnDisk old(Id3v2Builder(2).text("TCO", "(17)Rock"));
    EXPECT_FALSE(old.tag.splittedGenre(id, description));
    TagOnDisk later(Id3v2Builder(4).text("TCON", "(17)Rock"));
    EXPECT_FALSE(later.tag.splittedGenre(id, description));
    EXPECT_EQ(description, "kept");
    TagOnDisk file(Id3v2Builder(3).text("TCON", "(17)Rock"));
    EXPECT_TRUE(file.tag.splittedGenre(id, description));
    EXPECT_EQ(id, 99);
    EXPECT_EQ(description, "Rock");
}

TEST(ID3V2Tag, AnErrorObtainedBeforeARefusalShowsThatRefusal) {
    for (const unsigned version : {2U, 4U}) {
        TagOnDisk file(Id3v2Builder(version).text(version == 2 ? "TT2" : "TIT2", "x"));
        const auto held = file.tag.LastError();
        EXPECT_FALSE(file.tag.canSave());
        EXPECT_EQ(held->Stream(), "0, canSave, Saving is not supported.") << version;
        EXPECT_FALSE(file.tag.saveTag());
        EXPECT_EQ(held->Stream(), kNotSupported) << version;
    }
}

} // namespace
} // namespace corvane::id3v2tag_test
