#include "corvane/id3v2/TagLoad.h"

#include "tests/id3v2/LoadedFrames.h"

#include <gtest/gtest.h>

namespace corvane::tagloadversion24_test {
namespace {

using namespace test;

constexpr std::string_view kTitle("TIT2\0\0\0\5\0\0\0abcd", 15); // one whole frame

Id3v2Builder title() { return Id3v2Builder(4).raw(bytesOf(kTitle)); }
ByteArray payloadOf(const TagFrames& frames) { return corvane::payloadOf(frames, frames.all().front()); }

struct Case {
    const char* name;
    ByteArray file;
    std::string outcome;
};
class TagsOfVersion24 : public testing::TestWithParam<Case> {};
TEST_P(TagsOfVersion24, AreTakenExactlyAsListed) {
    EXPECT_EQ(outcomeOf(loadedFrames(GetParam().file)), GetParam().outcome);
}

ByteArray withAudio(const Id3v2Builder& tag) { return ByteBuilder().bytes(tag.done()).repeat(0x55, 100).done(); }

INSTANTIATE_TEST_SUITE_P(
    Tags, TagsOfVersion24,
    testing::Values(
        Case{"OneFrame", withAudio(title()), "TIT2;"}, Case{"TheTagMayEndTheFile", title().done(), "TIT2;"},
        Case{"OneTrailingByte", withAudio(title().padding(1)), "TIT2;"},
        Case{"TwoBytesOfPadding", withAudio(title().padding(2)), "refused"},
        Case{"NineBytesOfPadding", withAudio(title().padding(9)), "refused"},
        Case{"TenBytesOfPadding", withAudio(title().padding(10)), "TIT2;"},
        Case{"NoBodyIsNoFault", withAudio(Id3v2Builder(4)), ""},
        Case{"OneByteMoreThanTheFile", title().claimedSize(16).done(), "refused"},
        Case{"FrameWithoutDataIsPassedOver", withAudio(Id3v2Builder(4).frame("TALB", {}).raw(bytesOf(kTitle))),
             "TIT2;"},
        Case{"BlankIdIsPassedOver", withAudio(Id3v2Builder(4).text("    ", "x").raw(bytesOf(kTitle))), "TIT2;"},
        Case{"AFrameThatEndsInTheAudio",
             withAudio(Id3v2Builder(4).raw(bytesOf(std::string_view("TIT2\0\0\0\6\0\0\0abcd", 15)))), "refused"},
        Case{"AFrameOfTheLargestSize",
             withAudio(Id3v2Builder(4).raw(bytesOf(std::string_view("TIT2\xFF\xFF\xFF\xFF\0\0\0abcd", 15)))),
             "refused"}),
    [](const auto& tested) { return tested.param.name; });

struct FlagCase {
    const char* name;
    unsigned flags;
    bool accepted;
};
class HeaderFlagsOfVersion24 : public testing::TestWithParam<FlagCase> {};
TEST_P(HeaderFlagsOfVersion24, Bits0To3MustBeClear) {
    EXPECT_EQ(loadedFrames(withAudio(title().flags(GetParam().flags))) != nullptr, GetParam().accepted);
}
INSTANTIATE_TEST_SUITE_P(Flags, HeaderFlagsOfVersion24,
                         testing::Values(FlagCase{"Bit01", 0x01, false}, FlagCase{"Bit02", 0x02, false},
                                         FlagCase{"Bit04", 0x04, false}, FlagCase{"Bit08", 0x08, false},
                                         FlagCase{"Bit10WithoutAFooter", 0x10, false}, FlagCase{"Bit40", 0x40, true},
                                         FlagCase{"Bit80", 0x80, true}),
                         [](const auto& tested) { return tested.param.name; });

TEST(TagLoadVersion24, FrameSizesAreGroupsOfSevenBits) {
    ByteBuilder body;
    body.text(std::string_view("TIT2\0\0\1\0\0\0", 10)).byte(0).repeat('x', 127).text(kTitle);
    const auto frames = loadedFrames(Id3v2Builder(4).raw(body.done()));
    ASSERT_NE(frames, nullptr);
    EXPECT_EQ(payloadOf(*frames).size(), 128U);
    EXPECT_EQ(frames->list(), "TIT2;TIT2;");
}

TEST(TagLoadVersion24, ThePaddingIsRecordedOneShort) {
    EXPECT_EQ(loadedFrames(title().padding(100))->paddingSize(), 99U);
}

// The size bytes of the extended header alone tell where the frames begin: at the body's start plus that size.
struct ExtendedCase {
    const char* name;
    ByteArray body;
    std::string outcome;
};
class ExtendedHeaderOfVersion24 : public testing::TestWithParam<ExtendedCase> {};
TEST_P(ExtendedHeaderOfVersion24, TellsWhereTheFramesBegin) {
    const auto tag = Id3v2Builder(4).flags(0x20).raw(GetParam().body);
    EXPECT_EQ(outcomeOf(loadedFrames(withAudio(tag))), GetParam().outcome);
    EXPECT_EQ(outcomeOf(loadedFrames(tag)), GetParam().outcome);
}
ByteArray extended(std::uint32_t size, std::size_t bytes) {
    return ByteBuilder().synchsafe(size).repeat(0xAA, bytes - 4).text(kTitle).done();
}
INSTANTIATE_TEST_SUITE_P(Bodies, ExtendedHeaderOfVersion24,
                         testing::Values(ExtendedCase{"SixBytes", extended(6, 6), "TIT2;"},
                                         ExtendedCase{"FourBytes", extended(4, 4), "TIT2;"},
                                         ExtendedCase{"MoreThanABlock", extended(5000, 5000), "TIT2;"},
                                         ExtendedCase{"NoneIsAFrameOfZeros", ByteArray(30), ""},
                                         ExtendedCase{"UpToTheLastByte", extended(18, 4), ""},
                                         ExtendedCase{"PastTheEnd", extended(0x0FFFFFFF, 4), ""},
                                         ExtendedCase{"TwoShort", extended(17, 4), "refused"},
                                         ExtendedCase{"NoBody", {}, ""}),
                         [](const auto& tested) { return tested.param.name; });

TEST(SizeOfTheExtendedHeader, CountsMissingBytesAsZeroAndIsNotHeldInsideTheTag) {
    const auto tag = Id3v2Builder(4).flags(0x20).raw(ByteArray(2));
    EXPECT_EQ(outcomeOf(loadedFrames(tag)), "refused");     // the frames begin at the two zeros
    EXPECT_EQ(outcomeOf(loadedFrames(withAudio(tag))), ""); // they begin behind the tag
}

TEST(SizeOfTheExtendedHeader, IsAnnouncedByFlag20AndNot40) {
    EXPECT_EQ(outcomeOf(loadedFrames(title().flags(0x40))), "TIT2;");
    EXPECT_EQ(outcomeOf(loadedFrames(Id3v2Builder(4).flags(0x40).raw(extended(6, 6)))), "refused");
}

struct FooterCase {
    const char* name;
    std::size_t offset; // of the footer's byte that is changed
    std::uint8_t change;
    bool accepted;
};
class Footer : public testing::TestWithParam<FooterCase> {};
TEST_P(Footer, MustAgreeWithTheHeader) {
    const auto tag = title().padding(20).footer();
    ByteArray file = withAudio(tag);
    file[10 + tag.body().size() + GetParam().offset] ^= GetParam().change;
    EXPECT_EQ(loadedFrames(file) != nullptr, GetParam().accepted);
}
INSTANTIATE_TEST_SUITE_P(Bytes, Footer,
                         testing::Values(FooterCase{"Same", 0, 0, true}, FooterCase{"Identifier0", 0, 1, false},
                                         FooterCase{"Identifier1", 1, 1, false}, FooterCase{"Identifier2", 2, 1, false},
                                         FooterCase{"MajorVersion", 3, 1, false}, FooterCase{"Revision", 4, 1, false},
                                         FooterCase{"Flags", 5, 0x40, false}, FooterCase{"Size0", 6, 1, false},
                                         FooterCase{"Size1", 7, 1, false}, FooterCase{"Size2", 8, 1, false},
                                         FooterCase{"Size3", 9, 1, false}),
                         [](const auto& tested) { return tested.param.name; });

TEST(Footer, ThatIsCutRefusesTheTag) {
    const ByteArray whole = title().footer().done();
    for (std::size_t missing = 1; missing <= 10; ++missing) {
        EXPECT_EQ(loadedFrames(Bytes(whole).first(whole.size() - missing)), nullptr) << missing;
    }
    EXPECT_NE(loadedFrames(whole), nullptr);
}

TEST(Footer, ThatIsNotAnnouncedIsNotLookedFor) {
    EXPECT_NE(loadedFrames(ByteBuilder().bytes(title().done()).text("3DI junk").done()), nullptr);
}

std::string payloadWith(unsigned formatFlags, unsigned headerFlags = 0) {
    const auto tag = Id3v2Builder(4).flags(headerFlags).frame("XXXX", bytesOf("GHabcdef"), formatFlags);
    const auto frames = loadedFrames(tag);
    return frames == nullptr ? "refused" : textOf(payloadOf(*frames));
}

TEST(FrameExtraBytesOfVersion24, AreTakenByTheirOwnFlags) {
    EXPECT_EQ(payloadWith(0), "GHabcdef");
    EXPECT_EQ(payloadWith(0x0F), "GHabcdef");
    EXPECT_EQ(payloadWith(0x40), "abcdef");
    EXPECT_EQ(payloadWith(0x10), "cdef");
    EXPECT_EQ(payloadWith(0x50), "ef");
    EXPECT_EQ(payloadWith(0xC0), "abcdef"); // encrypted: not inflated
}

TEST(FrameExtraBytesOfVersion24, ThatAreNotThereRefuseTheTag) {
    struct Row {
        unsigned flags;
        std::size_t extra;
    };
    for (const Row row : {Row{0x40, 2}, Row{0x10, 4}, Row{0x50, 6}}) {
        for (std::size_t size = 1; size <= 7; ++size) {
            const auto frames = loadedFrames(Id3v2Builder(4).frame("XXXX", ByteArray(size, 1), row.flags));
            EXPECT_EQ(frames != nullptr, size >= row.extra) << row.flags << ' ' << size;
        }
    }
}

TEST(UnsynchronisedFrameOfVersion24, IsUndoneByItsOwnFlag) {
    const ByteArray data = bytesOf(std::string_view("a\xFF\0b\xFF\xE0", 6));
    const auto tag = Id3v2Builder(4).frame("XXXX", unsynchronised(data), 0x20).raw(bytesOf(kTitle));
    const auto frames = loadedFrames(tag);
    ASSERT_NE(frames, nullptr);
    EXPECT_EQ(payloadOf(*frames), data);
    EXPECT_EQ(frames->list(), "XXXX;TIT2;");
}

TEST(UnsynchronisedFrameOfVersion24, IsUndoneByTheTagsFlag) {
    const ByteArray data = bytesOf(std::string_view("a\xFF\0b\xFF\xE0", 6));
    const auto frames = loadedFrames(Id3v2Builder(4).unsynchronise().frame("XXXX", data).frame("TIT2", data));
    ASSERT_NE(frames, nullptr);
    EXPECT_EQ(payloadOf(*frames), data);
    EXPECT_EQ(frames->list(), "XXXX;TIT2;");
}

TEST(UnsynchronisedFrameOfVersion24, WithoutAFlagStaysAsItIs) {
    const ByteArray data = bytesOf(std::string_view("\xFF\0b", 3));
    EXPECT_EQ(payloadOf(*loadedFrames(Id3v2Builder(4).frame("XXXX", data))), data);
}

TEST(UnsynchronisedFrameOfVersion24, AWrongDataLengthIsIgnored) {
    for (const std::uint32_t length : {0U, 1U, 3U, 100U, 0x0FFFFFFFU}) {
        const ByteArray data = ByteBuilder().synchsafe(length).text(std::string_view("a\xFF\0b", 4)).done();
        const auto frames = loadedFrames(Id3v2Builder(4).frame("XXXX", data, 0x30));
        ASSERT_NE(frames, nullptr);
        EXPECT_EQ(payloadOf(*frames), bytesOf("a\xFF"
                                              "b"));
    }
}

TEST(UnsynchronisedFrameOfVersion24, IsUndoneBeforeItIsInflated) {
    const ByteArray content = ByteBuilder().repeat(0xFF, 40).repeat(7, 3).done();
    ByteArray stream = deflated(content);
    const ByteArray data = ByteBuilder().synchsafe(43).bytes(unsynchronised(stream)).done();
    const auto frames = loadedFrames(Id3v2Builder(4).frame("XXXX", data, 0xB0));
    ASSERT_NE(frames, nullptr);
    EXPECT_EQ(payloadOf(*frames), content);
}

TEST(UnsynchronisedFrameOfVersion24, IsUndoneAlsoWhenItIsEncrypted) {
    const auto frames = loadedFrames(Id3v2Builder(4).frame("XXXX", bytesOf(std::string_view("GM\xFF\0b", 5)), 0x60));
    ASSERT_NE(frames, nullptr);
    EXPECT_EQ(payloadOf(*frames), bytesOf("\xFF"
                                          "b"));
    EXPECT_TRUE(frames->all().front().encrypted);
}

TEST(CompressedFrameOfVersion24, IsInflatedToItsDataLength) {
    const auto load = [](unsigned flags, std::uint32_t length, Bytes stream) {
        ByteBuilder data;
        if ((flags & 0x10) != 0) data.synchsafe(length);
        const auto frames = loadedFrames(Id3v2Builder(4).frame("TIT2", data.bytes(stream).done(), flags));
        return frames == nullptr ? "refused" : textOf(payloadOf(*frames));
    };
    const ByteArray stream = deflated(bytesOf("abcd"));
    EXPECT_EQ(load(0x90, 4, stream), "abcd");
    EXPECT_EQ(load(0x90, 5, stream), "abcd");
    EXPECT_EQ(load(0x90, 3, stream), "refused");
    EXPECT_EQ(load(0x90, 0, stream), "refused");
    EXPECT_EQ(load(0x90, 0x0FFFFFFF, stream), "refused");
    EXPECT_EQ(load(0x80, 4, stream), "refused"); // no length at all
    EXPECT_EQ(load(0x90, 4, bytesOf("no stream at all")), "refused");
}

TEST(TagLoadVersion24, EveryShorterPrefixIsRefused) {
    const ByteArray whole = title()
                                .compressedFrame("TALB", textFrame("album"))
                                .frame("TPE1", unsynchronised(textFrame("\u00FF\u00FF", Encoding::Utf16)), 0x20)
                                .footer()
                                .done();
    const ScratchFolder folder;
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_EQ(loadedFrames(folder.write("f", Bytes(whole).first(size))), nullptr) << size;
    }
    EXPECT_EQ(outcomeOf(loadedFrames(whole)), "TIT2;TALB;TPE1;");
}

} // namespace
} // namespace corvane::tagloadversion24_test
