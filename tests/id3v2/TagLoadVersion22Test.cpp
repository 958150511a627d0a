#include "corvane/id3v2/TagLoad.h"

#include "tests/id3v2/LoadedFrames.h"

#include <gtest/gtest.h>

namespace corvane::tagloadversion22_test {
namespace {

using namespace test;

constexpr std::string_view kTitle("TT2\0\0\5\0abcd", 11); // one whole frame

Id3v2Builder title() { return Id3v2Builder(2).raw(bytesOf(kTitle)); }

struct Case {
    const char* name;
    Id3v2Builder tag;
    std::string outcome;
};
class TagsOfVersion22 : public testing::TestWithParam<Case> {};
TEST_P(TagsOfVersion22, AreTakenExactlyAsListed) {
    EXPECT_EQ(outcomeOf(loadedFrames(GetParam().tag)), GetParam().outcome);
    auto stuffed = Id3v2Builder(2).flags(0x80).raw(unsynchronised(GetParam().tag.body()));
    if (GetParam().tag.header()[9] == GetParam().tag.body().size()) {
        EXPECT_EQ(outcomeOf(loadedFrames(stuffed)), GetParam().outcome) << "unsynchronised";
    }
}
INSTANTIATE_TEST_SUITE_P(
    Tags, TagsOfVersion22,
    testing::Values(
        Case{"OneFrame", title(), "TT2;"}, Case{"OneTrailingByte", title().padding(1), "TT2;"},
        Case{"TwoBytesOfPadding", title().padding(2), "refused"},
        Case{"FiveBytesOfPadding", title().padding(5), "refused"},
        Case{"SixBytesOfPadding", title().padding(6), "TT2;"}, Case{"NoBody", Id3v2Builder(2), "refused"},
        Case{"OnlyPadding", Id3v2Builder(2).padding(30), ""},
        Case{"OneByteMoreThanTheFile", title().claimedSize(12), "refused"},
        Case{"FrameWithoutDataIsPassedOver", Id3v2Builder(2).frame("TAL", {}).raw(bytesOf(kTitle)), "TT2;"},
        Case{"BlankIdIsPassedOver", Id3v2Builder(2).text("   ", "x").raw(bytesOf(kTitle)), "TT2;"},
        Case{"AFrameOneByteTooLong", Id3v2Builder(2).raw(bytesOf(std::string_view("TT2\0\0\6\0abcd", 11))), "refused"},
        Case{"AFrameOfTheLargestSize", Id3v2Builder(2).raw(bytesOf(std::string_view("TT2\xFF\xFF\xFF\0abcd", 11))),
             "refused"},
        Case{"AFrameOneByteTooShort", Id3v2Builder(2).raw(bytesOf(std::string_view("TT2\0\0\4\0abcd", 11))), "TT2;"}),
    [](const auto& tested) { return tested.param.name; });

struct FlagCase {
    const char* name;
    unsigned flags;
    bool accepted;
};
class HeaderFlagsOfVersion22 : public testing::TestWithParam<FlagCase> {};
TEST_P(HeaderFlagsOfVersion22, Bits2And3MustBeClear) {
    EXPECT_EQ(loadedFrames(title().flags(GetParam().flags)) != nullptr, GetParam().accepted);
}
INSTANTIATE_TEST_SUITE_P(Flags, HeaderFlagsOfVersion22,
                         testing::Values(FlagCase{"Bit01", 0x01, true}, FlagCase{"Bit02", 0x02, true},
                                         FlagCase{"Bit04", 0x04, false}, FlagCase{"Bit08", 0x08, false},
                                         FlagCase{"Bit10", 0x10, true}, FlagCase{"Bit20", 0x20, true},
                                         FlagCase{"Bit40", 0x40, true}, FlagCase{"Bit80", 0x80, true}),
                         [](const auto& tested) { return tested.param.name; });

TEST(TagLoadVersion22, SizesAreOfThreeBytes) {
    const ByteArray data(0x012345, 7);
    const auto frames = loadedFrames(Id3v2Builder(2).frame("PIC", data));
    ASSERT_NE(frames, nullptr);
    EXPECT_EQ(frames->find("PIC")->size, 0x012345U);
}

TEST(TagLoadVersion22, EveryShorterPrefixIsRefused) {
    const ByteArray whole = title().frame("COM", commentFrame("d", "t")).padding(20).done();
    const ScratchFolder folder;
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_EQ(loadedFrames(folder.write("f", Bytes(whole).first(size))), nullptr) << size;
    }
}

} // namespace
} // namespace corvane::tagloadversion22_test
