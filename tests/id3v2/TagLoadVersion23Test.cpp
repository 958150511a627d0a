#include "corvane/id3v2/TagLoad.h"

#include "tests/id3v2/LoadedFrames.h"

#include <gtest/gtest.h>

namespace corvane::tagloadversion23_test {
namespace {

using namespace test;

constexpr std::string_view kTitle("TIT2\0\0\0\5\0\0\0abcd", 15); // one whole frame

Id3v2Builder title() { return Id3v2Builder(3).raw(bytesOf(kTitle)); }
std::string titleOf(const TagFrames& frames) { return textOf(frames, *frames.find("TIT2")); }

struct Case {
    const char* name;
    ByteArray file;
    std::string outcome;
};
class TagsOfVersion23 : public testing::TestWithParam<Case> {};
TEST_P(TagsOfVersion23, TakesExactlyTheListedTags) {
    EXPECT_EQ(outcomeOf(loadedFrames(GetParam().file)), GetParam().outcome);
}

const ByteArray kNoData = bytesOf(std::string_view("TALB\0\0\0\0\0\0", 10));

INSTANTIATE_TEST_SUITE_P(
    Tags, TagsOfVersion23,
    testing::Values(
        Case{"OneFrame", title().done(), "TIT2;"}, Case{"TheTagMayEndTheFile", title().done(), "TIT2;"},
        Case{"OneTrailingByte", title().padding(1).done(), "TIT2;"},
        Case{"TwoBytesOfPadding", title().padding(2).done(), "refused"},
        Case{"FiveBytesOfPadding", title().padding(5).done(), "refused"},
        Case{"NineBytesOfPadding", title().padding(9).done(), "refused"},
        Case{"TenBytesOfPadding", title().padding(10).done(), "TIT2;"},
        Case{"OnlyPadding", Id3v2Builder(3).padding(30).done(), ""},
        Case{"OneByteOfBody", Id3v2Builder(3).padding(1).done(), ""}, Case{"NoBody", Id3v2Builder(3).done(), "refused"},
        Case{"OneByteMoreThanTheFile", title().claimedSize(16).done(), "refused"},
        Case{"MuchMoreThanTheFile", title().claimedSize(0x0FFFFFFF).done(), "refused"},
        Case{"FrameWithoutDataIsPassedOver", Id3v2Builder(3).raw(kNoData).raw(bytesOf(kTitle)).done(), "TIT2;"},
        Case{"BlankIdIsPassedOver", Id3v2Builder(3).text("    ", "x").raw(bytesOf(kTitle)).done(), "TIT2;"},
        Case{"AnyIdIsTaken", Id3v2Builder(3).text("a b\x01", "x").done(), "a b\x01;"},
        Case{"AFrameOneByteTooLong",
             Id3v2Builder(3).raw(bytesOf(std::string_view("TIT2\0\0\0\6\0\0\0abcd", 15))).done(), "refused"},
        Case{"AFrameOfTheLargestSize",
             Id3v2Builder(3).raw(bytesOf(std::string_view("TIT2\x7F\xFF\xFF\xFF\0\0\0abcd", 15))).done(), "refused"},
        Case{"ASizeThatOverflowsIsItsLastByte",
             Id3v2Builder(3).raw(bytesOf(std::string_view("TIT2\x80\0\0\5\0\0\0abcd", 15))).done(), "TIT2;"},
        Case{"ADamagedFrameBehindAGoodOne", title().raw(bytesOf("garbage behind it all")).done(), "refused"},
        Case{"PaddingThatLooksLikeAHugeFrame",
             title().raw(bytesOf(std::string_view("\0\0\0\0\0\xFF\xFF\xFF\0\0\0\0", 12))).done(), "refused"},
        Case{"GarbageBehindPaddingIsNotLookedAt", title().padding(10).raw(bytesOf("garbage")).done(), "TIT2;"}),
    [](const auto& tested) { return tested.param.name; });

struct FlagCase {
    const char* name;
    unsigned flags;
    bool accepted;
};
class HeaderFlagsOfVersion23 : public testing::TestWithParam<FlagCase> {};
TEST_P(HeaderFlagsOfVersion23, Bits1To3MustBeClear) {
    EXPECT_EQ(loadedFrames(title().flags(GetParam().flags)) != nullptr, GetParam().accepted);
}
INSTANTIATE_TEST_SUITE_P(Flags, HeaderFlagsOfVersion23,
                         testing::Values(FlagCase{"Bit01", 0x01, true}, FlagCase{"Bit02", 0x02, false},
                                         FlagCase{"Bit04", 0x04, false}, FlagCase{"Bit08", 0x08, false},
                                         FlagCase{"Bit10", 0x10, true}, FlagCase{"Bit40", 0x40, true},
                                         FlagCase{"Bit80", 0x80, true}),
                         [](const auto& tested) { return tested.param.name; });

TEST(TagLoadVersion23, ThePaddingIsRecordedOneShort) {
    EXPECT_EQ(loadedFrames(title().padding(100))->paddingSize(), 99U);
    EXPECT_EQ(loadedFrames(title())->paddingSize(), 0U);
}

TEST(TagLoadVersion23, TheUnsynchronisedBodyIsUndoneFirst) {
    const ByteArray lyrics = test::joined({textFrame(""), bytesOf(std::string_view("\xFF\xE0\xFF\0\0\xFF", 6))});
    auto tag = Id3v2Builder(3).unsynchronise().frame("TIT3", lyrics).raw(bytesOf(kTitle)).padding(20);
    ASSERT_GT(tag.body().size(), 10 + lyrics.size() + kTitle.size() + 20);
    const auto frames = loadedFrames(tag);
    ASSERT_NE(frames, nullptr);
    EXPECT_EQ(frames->list(), "TIT3;TIT2;");
    EXPECT_EQ(payloadOf(*frames, *frames->find("TIT3")), lyrics);
    EXPECT_EQ(titleOf(*frames), "abcd");
    EXPECT_EQ(frames->paddingSize(), 19U);
}

// Flag 20 and not 40 is taken for that of an extended header.
struct ExtendedCase {
    const char* name;
    unsigned flags;
    ByteArray body;
    std::string outcome;
};
class ExtendedHeaderOfVersion23 : public testing::TestWithParam<ExtendedCase> {};
TEST_P(ExtendedHeaderOfVersion23, MayOnlyClaimNoSize) {
    const auto tag = Id3v2Builder(3).flags(GetParam().flags).raw(GetParam().body);
    EXPECT_EQ(outcomeOf(loadedFrames(tag)), GetParam().outcome);
    const auto stuffed = Id3v2Builder(3).flags(GetParam().flags | 0x80).raw(unsynchronised(GetParam().body));
    EXPECT_EQ(outcomeOf(loadedFrames(stuffed)), GetParam().outcome);
}
ByteArray extended(std::uint32_t size) { return ByteBuilder().bigEndian(size, 4).text(kTitle).done(); }
INSTANTIATE_TEST_SUITE_P(Bodies, ExtendedHeaderOfVersion23,
                         testing::Values(ExtendedCase{"NoSize", 0x20, extended(0), "TIT2;"},
                                         ExtendedCase{"Size1", 0x20, extended(1), "refused"},
                                         ExtendedCase{"Size6", 0x20, extended(6), "refused"},
                                         ExtendedCase{"LargestSize", 0x20, extended(0x7FFFFFFF), "refused"},
                                         ExtendedCase{"ASizeThatOverflowsIsItsLastByte", 0x20, extended(0x80000000),
                                                      "TIT2;"},
                                         ExtendedCase{"FourBytesAreEnough", 0x20, ByteArray(4), ""},
                                         ExtendedCase{"ThreeBytesAreNot", 0x20, ByteArray(3), "refused"},
                                         ExtendedCase{"Flag40IsNotLookedAt", 0x40, bytesOf(kTitle), "TIT2;"},
                                         ExtendedCase{"WithoutTheFlagItIsAFrame", 0, extended(0), "refused"}),
                         [](const auto& tested) { return tested.param.name; });

// The extra bytes stand in this order: group, encryption, decompressed size.
TEST(FrameExtraBytesOfVersion23, AreTakenInTheirOwnOrder) {
    const auto payload = [](unsigned formatFlags) {
        const auto tag = Id3v2Builder(3).frame("XXXX", bytesOf("Gabcdef"), formatFlags);
        const auto frames = loadedFrames(tag);
        return frames == nullptr ? "refused" : textOf(payloadOf(*frames, *frames->find("XXXX")));
    };
    EXPECT_EQ(payload(0), "Gabcdef");
    EXPECT_EQ(payload(0x1F), "Gabcdef");
    EXPECT_EQ(payload(0x20), "abcdef");
    EXPECT_EQ(payload(0x40), "abcdef");
    EXPECT_EQ(payload(0x60), "bcdef");
    EXPECT_EQ(payload(0xC0), "ef"); // encrypted: the size is taken, the payload stays as it is
    EXPECT_EQ(payload(0xE0), "f");
    EXPECT_EQ(payload(0x80), "refused");
}

TEST(FrameExtraBytesOfVersion23, TheDecompressedSizeStandsBehindGroupAndMethod) {
    const ByteArray data = ByteBuilder().text("GE").bigEndian(5, 4).bytes(deflated(bytesOf("abcde"))).done();
    EXPECT_NE(loadedFrames(Id3v2Builder(3).frame("XXXX", data, 0xE0)), nullptr);
    const ByteArray grouped = ByteBuilder().text("G").bigEndian(5, 4).bytes(deflated(bytesOf("abcde"))).done();
    const auto frames = loadedFrames(Id3v2Builder(3).frame("XXXX", grouped, 0xA0));
    ASSERT_NE(frames, nullptr);
    EXPECT_EQ(payloadOf(*frames, *frames->find("XXXX")), bytesOf("abcde"));
}

TEST(FrameExtraBytesOfVersion23, ThatAreNotThereRefuseTheTag) {
    struct Row {
        unsigned flags;
        std::size_t extra;
    };
    for (const Row row : {Row{0x20, 1}, Row{0x40, 1}, Row{0x60, 2}, Row{0xC0, 5}, Row{0xE0, 6}}) {
        for (std::size_t size = 1; size <= 7; ++size) {
            const auto frames = loadedFrames(Id3v2Builder(3).frame("XXXX", ByteArray(size, 1), row.flags));
            EXPECT_EQ(frames != nullptr, size >= row.extra) << row.flags << ' ' << size;
        }
    }
}

TEST(FrameExtraBytesOfVersion23, MayBeAllOfTheFrame) {
    const auto frames = loadedFrames(Id3v2Builder(3).frame("TIT2", bytesOf("G"), 0x20));
    ASSERT_NE(frames, nullptr);
    EXPECT_TRUE(payloadOf(*frames, *frames->find("TIT2")).empty());
    EXPECT_EQ(titleOf(*frames), "");
}

TEST(CompressedFrameOfVersion23, IsInflated) {
    const auto frames = loadedFrames(Id3v2Builder(3).compressedFrame("TIT2", textFrame("abcd")).text("TALB", "x"));
    ASSERT_NE(frames, nullptr);
    EXPECT_EQ(titleOf(*frames), "abcd");
    EXPECT_EQ(frames->list(), "TIT2;TALB;");
}

TEST(CompressedFrameOfVersion23, IsInflatedInAnUnsynchronisedTag) {
    auto tag = Id3v2Builder(3).unsynchronise();
    const auto frames = loadedFrames(tag.compressedFrame("TIT2", textFrame(std::string(300, '\xFF'))).padding(20));
    ASSERT_NE(frames, nullptr);
    EXPECT_EQ(frames->payload(*frames->find("TIT2")).bytes().size(), 1 + 300U);
}

TEST(CompressedFrameOfVersion23, ThatCannotBeInflatedRefusesTheTag) {
    const auto load = [](std::uint32_t size, Bytes stream) {
        const ByteArray data = ByteBuilder().bigEndian(size, 4).bytes(stream).done();
        return outcomeOf(loadedFrames(Id3v2Builder(3).frame("TIT2", data, 0x80).text("TALB", "x")));
    };
    const ByteArray stream = deflated(bytesOf("abcd"));
    EXPECT_EQ(load(4, stream), "TIT2;TALB;");
    EXPECT_EQ(load(5, stream), "TIT2;TALB;");
    EXPECT_EQ(load(3, stream), "refused");
    EXPECT_EQ(load(0, stream), "refused");
    EXPECT_EQ(load(0x7FFFFFFF, stream), "refused");
    EXPECT_EQ(load(4, bytesOf("no stream at all")), "refused");
    EXPECT_EQ(load(4, {}), "refused");
    EXPECT_EQ(load(4, Bytes(stream).first(stream.size() - 1)), "refused");
}

TEST(CompressedFrameOfVersion23, ThatCannotBeInflatedRefusesTheTagAlsoUnderABlankId) {
    EXPECT_EQ(loadedFrames(Id3v2Builder(3).frame("    ", bytesOf("no stream at all"), 0x80)), nullptr);
}

TEST(EncryptedFrameOfVersion23, KeepsItsPayloadAndHasNoText) {
    const auto frames =
        loadedFrames(Id3v2Builder(3).frame("TIT2", test::joined({bytesOf("M"), textFrame("ab")}), 0x40));
    ASSERT_NE(frames, nullptr);
    EXPECT_EQ(payloadOf(*frames, *frames->find("TIT2")), textFrame("ab"));
    EXPECT_EQ(titleOf(*frames), "");
}

Id3v2Builder richTag() {
    return Id3v2Builder(3)
        .text("TIT2", "title")
        .frame("COMM", commentFrame("d", "text"))
        .compressedFrame("TALB", textFrame("album"))
        .frame("TPE1", test::joined({bytesOf("GM"), textFrame("artist", Encoding::Utf16)}), 0x60);
}

TEST(TagLoadVersion23, EveryShorterPrefixIsRefused) {
    const ByteArray whole = richTag().padding(30).done();
    const ScratchFolder folder;
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_EQ(loadedFrames(folder.write("f", Bytes(whole).first(size))), nullptr) << size;
    }
    EXPECT_NE(loadedFrames(whole), nullptr);
}

TEST(TagLoadVersion23, EveryShorterBodyIsReadOrRefusedButNeverHoldsMore) {
    const ByteArray body = richTag().body();
    const ScratchFolder folder;
    for (const bool stuffed : {false, true}) {
        for (std::size_t size = 1; size < body.size(); ++size) {
            const Bytes cut = Bytes(body).first(size);
            auto tag = Id3v2Builder(3).raw(stuffed ? unsynchronised(cut) : ByteArray(cut.begin(), cut.end()));
            if (stuffed) tag.flags(0x80);
            const auto frames = loadedFrames(folder.write("f", tag.done()));
            if (frames != nullptr) {
                EXPECT_LT(frames->count(), 4U);
            }
        }
    }
}

TEST(TagLoadVersion23, ATagThatDoesNotBeginTheFileIsReadFromItsPosition) {
    const ScratchFolder folder;
    const auto frames =
        loadedFrames(folder.write("f", ByteBuilder().repeat(1, 777).bytes(richTag().done()).done()), 777);
    ASSERT_NE(frames, nullptr);
    EXPECT_EQ(titleOf(*frames), "title");
}

} // namespace
} // namespace corvane::tagloadversion23_test
