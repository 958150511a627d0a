#include "corvane/id3v2/ID3V2Header.h"

#include "tests/support/ByteBuilder.h"

#include <gtest/gtest.h>

namespace corvane::id3v2header_test {
namespace {

ByteArray headerBytes() { return test::ByteBuilder().text("ID3").byte(3).byte(1).byte(0xA0).synchsafe(257).done(); }

TEST(ID3V2Header, EveryFieldIsTakenFromItsPlace) {
    const auto header = decodeHeader(headerBytes());
    ASSERT_TRUE(header);
    EXPECT_EQ(header->ID, "ID3");
    EXPECT_EQ(header->Version, (std::array<std::uint8_t, 2>{3, 1}));
    EXPECT_EQ(header->Flags, 0xA0);
    EXPECT_EQ(header->Size, (std::array<std::uint8_t, 4>{0, 0, 2, 1}));
}

TEST(ID3V2Header, EveryShorterPrefixIsRefused) {
    const ByteArray whole = headerBytes();
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_FALSE(decodeHeader(Bytes(whole).first(size))) << size;
    }
}

struct Case {
    const char* name;
    std::size_t offset;
    unsigned byte;
    bool accepted;
};
class ID3V2HeaderNumbers : public testing::TestWithParam<Case> {};
TEST_P(ID3V2HeaderNumbers, AreThoseOfATag) {
    ByteArray bytes = headerBytes();
    bytes[GetParam().offset] = static_cast<std::uint8_t>(GetParam().byte);
    EXPECT_EQ(hasTagNumbers(*decodeHeader(bytes)), GetParam().accepted);
}
INSTANTIATE_TEST_SUITE_P(Bytes, ID3V2HeaderNumbers,
                         testing::Values(Case{"MajorVersionFE", 3, 0xFE, true}, Case{"MajorVersionFF", 3, 0xFF, false},
                                         Case{"RevisionFE", 4, 0xFE, true}, Case{"RevisionFF", 4, 0xFF, false},
                                         Case{"FlagsAreNotChecked", 5, 0xFF, true}, Case{"FirstSize7F", 6, 0x7F, true},
                                         Case{"FirstSize80", 6, 0x80, false}, Case{"SecondSize80", 7, 0x80, false},
                                         Case{"ThirdSize80", 8, 0x80, false}, Case{"LastSize80", 9, 0x80, false},
                                         Case{"LastSize7F", 9, 0x7F, true}),
                         [](const auto& tested) { return tested.param.name; });

} // namespace
} // namespace corvane::id3v2header_test
