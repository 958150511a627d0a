#include "corvane/platform/LocalTime.h"

#include "tests/support/Failures.h"
#include "tests/support/Process.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <ctime>

namespace corvane::localtime_test {
namespace {

struct Case {
    const char* name;
    const char* zone;
    std::int64_t seconds;
    const char* date;
};

class DocumentDate : public testing::TestWithParam<Case> {};

TEST_P(DocumentDate, IsDayMonthYearAndTimeOfTheLocalZone) {
    const int result = test::inChild([] {
        ::setenv("TZ", GetParam().zone, 1);
        ::tzset();
        const std::string date = documentDate(localTimeOf(GetParam().seconds));
        EXPECT_EQ(date, GetParam().date);
        return date == GetParam().date ? 0 : 1;
    });
    EXPECT_EQ(result, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Times, DocumentDate,
    testing::Values(Case{"Start", "UTC0", 0, "01/01/1970 00:00:00"},
                    Case{"Afternoon", "UTC0", 1'000'000'000 + 50'000, "09/09/2001 15:40:00"},
                    Case{"EastOfGreenwich", "XST-5:30", 1'000'000'000, "09/09/2001 07:16:40"},
                    Case{"SummerTime", "CET-1CEST,M3.5.0,M10.5.0", 1'000'000'000, "09/09/2001 03:46:40"},
                    Case{"WinterTime", "CET-1CEST,M3.5.0,M10.5.0", 1'010'000'000, "02/01/2002 20:33:20"},
                    Case{"Before1970", "UTC0", -1, "31/12/1969 23:59:59"},
                    Case{"Behind2038", "UTC0", 4'102'444'800, "01/01/2100 00:00:00"},
                    Case{"FiveDigitYear", "UTC0", 253'402'300'800, "01/01/10000 00:00:00"}),
    [](const auto& tested) { return tested.param.name; });

TEST(LocalTime, ATimeThatNoCalendarCanNameIsAnOverflow) {
    EXPECT_EQ(test::failureNumberOf([] { localTimeOf(INT64_MAX); }), static_cast<int>(FailureNumber::Overflow));
    EXPECT_EQ(test::failureNumberOf([] { localTimeOf(INT64_MIN); }), static_cast<int>(FailureNumber::Overflow));
}

} // namespace
} // namespace corvane::localtime_test
