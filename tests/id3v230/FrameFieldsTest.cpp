#include "corvane/id3v230/FrameFields.h"

#include "corvane/id3v230/Id3FrameNumbers.h"
#include "corvane/id3v230/Id3Library.h"

#include <gtest/gtest.h>

namespace corvane::framefields_test {
namespace {

TEST(FrameFields, AreThoseThatId3libGivesTheFrame) {
    const Id3Library* const id3lib = Id3Library::loaded();
    ASSERT_NE(id3lib, nullptr);
    for (int number = 1; number <= 74; ++number) {
        const auto frame = static_cast<ID3_FrameID>(number);
        Id3Library::Frame* const made = id3lib->newFrame(id3libNumberOf(frame).value());
        for (int field = 0; field <= 24; ++field) {
            EXPECT_EQ(hasField(frame, static_cast<ID3_FieldID>(field)), id3lib->field(made, field) != nullptr)
                << "frame " << number << ", field " << field;
        }
        id3lib->deleteFrame(made);
    }
}

TEST(FrameFields, OfAnUnknownFrameAreItsData) {
    for (const int number : {0, 75, 76, 77, -1, -2, 1000}) {
        const FrameFields fields = fieldsOf(static_cast<ID3_FrameID>(number));
        ASSERT_EQ(fields.inOrder.size(), 1U);
        EXPECT_EQ(fields.inOrder.front(), ID3_FieldID::ID3FN_DATA);
        EXPECT_EQ(fields.value, ID3_FieldID::ID3FN_NOFIELD);
    }
}

TEST(FrameFields, HoldTheValueWhereThereIsOne) {
    for (int number = 0; number <= 74; ++number) {
        const auto frame = static_cast<ID3_FrameID>(number);
        const FrameFields fields = fieldsOf(frame);
        const bool hasValue = fields.value != ID3_FieldID::ID3FN_NOFIELD;
        EXPECT_EQ(hasField(frame, fields.value), hasValue) << number;
        const bool hasTextOrUrl = hasField(frame, ID3_FieldID::ID3FN_TEXT) || hasField(frame, ID3_FieldID::ID3FN_URL);
        EXPECT_TRUE(hasValue || !hasTextOrUrl) << number;
    }
}

} // namespace
} // namespace corvane::framefields_test
