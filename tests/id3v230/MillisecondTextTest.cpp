#include "corvane/id3v230/MillisecondText.h"

#include <gtest/gtest.h>

namespace corvane::millisecondtext_test {
namespace {

struct Case {
    std::uint32_t milliseconds;
    const char* text;
};
constexpr Case kCases[] = {
    {0, "00:00.0"},           {99, "00:00.0"},          {100, "00:00.1"},           {999, "00:00.9"},
    {59'999, "00:59.9"},      {60'000, "01:00.0"},      {83'456, "01:23.4"},        {3'599'999, "59:59.9"},
    {3'600'000, "1:00:00.0"}, {3'723'456, "1:02:03.4"}, {36'000'000, "10:00:00.0"}, {4'294'967'295, "1193:02:47.2"}};

TEST(MillisecondText, HasHoursOnlyWhenThereAreSome) {
    for (const Case& tested : kCases) EXPECT_EQ(millisecondText(tested.milliseconds), tested.text);
}

TEST(MillisecondText, IsReadBackToTheTenth) {
    for (const Case& tested : kCases) {
        EXPECT_EQ(parseMillisecondText(tested.text), tested.milliseconds / 100 * 100) << tested.text;
    }
}

TEST(MillisecondText, OfAnyOtherFormIsRefused) {
    for (const char* text : {"",          "1",         "00:00",       "0:00.0",       "00:0.0",
                             "00:00.",    "00:00.00",  "00:60.0",     "60:00.0",      "00-00.0",
                             "00:00,0",   " 00:00.0",  "00:00.0 ",    "-1:00.0",      "00:-1.0",
                             "+1:00.0",   "0:00:00.0", "01:00:00.0",  ":00:00.0",     "1:00:60.0",
                             "1:60:00.0", "1:0:00.0",  "1:1:00:00.0", "1193:02:47.3", "4294967296:00:00.0",
                             "aa:bb.c"}) {
        EXPECT_EQ(parseMillisecondText(text), std::nullopt) << text;
    }
}

} // namespace
} // namespace corvane::millisecondtext_test
