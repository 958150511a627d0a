#include "corvane/id3v230/LeadingNumber.h"

#include "tests/support/Failures.h"

#include <gtest/gtest.h>

namespace corvane::leadingnumber_test {
namespace {

struct Case {
    const char* text;
    std::int16_t number;
};

TEST(LeadingNumber, StopsAtTheFirstCharacterThatIsNoDigit) {
    for (const auto& [text, number] :
         {Case{"12", 12}, Case{"12abc", 12}, Case{"  12 34", 12}, Case{"0012", 12}, Case{"-5", -5}, Case{"+5", 5},
          Case{"+-5", 0}, Case{"", 0}, Case{"   ", 0}, Case{"abc", 0}, Case{"1999-12-31", 1999}, Case{"32767", 32767},
          Case{"-32768x", -32768}, Case{"\xEF\xBC\x91", 0}}) {
        EXPECT_EQ(leadingNumber(text, "Test"), number) << text;
    }
}

TEST(LeadingNumber, ANumberThatDoesNotFitIsAnOverflow) {
    for (const char* text : {"32768", "-32769", "99999999999999999999"}) {
        try {
            leadingNumber(text, "Test");
            ADD_FAILURE() << text << " gave a number";
        } catch (const RuntimeFailure& failure) {
            EXPECT_EQ(failure.number(), static_cast<std::int32_t>(FailureNumber::Overflow));
            EXPECT_EQ(failure.source(), "Test");
        }
    }
}

} // namespace
} // namespace corvane::leadingnumber_test
