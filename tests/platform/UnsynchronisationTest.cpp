#include "corvane/platform/Unsynchronisation.h"

#include "tests/support/Id3v2Builder.h"

#include <gtest/gtest.h>

namespace corvane::unsynchronisation_test {
namespace {

struct Case {
    const char* name;
    ByteArray bytes, expected;
};
class Unsynchronisation : public testing::TestWithParam<Case> {};
TEST_P(Unsynchronisation, DropsEveryZeroDirectlyBehindFF) {
    ByteArray bytes = GetParam().bytes;
    undoUnsynchronisation(bytes);
    EXPECT_EQ(bytes, GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(Bytes, Unsynchronisation,
                         testing::Values(Case{"Nothing", {}, {}}, Case{"OneZero", {0}, {0}},
                                         Case{"One", {0xFF, 0}, {0xFF}},
                                         Case{"OnlyTheFirstOfTwo", {0xFF, 0, 0, 1}, {0xFF, 0, 1}},
                                         Case{"OthersStay", {0xFF, 1, 0, 0xFE, 0}, {0xFF, 1, 0, 0xFE, 0}},
                                         Case{"RowOfFF", {0xFF, 0xFF, 0, 0xFF, 0, 0xE0}, {0xFF, 0xFF, 0xFF, 0xE0}}),
                         [](const auto& tested) { return tested.param.name; });

TEST(Unsynchronisation, GivesBackWhatWasUnsynchronised) {
    ByteArray bytes;
    for (unsigned i = 0; i < 0x10000; i += 3) {
        const bool plain = i % 5 != 0;
        bytes.push_back(plain ? static_cast<std::uint8_t>(i >> 8) : 0xFF);
    }
    ByteArray stuffed = test::unsynchronised(bytes);
    EXPECT_GT(stuffed.size(), bytes.size());
    undoUnsynchronisation(stuffed);
    EXPECT_EQ(stuffed, bytes);
}

struct Told {
    const char* name;
    ByteArray bytes;
    bool expected;
};
class IsUnsynchronised : public testing::TestWithParam<Told> {};
TEST_P(IsUnsynchronised, TellsWhetherUndoingBringsBackWhatWasMeant) {
    EXPECT_EQ(isUnsynchronised(GetParam().bytes), GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(
    Bytes, IsUnsynchronised,
    testing::Values(Told{"Nothing", {}, true}, Told{"NoFF", {0, 1, 0xFE}, true},
                    Told{"FFBeforeALowByte", {0xFF, 0x01}, true}, Told{"FFAtTheEnd", {0xFF}, true},
                    Told{"StuffedAtTheEnd", {0xFF, 0}, true}, Told{"StuffedBeforeZero", {0xFF, 0, 0}, true},
                    Told{"StuffedBeforeSync", {0xFF, 0, 0xE0}, true},
                    Told{"StuffedRow", {0xFF, 0, 0xFF, 0, 0xFF, 1}, true}, Told{"Sync", {1, 0xFF, 0xE0}, false},
                    Told{"ByteOrderMark", {0xFF, 0xFE}, false}, Told{"RowOfFF", {0xFF, 0xFF}, false},
                    Told{"ZeroThatProtectsNothing", {0xFF, 0, 0xD9}, false}),
    [](const auto& tested) { return tested.param.name; });

TEST(IsUnsynchronised, WhatWasUnsynchronisedIs) {
    const ByteArray bytes =
        test::ByteBuilder().repeat(0xFF, 3).repeat(0, 3).repeat(0xFF, 2).byte(0xE0).byte(0xFF).done();
    EXPECT_FALSE(isUnsynchronised(bytes));
    EXPECT_TRUE(isUnsynchronised(test::unsynchronised(bytes)));
}

} // namespace
} // namespace corvane::unsynchronisation_test
